#pragma once

#include <exception>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "contract/recordsets.h"

namespace autonotify {

// Rows of tables as logic reads and writes them: each call is a statement of the frame that the
// `Step` belongs to.
//
//   procedure(tagOf<"cancelNotification">, [&](Step& step) {
//     if (Rows row(step, notificationById, notificationId, keysetUpdate); row) {
//       row.write("NotificationSent", "True");
//     }
//   });

/// The text of a value for a column. A callable gives the value; it is called within the statement,
/// where the value is converted, too.
template <class Given>
decltype(auto) columnText(const Given& given) {
  if constexpr (std::is_invocable_v<const Given&>) {
    return columnText(given());
  } else if constexpr (std::is_convertible_v<const Given&, std::string>) {
    return std::string(given);
  } else {
    return toText(given);
  }
}

/// The row on which a recordset stands. Neither step nor recordset is owned.
class Row {
 public:
  Row(Step& step, RecordsetHandle handle) : step_(&step), handle_(handle) {}

  Step& step() const { return *step_; }
  RecordsetHandle handle() const { return handle_; }

  /// Null when the statement is skipped.
  Value value(std::string_view column) const;
  /// Empty for NULL.
  std::string text(std::string_view column) const;
  /// `fallback` when the column is empty or a statement is skipped.
  Id id(std::string_view column, Id fallback = noId) const;
  /// False when the column is empty or a statement is skipped.
  bool flag(std::string_view column) const;
  /// Reads, converts and stores as one statement; skipped, `target` keeps its old value.
  template <class Target, class Convert>
  void read(Target& target, std::string_view column, Convert&& convert) const {
    step_->assign(target, [&] { return convert(database().getFieldValue(handle_, column)); });
  }

  /// Writes the column and saves it at once. See columnText.
  template <class Given>
  void write(const char* column, const Given& given) const {
    step_->run([&] { updateField(handle_, column, columnText(given)); });
  }

  /// Whether the recordset has a row; `otherwise` when the statement is skipped.
  bool exists(bool otherwise = false) const {
    return step_->value(otherwise, [&] { return database().hasRecords(handle_); });
  }
  /// A skipped test reads as the end.
  bool isAtEnd() const {
    return step_->value(true, [&] { return database().isEndOfRecordset(handle_); });
  }
  void moveNext() const {
    step_->run([&] { database().moveNext(handle_); });
  }

  /// For a recordset that no `Rows` holds, which closes its own.
  void close() const {
    step_->run([&] { database().closeRecordset(handle_); });
  }

  /// Where the recordset stands; empty when the statement is skipped.
  std::optional<Bookmark> place() const {
    std::optional<Bookmark> held;
    step_->assign(held, [&] { return database().getBookmark(handle_); });
    return held;
  }
  void goTo(const std::optional<Bookmark>& place) const {
    if (place) step_->run([&] { database().gotoBookmark(handle_, *place); });
  }

 protected:
  Step* step_;
  RecordsetHandle handle_;
};

/// An open recordset: true when it has a row, on which it stands first; a range-for walks it.
///
/// The end of the scope closes it, as a statement of the frame: a function that gives a value with
/// memory of its own closes its rows before it returns. When the procedure is left before,
/// the recordset stays open until the database object closes it.
class Rows : public Row {
 public:
  Rows(Step& step, const std::string& sql, Access access) : Row(step, noRecordset) {
    open(sql, access);
  }
  /// The same with the id and ";" behind the statement. An id below 0 is not looked up: it has no
  /// row, and nothing is opened. `otherwise` is what a recordset is taken for of which nobody can
  /// tell whether it has a row.
  Rows(Step& step, std::string_view statement, Id id, Access access, bool otherwise = false)
      : Row(step, noRecordset) {
    if (id >= 0) open(statementFor(statement, id), access, otherwise);
  }
  /// Closing may fail, and the person may leave the procedure there.
  ~Rows() noexcept(false) {
    if (isOpen_ && std::uncaught_exceptions() == exceptions_) close();
  }
  Rows(const Rows&) = delete;
  Rows& operator=(const Rows&) = delete;

  explicit operator bool() const { return found_; }

  struct End {};
  class Walk {
   public:
    explicit Walk(Rows& rows) : rows_(rows) {}
    const Row& operator*() const { return rows_; }
    void operator++() { rows_.moveNext(); }
    bool operator!=(End) const { return rows_.found_ && !rows_.isAtEnd(); }

   private:
    Rows& rows_;
  };
  Walk begin() { return Walk(*this); }
  End end() { return {}; }

 private:
  using Row::close;

  void open(const std::string& sql, Access access, bool otherwise = false) {
    step_->assign(handle_, openRecordset, sql, access);
    found_ = exists(otherwise);
    isOpen_ = true;
  }

  bool found_ = false;
  bool isOpen_ = false;
  int exceptions_ = std::uncaught_exceptions();
};

/// A row being added through a handle on its whole table.
class NewRow {
 public:
  NewRow(Step& step, const std::string& table);

  /// See columnText.
  template <class Given>
  void set(const char* column, const Given& given) {
    step_.run([&] { database().setFieldValue(handle_, column, columnText(given)); });
  }

  /// Saves the row and closes the handle. The generated key goes to `key` before, so that it is
  /// held when the person leaves.
  void save(Id& key, const char* keyColumn);
  /// The same, with the key read from the row once it is saved.
  void saveAndReadBack(Id& key, const char* keyColumn);

 private:
  void readKey(Id& key, const char* keyColumn);
  void store();
  void close();

  Step& step_;
  RecordsetHandle handle_ = noRecordset;
};

}  // namespace autonotify
