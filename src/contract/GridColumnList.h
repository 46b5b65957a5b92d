#pragma once

#include <span>
#include <string>

#include "platform/HostObject.h"
#include "platform/Value.h"

namespace autonotify {

/// An ordered table of entries, each with a key and numbered items from 1, and a current entry.
///
/// Reading or writing an item with no current entry throws PlatformError (9).
class GridColumnList : public HostObject {
 public:
  static constexpr const char* className = "GridColumnList";
  static constexpr int maxItems = 24;

  virtual void clearEntries() = 0;
  /// Appends an entry; items beyond the ones given stay unset. At most maxItems.
  virtual void addEntry(const Value& key, std::span<const Value> items) = 0;
  virtual int getEntryCount() = 0;
  /// Goes to the first entry; False when there is none.
  virtual bool moveFirst() = 0;
  virtual void moveNext() = 0;
  /// True when the list is past its last entry.
  virtual bool isAtEnd() = 0;
  /// Makes the entry with this key the current one; False, with the current entry kept, when there
  /// is none.
  virtual bool selectEntry(const Value& key) = 0;
  /// Makes current the first entry whose item equals the value and gives its position from 0; below
  /// 0 means not found. Texts are compared exactly.
  virtual int findEntry(int item, const Value& value) = 0;
  /// Null for an item that is unset.
  virtual Value getItem(int item) = 0;
  virtual void setItem(int item, const Value& value) = 0;
  virtual Value getEntryKey() = 0;
  /// The whole list as one text, and back.
  virtual std::string toText() = 0;
  /// False, with the list empty, for a text that is no such text as a whole.
  virtual bool fromText(const std::string& text) = 0;
};

}  // namespace autonotify
