#pragma once

#include <map>
#include <string>
#include <string_view>

#include "contract/DatabaseReference.h"

/// The smallest database that answers: every statement finds the same row. A real host puts its own
/// engine behind this interface.
class OneRowDatabase : public autonotify::DatabaseReference {
 public:
  using Handle = autonotify::RecordsetHandle;
  using Text = const std::string&;

  std::map<std::string, autonotify::Value> row;

  bool isDatabaseOpen() override { return true; }
  Handle openRecordset(Text, autonotify::CursorMode, autonotify::LockMode, int, Text, int,
                       bool) override {
    return ++lastHandle_;
  }
  void closeRecordset(Handle) override {}
  int getRecordCount(Handle) override { return 1; }
  bool isRecordsetEmpty(Handle) override { return false; }
  bool isRecordsetOpen(Handle) override { return false; }
  autonotify::HostObject* getRecordsetObject(Handle) override { return nullptr; }
  void readColumnIntoArray(Handle, std::vector<autonotify::Value>& array, Text name) override {
    array.push_back(row[name]);
  }
  bool isEndOfRecordset(Handle) override { return false; }
  autonotify::Bookmark getBookmark(Handle) override { return 0; }
  bool gotoBookmark(Handle, autonotify::Bookmark) override { return true; }
  bool hasRecords(Handle) override { return true; }
  bool moveNext(Handle) override { return false; }
  autonotify::Value getFieldValue(Handle, std::string_view name) override {
    return row[std::string(name)];
  }
  bool updateFieldValue(Handle, Text name, Text value, bool, bool) override {
    row[name] = value;
    return true;
  }
  bool deleteRecord(Handle) override { return false; }
  bool addNewRecord(Handle) override { return false; }
  bool setFieldValue(Handle, Text, Text) override { return false; }
  bool saveNewRecord(Handle) override { return false; }
  bool findRecord(Handle, Text, Text, Text, Text, Text, Text) override { return true; }
  bool findNextRecord(Handle) override { return false; }
  std::string formatDateForSQL(autonotify::DateTime) override { return {}; }
  std::string formatTextForSQL(Text text) override { return text; }

 private:
  Handle lastHandle_ = 0;
};
