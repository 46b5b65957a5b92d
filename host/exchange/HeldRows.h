#pragma once

#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "contract/DatabaseReference.h"
#include "host/database/RowSink.h"

namespace autonotify::host {

/// What rows of the database hold, read in blocks of neighbouring keys: a file that names the rows
/// one after the other does not ask the server for each of them.
class HeldRows {
 public:
  explicit HeldRows(DatabaseReference& database) : database_(database) {}

  /// The value of a column, which lasts until the next call; nullptr when there is no such row.
  /// Throws what the database throws.
  const Value* find(const std::string& table, Id key, std::string_view column);
  /// The row is asked for no more.
  void release(const std::string& table, Id key);
  /// The row now has these values.
  void changed(std::string_view table, Id key, std::span<const Field> fields);
  /// Rows were added: all are read anew when they are asked for.
  void clear() { tables_.clear(); }

 private:
  static constexpr Id blockSize = 256;  // comes from a server in one exchange
  struct Table {
    /// Those that were asked for.
    std::vector<std::string> columns;
    std::set<Id> blocks;
    std::unordered_map<Id, std::vector<Value>> rows;

    std::size_t placeOf(std::string_view column) const;
  };

  void readBlock(const std::string& name, Table& table, Id block);

  DatabaseReference& database_;
  std::unordered_map<std::string, Table> tables_;
};

/// A sink that keeps what is held of the rows up to date.
class HeldRowsSink : public RowSink {
 public:
  /// Both must outlive it.
  HeldRowsSink(RowSink& sink, HeldRows& rows) : sink_(sink), rows_(rows) {}

  void begin() override { sink_.begin(); }
  void commit() override { sink_.commit(); }
  Id insertRow(std::string_view table, std::span<const Field> fields) override {
    return sink_.insertRow(table, fields);
  }
  void updateRow(std::string_view table, Id key, std::span<const Field> fields) override {
    sink_.updateRow(table, key, fields);
    rows_.changed(table, key, fields);
  }
  void flush() override {
    sink_.flush();
    rows_.clear();
  }

 private:
  RowSink& sink_;
  HeldRows& rows_;
};

}  // namespace autonotify::host
