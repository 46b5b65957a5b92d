#pragma once

#include <cstdint>
#include <string>

#include "contract/rows.h"
#include "list/list_columns.h"

namespace autonotify {

class Grid;

/// Whom a row of the list is for: 2 a company, 1 a contact, 0 nobody.
struct RowClient {
  int type = 0;
  Id id = noId;

  explicit operator bool() const { return type != 0; }
};

/// The client of a notification. One that has a company and a contact is the contact's.
RowClient clientOf(const Row& record);

/// An item of what the client list knows about the client; see info_item. Empty for nobody.
std::string infoItemOf(Step& step, const RowClient& client, std::int16_t item);

/// A row of the grid and the notification that fills it, in statements of the record's frame.
struct ListRow {
  const Row& record;
  /// Told anew by the columns of the company and of the contact.
  RowClient& client;
  Grid& grid;
  int number;
};

/// Fills the row's cell of the column: its text, its sort value or its tick. What does not show is
/// filled only where what a click does reads it.
void fillCell(const ListRow& row, Id column, bool isVisible);

}  // namespace autonotify
