#pragma once

#include <functional>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "host/clients/record_rows.h"
#include "host/database/RowSink.h"
#include "host/exchange/EntryKind.h"

namespace autonotify::host {

class FirmIndex;

/// An entry that cannot be taken: why, as one sentence without its end.
class EntryRefused : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// What one record of a file says.
class Entry {
 public:
  Entry(std::span<const EntryColumn* const> columns, const std::vector<std::string>& cells)
      : columns_(columns), cells_(cells) {}

  /// The cell below the heading; empty for none.
  const std::string& cell(std::string_view heading) const;
  /// Calls `visit(column, cell)` for each column that is known and has a value.
  template <class Visit>
  void forEach(Visit&& visit) const {
    for (std::size_t i = 0; i < columns_.size() && i < cells_.size(); ++i)
      if (columns_[i] && !cells_[i].empty()) visit(*columns_[i], cells_[i]);
  }

 private:
  /// By position in the file; null for one that is not read.
  std::span<const EntryColumn* const> columns_;
  const std::vector<std::string>& cells_;
};

/// Values for columns of one table, by the names of the schema.
using Fields = std::vector<Field>;

/// The value for that column; NULL when it is not among them.
const Value& fieldOf(const Fields& fields, std::string_view column);
/// The same as text; empty for NULL.
std::string textIn(const Fields& fields, std::string_view column);

/// The entries of one kind: which are there already, and what belongs to one beyond its own row.
class EntryBook {
 public:
  explicit EntryBook(RowSink& sink) : sink_(sink) {}
  virtual ~EntryBook() = default;

  /// Adds to the fields of the entry's own row what other cells of it say, and what follows.
  /// Throws EntryRefused.
  virtual void complete(const Entry&, Fields&) {}
  /// The same once it is known which row it is: noId for a new one.
  virtual void completeRow(Id, Fields&) {}
  /// The row that is this entry's; noId for a new one. Throws EntryRefused.
  virtual Id find(const Entry& entry, const Fields& fields) = 0;
  /// Stores what belongs to a new row of that id. `more` are the fields for other tables, their
  /// names with these in front.
  virtual void added(Id, const Entry&, const Fields& /*fields*/, const Fields& /*more*/) {}
  /// The same after a change; the words say what changed beyond the row, empty for nothing.
  virtual std::string changed(Id, const Entry&, const Fields& /*fields*/) { return {}; }
  /// The key under which the other table has what belongs to the row.
  virtual Id keyIn(std::string_view, Id id) { return id; }

  /// Whether export writes the row.
  virtual bool isEntry(const Row&) { return true; }
  /// What export writes below the heading of a reference.
  virtual std::string reference(const EntryColumn&, const Row&) { return {}; }

 protected:
  RowSink& sink() { return sink_; }

 private:
  RowSink& sink_;
};

/// The book of a kind. All must outlive it.
std::unique_ptr<EntryBook> openBook(const EntryKind& kind, FirmIndex& firm, RowSink& sink);

// Those of the kinds that are more than their rows.
std::unique_ptr<EntryBook> openCompanies(FirmIndex& firm, RowSink& sink);
std::unique_ptr<EntryBook> openContacts(FirmIndex& firm, RowSink& sink);
std::unique_ptr<EntryBook> openLinks(FirmIndex& firm, RowSink& sink);
std::unique_ptr<EntryBook> openStaff(FirmIndex& firm, RowSink& sink);
std::unique_ptr<EntryBook> openScheduleKinds(FirmIndex& firm, RowSink& sink);
std::unique_ptr<EntryBook> openHolidays(FirmIndex& firm, RowSink& sink);
std::unique_ptr<EntryBook> openTasks(FirmIndex& firm, RowSink& sink);

}  // namespace autonotify::host
