#pragma once

#include <functional>
#include <string>

#include "platform/controls/Person.h"
#include "platform/controls/Report.h"

namespace autonotify::test {

/// How a person's acts reach the controls of a window: straight, unless a renderer leads them
/// through its widgets. The answer is False when the control that has the focus keeps it. What no
/// person could do throws std::logic_error.
class WindowDriver {
 public:
  explicit WindowDriver(Form& form) : person_(form) {}
  virtual ~WindowDriver() = default;
  virtual bool click(Control& control) { return person_.click(control); }
  /// Writes the text over the field's own.
  virtual bool type(Control& field, const std::string& text) { return person_.type(field, text); }
  virtual bool choose(Control& list, int position) { return person_.choose(list, position); }
  virtual bool pickDate(DatePicker& picker, DateTime day) { return person_.pickDate(picker, day); }
  virtual bool tabTo(Control& control) { return person_.tabTo(control); }
  virtual bool clickCell(Grid& grid, int row, int column) {
    return person_.clickCell(grid, row, column);
  }
  virtual bool clickHeading(Grid& grid, int column) { return person_.clickHeading(grid, column); }
  virtual bool sizeColumn(Grid& grid, int column, int width) {
    return person_.sizeColumn(grid, column, width);
  }
  virtual bool rightClick(Grid& grid) { return person_.rightClick(grid); }
  virtual bool closeBox() { return person_.closeBox(); }
  /// Expects that what is drawn of the control is what it holds.
  virtual void look(const Control&) {}

 private:
  Person person_;
};

/// The same for a report on show.
class ReportDriver {
 public:
  explicit ReportDriver(Report& report) : report_(report) {}
  virtual ~ReportDriver() = default;
  virtual void close() { report_.unload(); }
  /// Expects that what is drawn of the label is what it holds.
  virtual void look(const ReportLabel&) {}

 private:
  Report& report_;
};

/// What the windows and reports of the tests are drawn with: this one draws nothing.
class WindowRenderer {
 public:
  using Use = std::function<void(WindowDriver& driver)>;
  using ReportUse = std::function<void(ReportDriver& driver)>;

  virtual ~WindowRenderer() = default;
  /// Draws the window, runs `use` in it once, and takes it off the screen.
  virtual void show(Form& form, const Use& use) {
    WindowDriver driver(form);
    use(driver);
  }
  /// The window on the screen has been hidden by a reaction, which goes on.
  virtual void hidden(Form&) {}
  /// The same for a report.
  virtual void show(Report& report, const ReportUse& use) {
    ReportDriver driver(report);
    use(driver);
  }
  virtual void closed(Report&) {}
  virtual void pump() {}

  /// That of the process, which outlives all tests.
  static WindowRenderer*& inUse() {
    static WindowRenderer none;
    static WindowRenderer* used = &none;
    return used;
  }
};

}  // namespace autonotify::test
