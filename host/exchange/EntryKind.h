#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace autonotify::host {

/// What a cell is read as.
enum class CellType {
  /// Free text, with the blanks and line ends around it.
  text,
  /// A text without any around it: a number of a client, an email address.
  word,
  date,
  integer,
  decimal,
  flag,
  /// It names another entry, or says something that several columns hold: the book of its kind
  /// knows what.
  reference,
};

/// A column of the files of one kind.
struct EntryColumn {
  /// As export writes it.
  std::string_view heading;
  /// What else people call it, folded (see foldHeading), with blanks between.
  std::string_view spellings;
  /// Where it is stored: a column of the kind's table or "Table.Column"; empty for a reference.
  std::string_view place;
  CellType type = CellType::text;
  /// No entry goes without it.
  bool isRequired = false;
};

/// A kind of entries that a firm brings along: its clients, its staff, their work.
struct EntryKind {
  /// "companies"
  std::string_view name;
  std::string_view table;
  std::span<const EntryColumn> columns;
};

/// In the order in which files are read: each kind may name entries of those before it.
std::span<const EntryKind> entryKinds();
/// By its name in any case; nullptr for none.
const EntryKind* findEntryKind(std::string_view name);

/// Letters and digits alone, small: "E-mail Address" becomes "emailaddress", "Client #"
/// "clientnumber".
std::string foldHeading(std::string_view heading);
/// The column of each heading, by its own name or else by a spelling of one that is not taken yet;
/// nullptr for none.
std::vector<const EntryColumn*> findEntryColumns(const EntryKind& kind,
                                                 std::span<const std::string> headings);

}  // namespace autonotify::host
