#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "binding/Binding.h"
#include "binding/ModalWindow.h"
#include "binding/window_notes.h"
#include "richtext/field_names.h"

namespace autonotify::desktop {

using AskFieldNames = std::function<FieldNames()>;
using AskNotes = std::function<WindowNotes()>;

/// A window of the component on the screen, drawn by the layout of its name.
///
/// The layout is the resource ":/forms/<name>.ui"; each of its widgets that bears a control's name
/// shows that control. Looks are the layout's, and so are the keys that press a button (its
/// property "keys"), which of them are one choice ("choice"), the panes that F6 leads through
/// ("panes") and which text or list shows its merge fields ("showsMergeFields"); the order of the
/// focus is the window's own.
class FormWindow : public ModalWindow {
  Q_OBJECT

 public:
  /// Throws std::logic_error when there is no such layout or a control has no widget in it.
  FormWindow(Form& form, QWidget* parent, const WindowNotes& notes = {},
             const AskFieldNames& fieldNames = {});
  ~FormWindow() override;

  /// What the close box asks first; null for nothing.
  void setGuard(std::function<bool()> mayClose) { mayClose_ = std::move(mayClose); }
  /// Shows what `notes` says, now and whenever something is written.
  void follow(AskNotes notes);
  /// Stops the timers too.
  void leave() override;
  void drawNow() override;

 protected:
  void begin() override;
  /// The close box asks the window itself.
  void closeEvent(QCloseEvent* event) override;
  /// Escape closes nothing where no button takes it: what is written would be lost. Enter presses
  /// the button that has the focus and no other.
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void bindAll(QWidget& layout);
  void bindKeys(QWidget& layout);
  void showFields(QWidget& layout, const AskFieldNames& fieldNames);
  void orderFocus();
  void startTimers();

  Form& form_;
  std::function<bool()> mayClose_;
  AskNotes following_;
  std::vector<std::unique_ptr<Binding>> bindings_;
};

}  // namespace autonotify::desktop
