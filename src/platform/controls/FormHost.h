#pragma once

#include <algorithm>
#include <vector>

#include "platform/HostObject.h"
#include "platform/PlatformError.h"

namespace autonotify {

class Form;
class Grid;
class Menu;
class Report;
struct GridDialog;

enum class Pointer { standard, busy };

/// Shows the component's windows and lets the host's interface breathe. A host overrides what it
/// can do; as it stands, the class is a host without a screen, which can show no window.
class FormHost {
 public:
  virtual ~FormHost() = default;

  /// Told by each window when it is made and when it is unloaded.
  virtual void addForm(Form& form) { forms_.push_back(&form); }
  virtual void removeForm(Form& form) { std::erase(forms_, &form); }
  /// All windows of the component that are loaded at present, shown or not; not owned.
  virtual std::vector<Form*> openForms() { return forms_; }

  /// Shows the window above `owner` (which may be null) and lets people act in it alone, until it
  /// is hidden or unloaded. Runs the window's timers meanwhile. Windows nest. Throws PlatformError
  /// when the host can show none.
  virtual void showModal(Form&, HostObject*) {
    throw PlatformError(error_number::invalidProcedureCall, "The host has no screen", "FormHost");
  }
  /// Brings a window that is visible to the front, above `owner` (which may be null).
  virtual void bringToFront(Form&, HostObject*) {}
  /// The window has been hidden: what showModal waits for.
  virtual void formHidden(Form&) {}
  /// Shows the preview of the report above `owner` (which may be null), tells the report so
  /// (Report::comeUp) and lets people act in it alone, until it is unloaded (Report::unload), which
  /// the host does when a person closes it. A job that fails is told to Report::fail. Throws
  /// PlatformError when the host can show none.
  virtual void showReport(Report&, HostObject*) {
    throw PlatformError(error_number::invalidProcedureCall, "The host has no screen", "FormHost");
  }
  /// The report has been unloaded: what showReport waits for.
  virtual void reportClosed(Report&) {}
  /// Shows a dialog of the grid's until it is closed; True when the person cancelled. Throws
  /// PlatformError when the host can show none.
  virtual bool showGridDialog(Grid&, const GridDialog&) {
    throw PlatformError(error_number::invalidProcedureCall, "The host has no screen", "FormHost");
  }
  /// Draws the window at once.
  virtual void repaint(Form&) {}
  /// Shows the menu at the pointer until an entry is chosen or none.
  virtual void popUpMenu(Form&, Menu&) {}
  virtual void setPointer(Pointer) {}
  /// Handles the messages that wait; may enter the component again.
  virtual void pumpMessages() = 0;

 private:
  std::vector<Form*> forms_;
};

}  // namespace autonotify
