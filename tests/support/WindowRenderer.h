#pragma once

#include <functional>
#include <string>

#include "platform/DateTime.h"
#include "platform/controls/Form.h"
#include "platform/controls/Report.h"

namespace autonotify {
class DatePicker;
}

namespace autonotify::test {

/// How a person's acts reach the controls of a window: straight, or through a renderer's widgets.
/// The answer is False when the control that has the focus keeps it. What no person could do throws
/// std::logic_error.
class WindowDriver {
 public:
  virtual ~WindowDriver() = default;
  virtual bool click(Control& control) = 0;
  /// Writes the text over the field's own.
  virtual bool type(Control& control, const std::string& text) = 0;
  virtual bool choose(Control& control, int position) = 0;
  virtual bool pickDate(DatePicker& picker, DateTime date) = 0;
  virtual bool tabTo(Control& control) = 0;
  virtual bool closeBox() = 0;
  /// Expects that what is drawn of the control is what it holds.
  virtual void look(const Control&) {}
};

/// The same for a report on show.
class ReportDriver {
 public:
  virtual ~ReportDriver() = default;
  virtual void close() = 0;
  /// Expects that what is drawn of the label is what it holds.
  virtual void look(const ReportLabel&) {}
};

/// What the windows and reports of the tests are drawn with.
class WindowRenderer {
 public:
  using Use = std::function<void(WindowDriver& driver)>;
  using ReportUse = std::function<void(ReportDriver& driver)>;

  virtual ~WindowRenderer() = default;
  /// Draws the window, runs `use` in it once, and takes it off the screen.
  virtual void show(Form& form, const Use& use) = 0;
  /// The window on the screen has been hidden by a reaction, which goes on.
  virtual void hidden(Form&) {}
  /// The same for a report.
  virtual void show(Report& report, const ReportUse& use) = 0;
  virtual void closed(Report&) {}
  virtual void pump() {}

  /// That of the process: without one nothing is drawn.
  static WindowRenderer& inUse();
  /// `renderer` outlives all tests.
  static void setInUse(WindowRenderer& renderer);
};

}  // namespace autonotify::test
