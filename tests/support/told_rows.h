#pragma once

#include "support/table_rows.h"
#include "support/text_table.h"

namespace autonotify::test {

/// Adds a row of the table that the first cell names; each other one says "column=text".
inline Id addTold(TableRows rows, std::vector<std::string> cells) {
  RowFields fields;
  for (std::size_t i = 1; i < cells.size(); ++i) {
    const std::size_t end = cells[i].find('=');
    const std::string text = cells[i].substr(end + 1);
    cells[i].resize(end);
    fields.emplace_back(cells[i].c_str(), text);
  }
  return rows.addRow(cells[0], fields);
}

/// Adds all that a table of a file tells, in its order.
inline void addAllTold(TableRows rows, const std::string& file, const std::string& table) {
  for (const auto& cells : rowsOf(file, table, 1)) addTold(rows, cells);
}

}  // namespace autonotify::test
