#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace autonotify::host {

/// "hvNo": marks a database file as one of this application (SQLite: PRAGMA application_id).
constexpr int applicationId = 0x68764E6F;
/// "hvNu": the same of one that was never filled to its end.
constexpr int unfinishedApplicationId = 0x68764E75;
/// Rises with every change of the tables (SQLite: PRAGMA user_version).
constexpr int schemaVersion = 1;

// Why a database cannot be opened, with the words for where it is at the beginning.
std::string newerSchemaText(const std::string& place, int version);
std::string unfinishedText(const std::string& place);

/// What a column holds, independent of the engine.
enum class ColumnKind {
  Key,           ///< generated 32-bit key; a given value is taken as it is; never used twice
  Integer,       ///< 32-bit
  SmallInteger,  ///< 16-bit
  Flag,          ///< never null
  Text,          ///< a line of text
  Memo,          ///< text of any length
  DateTime,      ///< a time of day alone stands on the zero date, 1899-12-30
  Double,
  Currency,
};
constexpr std::size_t columnKindCount = 9;

struct ColumnDef {
  std::string name;
  ColumnKind kind;
  /// The value of a row that names none: a number, "0" or "1" for a flag, empty for NULL.
  std::string defaultValue;
};

struct TableDef {
  std::string name;
  /// The first column is the table's key.
  std::vector<ColumnDef> columns;
  /// Each a list of columns, in order.
  std::vector<std::vector<std::string>> indexes;

  const std::string& key() const { return columns.front().name; }
};

/// Every table of a firm's database, in order of creation. There are no foreign keys: a link of -1
/// means none, and a row may outlive the row that it names.
const std::vector<TableDef>& schemaTables();

/// The names match in any case (ASCII). nullptr when there is no such table or column.
/// Both answer in constant time without allocation; the results live as long as the program.
const TableDef* findTable(std::string_view table);
const ColumnDef* findColumn(std::string_view table, std::string_view column);

enum class Engine { sqlite, postgres };

/// CREATE TABLE and CREATE INDEX statements, in the order to run them, for an empty database.
///
/// SQLite stores a flag as 0 or 1, and a date-time as text, "YYYY-MM-DD" at midnight and
/// "YYYY-MM-DD HH:MM:SS" otherwise, so that it sorts and compares as moments do. The tables are
/// STRICT. PostgreSQL has types of its own for all of them; its names are unquoted and so folded,
/// and its texts compare by their code points, as SQLite's do.
std::vector<std::string> schemaStatements(Engine engine);

}  // namespace autonotify::host
