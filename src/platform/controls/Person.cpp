#include "platform/controls/Person.h"

#include <algorithm>
#include <stdexcept>

#include "platform/controls/DatePicker.h"
#include "platform/controls/Grid.h"
#include "platform/controls/RichTextBox.h"
#include "platform/utf8.h"

namespace autonotify {

void Person::requireWithinReach(const Control& control) const {
  const std::string place = form_.name() + "." + control.name();
  if (!form_.isVisible()) throw std::logic_error(place + ": the window is not on the screen");
  if (std::ranges::count(form_.controls(), &control) == 0) {
    throw std::logic_error(place + " is no control of the window");
  }
  if (!control.isReachable()) {
    throw std::logic_error(place + (control.isShown() ? " is disabled" : " is hidden"));
  }
}

void Person::requireKnown(bool isKnown, const char* act, const Control& control) const {
  if (!isKnown) throw std::logic_error(control.name() + " cannot be " + act);
}

bool Person::reach(Control& control) {
  requireWithinReach(control);
  if (control.takesFocus() && !form_.moveFocus(control)) return false;
  return form_.isVisible() && control.isReachable();
}

bool Person::act(Control& control, const char* name, const std::function<bool()>& accept) {
  if (!reach(control)) return false;
  requireKnown(accept(), name, control);
  form_.settleFocus();
  return true;
}

bool Person::click(Control& control) {
  return act(control, "clicked", [&] { return control.acceptClick(); });
}

bool Person::doubleClick(Control& control) {
  return act(control, "clicked twice", [&] { return control.acceptDoubleClick(); });
}

bool Person::type(Control& control, const std::string& text) {
  if (!edit(control, {})) return false;
  std::string typed;
  for (std::size_t at = 0; at < text.size();) {
    const Utf8Step step = utf8StepAt(text, at);
    at += step.length;
    const int key = pressKey(control, static_cast<int>(step.value));
    if (key != 0) appendUtf8(typed, static_cast<char32_t>(key));
    if (key != 0) control.acceptText(typed);
    releaseKey(control, key);
  }
  return true;
}

bool Person::edit(Control& control, const std::string& text) {
  return act(control, "written into", [&] { return control.acceptText(text); });
}

int Person::pressKey(Control& control, int keyCode) {
  requireWithinReach(control);
  return control.onKeyPress ? control.onKeyPress(keyCode) : keyCode;
}

void Person::releaseKey(Control& control, int keyCode, int shift) {
  if (control.onKeyUp && form_.isVisible() && control.isReachable())
    control.onKeyUp(keyCode, shift);
}

bool Person::choose(Control& control, int position) {
  return act(control, "chosen from there", [&] { return control.acceptChoice(position); });
}

bool Person::moveTo(Control& control, int position) {
  return act(control, "moved in", [&] { return control.acceptMove(position); });
}

bool Person::clickCell(Grid& grid, int row, int column) {
  return act(grid, "clicked there", [&] { return grid.acceptCellClick(row, column); });
}

bool Person::clickHeading(Grid& grid, int column) {
  return act(grid, "clicked there", [&] { return grid.acceptHeadingClick(column); });
}

bool Person::sizeColumn(Grid& grid, int column, int width) {
  return act(grid, "sized there", [&] { return grid.acceptColumnWidth(column, width); });
}

bool Person::rightClick(Grid& grid) {
  return act(grid, "clicked", [&] { return grid.acceptRightClick(); });
}

bool Person::dropDown(DatePicker& picker) {
  if (!reach(picker)) return false;
  picker.acceptDropDown();
  return true;
}

void Person::closeUp(DatePicker& picker, DateTime date) {
  requireWithinReach(picker);
  picker.acceptDate(date);
  form_.settleFocus();
}

bool Person::pickDate(DatePicker& picker, DateTime date) {
  if (!dropDown(picker)) return false;
  closeUp(picker, date);
  return true;
}

bool Person::editRichText(RichTextBox& box, RichText content) {
  if (!reach(box)) return false;
  box.acceptContent(std::move(content));
  return true;
}

bool Person::selectText(RichTextBox& box, std::size_t start, std::size_t length) {
  if (!reach(box)) return false;
  box.acceptSelection(start, length);
  return true;
}

bool Person::tabTo(Control& control) {
  requireKnown(control.takesFocus(), "given the focus", control);
  return reach(control);
}

bool Person::closeBox() {
  if (!form_.isVisible()) throw std::logic_error(form_.name() + " is not on the screen");
  return form_.unload(CloseReason::closeBox);
}

}  // namespace autonotify
