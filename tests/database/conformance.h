#pragma once

#include <functional>
#include <memory>

#include "contract/DatabaseReference.h"
#include "support/error_number.h"
#include "support/text_table.h"
#include "support/value_cells.h"

namespace autonotify::host::conformance {

/// Gives one more connection to a database, which outlives its connections.
using Connect = std::function<std::unique_ptr<DatabaseReference>()>;

/// Makes a database with the schema's tables and no rows.
struct NewDatabase {
  Connect (*make)();
  friend void PrintTo(const NewDatabase&, std::ostream* out) { *out << "new"; }
};

/// Of an engine: a default constructed Factory stands for the database and has connect().
template <class Factory>
constexpr NewDatabase newDatabase{
    []() -> Connect { return [made = std::make_shared<Factory>()] { return made->connect(); }; }};

/// Seeds through the contract alone. An engine instantiates it for its newDatabase.
class Conformance : public testing::TestWithParam<NewDatabase> {
 protected:
  Connect connect = GetParam().make();
  std::unique_ptr<DatabaseReference> first = connect();
  DatabaseReference& desk = *first;
};

using test::cellOf;
using test::errorOf;
using Fields = std::vector<std::pair<std::string, std::string>>;

inline RecordsetHandle open(DatabaseReference& database, const std::string& sql,
                            LockMode lock = LockMode::updatable,
                            CursorMode cursor = CursorMode::keyset) {
  return database.openRecordset(sql, cursor, lock, -1, "", -1, false);
}

inline bool find(DatabaseReference& database, RecordsetHandle rows, const std::string& column,
                 const std::string& value) {
  return database.findRecord(rows, column, value, "", "", "", "");
}

inline void update(DatabaseReference& database, RecordsetHandle rows, const std::string& column,
                   const std::string& value) {
  database.updateFieldValue(rows, column, value, false, false);
}

/// Adds a row as all logic does; gives its key, read while the row is being added.
inline Id add(DatabaseReference& database, const std::string& table, const std::string& key,
              const Fields& fields) {
  const RecordsetHandle rows = open(database, "SELECT " + table + ".* FROM " + table + ";");
  database.addNewRecord(rows);
  for (const auto& [column, value] : fields) database.setFieldValue(rows, column, value);
  const Id result = toInteger(database.getFieldValue(rows, key));
  database.saveNewRecord(rows);
  database.closeRecordset(rows);
  return result;
}

inline Id addNotification(DatabaseReference& database, const Fields& fields) {
  return add(database, "ClientNotification", "ClientNotificationID", fields);
}

inline std::string notification(Id id) {
  return "SELECT ClientNotification.* FROM ClientNotification WHERE ClientNotificationID=" +
         std::to_string(id) + ";";
}

/// The column of all rows of the statement.
inline std::vector<Value> column(DatabaseReference& database, const std::string& sql,
                                 const std::string& name) {
  const RecordsetHandle rows = open(database, sql, LockMode::readOnly, CursorMode::forwardOnly);
  std::vector<Value> values;
  for (; !database.isEndOfRecordset(rows); database.moveNext(rows))
    values.push_back(database.getFieldValue(rows, name));
  database.closeRecordset(rows);
  return values;
}

inline Value field(DatabaseReference& database, Id id, const std::string& name) {
  return column(database, notification(id), name).at(0);
}

inline std::vector<std::vector<std::string>> rowsOf(const std::string& table, std::size_t cells) {
  return test::rowsOf("../database/conformance_tables.txt", table, cells);
}

inline std::vector<Value> values(std::initializer_list<Value> list) {
  return list;
}

}  // namespace autonotify::host::conformance
