#pragma once

#include <QList>
#include <QWidget>

namespace autonotify::desktop {

/// Of a table: the day on which the program works, a QDate.
inline constexpr const char* todayProperty = "today";

/// What a layout says of its grid, each in a property of the table that has the member's name.
struct GridLook {
  GridLook() = default;
  explicit GridLook(const QWidget& table);

  /// A day of this column that has passed stands out, unless the row is done.
  int dueColumn = -1;
  /// A row that is ticked in this column is done.
  int doneColumn = -1;
  /// What a row is called where its buttons are read out.
  QList<int> nameColumns;
  /// Columns without buttons share what room is left.
  bool stretches = false;
  /// The focus goes to the rows when they come up.
  bool takesFocus = false;
  /// Stands in the place of the rows where there are none. A link presses the button of its name.
  QString emptyText;
};

}  // namespace autonotify::desktop
