#include "host/exchange/export_entries.h"

#include <map>
#include <unordered_map>

#include "host/database/schema/Schema.h"
#include "host/exchange/CsvReader.h"
#include "host/exchange/EntryBook.h"
#include "host/exchange/FirmIndex.h"
#include "host/exchange/cell_values.h"

namespace autonotify::host {
namespace {

/// Writes nothing: a book that only answers has no need of it.
class NoSink : public RowSink {
 public:
  void begin() override {}
  void commit() override {}
  Id insertRow(std::string_view, std::span<const Field>) override { return noId; }
  void updateRow(std::string_view, Id, std::span<const Field>) override {}
};

/// "AccountingServices.YearEndDate" in two; the first is empty for a column of the kind's own
/// table.
std::pair<std::string, std::string> splitPlace(std::string_view place) {
  const std::size_t point = place.find('.');
  if (point == place.npos) return {{}, std::string(place)};
  return {std::string(place.substr(0, point)), std::string(place.substr(point + 1))};
}

class Export {
 public:
  Export(FirmIndex& firm, const EntryKind& kind)
      : firm_(firm), kind_(kind), book_(openBook(kind, firm, sink_)) {
    for (const EntryColumn& column : kind.columns) readElsewhere(column);
  }

  std::size_t write(const LineWriter& writer) {
    const std::string table(kind_.table);
    const std::string key = findTable(table)->key();
    std::size_t count = 0;
    forEachRow(firm_.database(), "SELECT " + table + ".* FROM " + table + " ORDER BY " + key + ';',
               [&](const Row& row) {
                 if (!book_->isEntry(row)) return;
                 ++count;
                 writer(lineOf(row, row.id(key)));
               });
    return count;
  }

 private:
  using Cells = std::unordered_map<Id, std::string>;

  void readElsewhere(const EntryColumn& column) {
    const auto [table, name] = splitPlace(column.place);
    if (table.empty()) return;
    const std::string key = findTable(table)->key();
    Cells& cells = elsewhere_[&column];
    forEachRow(firm_.database(), "SELECT " + key + ", " + name + " FROM " + table + ';',
               [&, columnName = name](const Row& row) {
                 cells.emplace(row.id(key), cellText(column.type, row.value(columnName)));
               });
  }

  std::string cellOf(const EntryColumn& column, const Row& row, Id id) {
    if (column.place.empty()) return book_->reference(column, row);
    const auto [table, name] = splitPlace(column.place);
    if (table.empty()) return cellText(column.type, row.value(name));
    const Cells& cells = elsewhere_.at(&column);
    const auto found = cells.find(book_->keyIn(table, id));
    return found == cells.end() ? std::string() : found->second;
  }

  std::string lineOf(const Row& row, Id id) {
    std::string line;
    for (const EntryColumn& column : kind_.columns)
      line += (line.empty() && &column == kind_.columns.data() ? "" : ",") +
              csvCell(cellOf(column, row, id));
    return line + "\r\n";
  }

  FirmIndex& firm_;
  const EntryKind& kind_;
  NoSink sink_;
  std::unique_ptr<EntryBook> book_;
  std::map<const EntryColumn*, Cells> elsewhere_;
};

}  // namespace

std::string headingLine(const EntryKind& kind) {
  std::string line;
  for (const EntryColumn& column : kind.columns)
    line += (line.empty() ? "" : ",") + csvCell(std::string(column.heading));
  return line + "\r\n";
}

std::size_t exportEntries(DatabaseReference& database, const EntryKind& kind,
                          const LineWriter& write) {
  FirmIndex firm(database);
  write(headingLine(kind));
  return Export(firm, kind).write(write);
}

}  // namespace autonotify::host
