#include "host/exchange/EntryBook.h"

#include <map>

namespace autonotify::host {

const std::string& Entry::cell(std::string_view heading) const {
  static const std::string none;
  for (std::size_t i = 0; i < columns_.size() && i < cells_.size(); ++i)
    if (columns_[i] && columns_[i]->heading == heading) return cells_[i];
  return none;
}

const Value& fieldOf(const Fields& fields, std::string_view column) {
  static const Value none;
  for (const Field& field : fields)
    if (field.column == column) return field.value;
  return none;
}

std::string textIn(const Fields& fields, std::string_view column) {
  return textOf(fieldOf(fields, column));
}

std::unique_ptr<EntryBook> openBook(const EntryKind& kind, FirmIndex& firm, RowSink& sink) {
  using Open = std::unique_ptr<EntryBook> (*)(FirmIndex&, RowSink&);
  static const std::map<std::string_view, Open> books{
      {"kinds", openScheduleKinds}, {"holidays", openHolidays}, {"staff", openStaff},
      {"companies", openCompanies}, {"contacts", openContacts}, {"links", openLinks},
      {"tasks", openTasks},
  };
  return books.at(kind.name)(firm, sink);
}

}  // namespace autonotify::host
