#pragma once

#include <vector>

namespace autonotify::desktop {

/// How wide a column is to be, in pixels.
struct ColumnWish {
  /// As the program has it.
  double told;
  double heading;
  /// The words in its rows.
  double words;
  /// Its words are never cut off.
  bool isRigid;
  /// The longest word of the heading, which is not cut off either; its lines may be several.
  double headingWord = 0;
};

/// The widths of the columns, in their order, for this room. Where there is enough, headings are
/// whole and all share what is left. Where there is little, columns are as wide as their words, and
/// the widest give way first. Where too little would be left of them, all are as they are told,
/// wider than the room.
std::vector<double> fitColumns(const std::vector<ColumnWish>& columns, double room);

}  // namespace autonotify::desktop
