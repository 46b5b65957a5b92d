#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/Value.h"

namespace autonotify {

/// The columns of the list. An id is the column's place in the grid, and the key of its entry in
/// the column structure.
namespace list_column {
inline constexpr Id notification = 0;
inline constexpr Id company = 1;
inline constexpr Id contact = 2;
inline constexpr Id schedule = 3;
inline constexpr Id task = 4;
inline constexpr Id appointment = 5;
inline constexpr Id docket = 6;
inline constexpr Id operatingProcedure = 7;
inline constexpr Id clientId = 8;
inline constexpr Id clientName = 9;
inline constexpr Id name = 10;
inline constexpr Id notificationType = 11;
inline constexpr Id notifyOn = 12;
inline constexpr Id created = 13;
inline constexpr Id createdBy = 14;
inline constexpr Id assignedTo = 15;
inline constexpr Id accountant = 16;
inline constexpr Id partner = 17;
inline constexpr Id sent = 18;
inline constexpr Id sentStatus = 19;
inline constexpr Id sentDate = 20;
inline constexpr Id sentBy = 21;
inline constexpr Id companyPhone = 22;
inline constexpr Id companyFax = 23;
inline constexpr Id companyEmail = 24;
inline constexpr Id defaultContactName = 25;
inline constexpr Id defaultContactPhone = 26;
inline constexpr Id defaultContactFax = 27;
inline constexpr Id defaultContactEmail = 28;
inline constexpr Id sendNow = 29;
inline constexpr Id cancelSend = 30;
inline constexpr Id viewInfo = 31;
inline constexpr Id count = 32;
/// The last that is printed; those behind it are buttons.
inline constexpr Id lastData = 28;
}  // namespace list_column

/// Items of an entry of the column structure, and of the sort structure.
namespace column_item {
inline constexpr int visible = 1;
inline constexpr int id = 2;
inline constexpr int heading = 3;
inline constexpr int width = 4;
inline constexpr int one = 5;
inline constexpr int field = 6;
inline constexpr int isData = 7;
inline constexpr int isFixed = 8;
}  // namespace column_item
namespace sort_item {
inline constexpr int column = 1;
inline constexpr int isAscending = 2;
}  // namespace sort_item

/// A column as it is by default; widths in twips.
struct ListColumn {
  const char* heading;
  const char* field;
  bool isVisible;
  int width;
  int minimumWidth;
  std::int16_t align;
  std::int16_t type;
  bool last;
};
/// By column id.
extern constinit const std::array<ListColumn, list_column::count> listColumns;

}  // namespace autonotify
