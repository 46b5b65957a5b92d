#pragma once

#include <QString>
#include <map>

class QWidget;

namespace autonotify::desktop {

/// A line of the program's own in a window of the component.
struct WindowNote {
  QString text;
  /// The text names something that is missing.
  bool isTrouble = false;
  /// Stands there instead while the box beside the line is ticked.
  QString tickedText = {};
};

/// By the names of their labels.
using WindowNotes = std::map<QString, WindowNote>;

/// Fills those labels of the layout whose names begin with "staticNote", and hides the ones without
/// a note. The box beside a label is its buddy. A label with the property "tellsTrouble" stands
/// out; one with "isSecondary" steps back. A button with "isPrimary" has the accent.
void showNotes(QWidget& layout, const WindowNotes& notes);
/// Writes notes that follow what a person writes; the names of their labels begin with
/// "staticFollow".
void followNotes(QWidget& layout, const WindowNotes& notes);

}  // namespace autonotify::desktop
