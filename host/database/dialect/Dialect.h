#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "host/database/schema/Schema.h"
#include "platform/Value.h"

namespace autonotify::host {

// The dialect in which statements come: one plain SELECT with date literals between # marks, the
// flags True and False in any case, text between single quotes (two inside stand for one), joins
// nested with parentheses, and a ";" at the end, which may be left out. IsDate(column) tells
// whether a column of dates holds one that can be read and compared; of NULL it tells nothing.
//
// Refused, with DatabaseError (statementRefused): anything but a SELECT, a second statement,
// comments, SELECT ... INTO and FOR, functions other than the few that only compute, quotes, #
// marks and parentheses that are not closed, and a date literal that holds no date.

/// A statement in an engine's own words.
struct Translation {
  /// Placeholders (? or $1, $2 ...) stand for text, dates, and whole numbers in conditions, so that
  /// statements that differ in ids alone become the same text.
  std::string sql;
  /// One for each placeholder: text, date-times and integers.
  std::vector<Value> parameters;

  /// Where in `sql` the FROM clause begins, with that word, and ends; npos without one.
  std::size_t from = std::string::npos;
  std::size_t fromEnd = std::string::npos;
  /// Where in `sql` the ORDER BY clause ends or, without one, where it would stand.
  std::size_t orderEnd = std::string::npos;
  bool isOrdered = false;
  /// True when each row of the result is of at most one row of each table of the FROM clause, which
  /// holds no placeholder: no groups, no unions, no aggregates.
  bool rowsHaveKeys = true;
  /// True when each row of the result is one row of each table of the FROM clause: no groups, no
  /// unions, no aggregates, inner joins alone, no placeholder before the end of the FROM clause.
  bool rowsAreTableRows = true;
  /// A SELECT within the SELECT reads rows of other tables too.
  bool hasSubquery = false;
  /// True when each literal, numbers included, became a parameter as it stands (see splitLiterals):
  /// no number kept its place, and none took a sign.
  bool literalsAreParameters = true;
};

Translation translate(std::string_view sql, Engine engine);

/// Terms of an ORDER BY clause: by these key columns, ascending. `isWhole`: all rows of one table
/// are asked for. Otherwise the condition alone shall say which rows are read, and an engine that
/// might walk through a whole table in the order of its keys is kept from it.
std::string keyOrder(Engine engine, const std::vector<std::string>& keys, bool isWhole);

/// How the engine writes the place of the parameter with this number, from 1.
std::string placeholder(Engine engine, std::size_t number);

struct TableReference {
  std::string table;
  /// The name by which the statement calls it: its alias, or its own name.
  std::string alias;
};

/// The tables of a FROM clause (see Translation::rowsAreTableRows), from left to right.
std::vector<TableReference> tablesOf(std::string_view fromClause);

}  // namespace autonotify::host
