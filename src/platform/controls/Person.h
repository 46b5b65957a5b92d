#pragma once

#include <functional>
#include <string>

#include "platform/DateTime.h"
#include "platform/controls/Form.h"

namespace autonotify {

class DatePicker;
class Grid;
class RichTextBox;
struct RichText;

/// The one door through which a person's acts reach a window. A renderer passes what its widgets
/// report; a test acts through it as a person would.
///
/// An act moves the focus to its control first, where the control takes it. When the control that
/// has the focus keeps it, or the move takes the control out of reach, the act does not happen and
/// the answer is False. Keys alone move nothing: they are for the control that has the focus. An
/// act that takes the control with the focus out of reach moves the focus on.
///
/// An act that no person could do is a fault of the caller and throws std::logic_error: in a window
/// that is not on the screen, on another window's control, on one that is hidden or disabled,
/// itself or by its group, or one that knows no such act.
class Person {
 public:
  explicit Person(Form& form) : form_(form) {}

  bool click(Control& control);
  bool doubleClick(Control& control);
  /// Writes the text over the field's own, key by key: a key may be changed or refused.
  bool type(Control& control, const std::string& text);
  /// The field's text as the person has left it, for a renderer that passes keys by itself.
  bool edit(Control& control, const std::string& text);
  /// A key that writes; the code to use instead, 0 for none.
  int pressKey(Control& control, int keyCode);
  /// Nothing when the control is out of reach by then.
  void releaseKey(Control& control, int keyCode, int shift = 0);
  /// An entry of a list, a page of a tab control, a node of a tree: by its position.
  bool choose(Control& control, int position);
  /// The arrow keys lead to an entry of a list box or a node of a tree.
  bool moveTo(Control& control, int position);
  /// A cell of a grid: a button is pressed, a tick toggled, any other row becomes the current one.
  bool clickCell(Grid& grid, int row, int column);
  bool clickHeading(Grid& grid, int column);
  /// Drags a column to a width in twips.
  bool sizeColumn(Grid& grid, int column, int width);
  bool rightClick(Grid& grid);
  /// Opens the calendar, picks the date and so closes it.
  bool pickDate(DatePicker& picker, DateTime date);
  /// For a renderer whose calendar is open for a while.
  bool dropDown(DatePicker& picker);
  void closeUp(DatePicker& picker, DateTime date);
  /// What a renderer's own editor holds after a person's act, and where the caret is.
  bool editRichText(RichTextBox& box, RichText content);
  bool selectText(RichTextBox& box, std::size_t start, std::size_t length);
  /// Moves the focus to the control.
  bool tabTo(Control& control);
  /// The window's own close box; False when the window stays.
  bool closeBox();

 private:
  bool act(Control& control, const char* name, const std::function<bool()>& accept);
  bool reach(Control& control);
  void requireWithinReach(const Control& control) const;
  void requireKnown(bool isKnown, const char* act, const Control& control) const;

  Form& form_;
};

}  // namespace autonotify
