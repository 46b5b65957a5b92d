#pragma once

#include <QDate>
#include <QPointer>
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "binding/FormWindow.h"
#include "binding/MessagePump.h"
#include "binding/address_lists.h"
#include "binding/window_notes.h"
#include "platform/controls/FormHost.h"

namespace autonotify::desktop {

/// Shows the component's windows as dialogs above a window of the program.
///
/// A window that has hidden itself may still be at work; until it is done, the program's window is
/// out of reach: what a person did there could take the database away beneath it.
class QtFormHost : public FormHost {
 public:
  /// `program` outlives this object.
  explicit QtFormHost(QWidget& program) : program_(program) {}

  /// What the program has to say in the windows that come up from now on.
  void setNotes(WindowNotes notes) { notes_ = std::move(notes); }
  /// Asked for what a window holds as long as it is loaded, if anything; throws PlatformError to
  /// refuse the window.
  using Holding = std::function<std::shared_ptr<void>(const Form& form)>;
  void setHolding(Holding holding) { holding_ = std::move(holding); }
  /// Asked when a window comes up for what its close box asks first; null for nothing.
  using Guarding = std::function<std::function<bool()>(Form& form)>;
  void setGuarding(Guarding guarding) { guarding_ = std::move(guarding); }
  /// Asked when a window comes up for the notes that follow what is written in it; null for none.
  using Following = std::function<AskNotes(const Form& form)>;
  void setFollowing(Following following) { following_ = std::move(following); }
  /// Asked when a window comes up that shows merge fields.
  void setFieldNames(AskFieldNames fieldNames) { fieldNames_ = std::move(fieldNames); }
  /// Asked when a window comes up that lists addresses.
  void setRecipients(AskRecipients recipients) { recipients_ = std::move(recipients); }
  /// Asked for the day on which the program works.
  void setToday(std::function<QDate()> today) { today_ = std::move(today); }

  void addForm(Form& form) override;
  void removeForm(Form& form) override;
  /// A pointer left busy is the standard one again, so that the person sees who is to act.
  void showModal(Form& form, HostObject* owner) override;
  void formHidden(Form& form) override;
  void showReport(Report& report, HostObject* owner) override;
  void reportClosed(Report& report) override;
  bool showGridDialog(Grid& grid, const GridDialog& dialog) override;
  void repaint(Form& form) override;
  void popUpMenu(Form& form, Menu& menu) override;
  void setPointer(Pointer pointer) override;
  /// Without a window or a dialog on the screen, what a person does waits.
  void pumpMessages() override;

 private:
  ModalWindow* windowOf(const HostObject& model);
  ModalWindow* topVisible();
  QWidget* topWindow();
  bool editGridOptions(const Grid& grid);
  void run(std::unique_ptr<ModalWindow> window);
  void remove(const ModalWindow& window);
  void leave(const HostObject& model);
  void barProgram();
  void admitProgram();

  QWidget& program_;
  MessagePump pump_;
  WindowNotes notes_;
  AskFieldNames fieldNames_;
  Holding holding_;
  Guarding guarding_;
  Following following_;
  AskRecipients recipients_;
  std::function<QDate()> today_;
  std::map<const Form*, std::shared_ptr<void>> held_;
  /// Of the program's window while that is barred.
  QPointer<QWidget> focus_;
  /// The windows that have not returned, the topmost last.
  std::vector<std::unique_ptr<ModalWindow>> windows_;
};

}  // namespace autonotify::desktop
