#pragma once

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "control/contract/references.h"
#include "host/services/ClassRegistry.h"
#include "host/services/HostGeneralUtilities.h"
#include "host/services/HostLocale.h"
#include "host/services/HostValidationUtilities.h"
#include "merge/clsInsertFieldsInRTB.h"
#include "support/scripted_error_class.h"

namespace autonotify::test {

/// A database of statements: each answers with the rows told for it, or with none. Notes every
/// statement that is opened, as "cursor,lock sql".
class StatementDatabase : public DatabaseReference {
 public:
  using Row = std::map<std::string, Value>;

  bool isOpen = true;
  std::map<std::string, std::vector<Row>> rows;
  std::vector<std::string> opened;
  int failingOpens = 0;

  bool isDatabaseOpen() override { return isOpen; }
  RecordsetHandle openRecordset(const std::string& sql, CursorMode cursor, LockMode lock, int,
                                const std::string&, int, bool) override {
    if (failingOpens > 0 && failingOpens-- > 0)
      throw PlatformError(3000, "Cannot open", "database");
    opened.push_back(std::to_string(static_cast<int>(cursor)) + "," +
                     std::to_string(static_cast<int>(lock)) + " " + sql);
    open_.push_back({rows[sql], 0});
    return static_cast<RecordsetHandle>(open_.size());
  }
  void closeRecordset(RecordsetHandle) override { ++closed; }
  int getRecordCount(RecordsetHandle h) override { return static_cast<int>(at(h).rows.size()); }
  bool isRecordsetEmpty(RecordsetHandle h) override { return at(h).rows.empty(); }
  bool isRecordsetOpen(RecordsetHandle) override { return false; }
  HostObject* getRecordsetObject(RecordsetHandle) override { return nullptr; }
  void readColumnIntoArray(RecordsetHandle, std::vector<Value>&, const std::string&) override {}
  bool isEndOfRecordset(RecordsetHandle h) override { return at(h).row >= at(h).rows.size(); }
  Bookmark getBookmark(RecordsetHandle) override { return 0; }
  bool gotoBookmark(RecordsetHandle, Bookmark) override { return false; }
  bool hasRecords(RecordsetHandle h) override { return !at(h).rows.empty(); }
  bool moveNext(RecordsetHandle h) override { return ++at(h).row < at(h).rows.size(); }
  Value getFieldValue(RecordsetHandle h, const std::string& field) override {
    return at(h).rows.at(at(h).row).at(field);
  }
  bool updateFieldValue(RecordsetHandle, const std::string&, const std::string&, bool,
                        bool) override {
    ADD_FAILURE() << "a merge writes nothing";
    return false;
  }
  bool deleteRecord(RecordsetHandle) override { return false; }
  bool addNewRecord(RecordsetHandle) override { return false; }
  bool setFieldValue(RecordsetHandle, const std::string&, const std::string&) override {
    return false;
  }
  bool saveNewRecord(RecordsetHandle) override { return false; }
  bool findRecord(RecordsetHandle, const std::string&, const std::string&, const std::string&,
                  const std::string&, const std::string&, const std::string&) override {
    return false;
  }
  bool findNextRecord(RecordsetHandle) override { return false; }
  std::string formatDateForSQL(DateTime) override { return {}; }
  std::string formatTextForSQL(const std::string& text) override { return text; }

  int closed = 0;

 private:
  struct Recordset {
    std::vector<Row> rows;
    std::size_t row;
  };
  Recordset& at(RecordsetHandle handle) { return open_.at(static_cast<std::size_t>(handle) - 1); }
  std::vector<Recordset> open_;
};

class SettableClock : public Clock {
 public:
  DateTime moment = DateTime::of(2026, 4, 30, 14, 5);
  DateTime now() override { return moment; }
};

/// A merge object with the host that its catalogue and its conversions ask.
class FieldsHost : public testing::Test {
 protected:
  FieldsHost() {
    references().platform = {&registry_, &clock, nullptr};
    references().databaseReference = &database;
    references().errors = &errors;
    references().localeReference = &locale;
    references().generalUtilities = std::make_unique<host::HostGeneralUtilities>();
    references().validationUtilities = std::make_unique<host::HostValidationUtilities>();
    merge = std::make_unique<clsInsertFieldsInRTB>();
  }
  ~FieldsHost() override {
    merge.reset();
    EXPECT_EQ(errors.entered(), errors.left());
    EXPECT_EQ(errors.answersLeft(), 0U);
    references() = References{};
  }

  void live(int country, int province) {
    locale.settings().country = static_cast<countryCode>(country);
    locale.settings().province = static_cast<provinceCode>(province);
  }

  /// Builds the list and gives its display names in order.
  std::vector<std::string> build(int listType, int use = 1) {
    merge->ListType = listType;
    merge->put_MergeFieldListUse(use);
    bool noListBox = false;
    bool clearListBox = true;
    merge->createDefaultFieldListStructure(noListBox, clearListBox);
    return column(displayNameColumn);
  }

  std::vector<std::string> column(int item) {
    std::vector<std::string> texts;
    GridColumnList& list = *merge->get_FieldList();
    for (list.moveFirst(); !list.isAtEnd(); list.moveNext()) {
      const Value value = list.getItem(item);
      texts.push_back(value.isNull() ? "" : toText(value));
    }
    return texts;
  }

  static constexpr int databaseFieldColumn = 1;
  static constexpr int displayNameColumn = 2;
  static constexpr int groupColumn = 3;
  static constexpr int typeColumn = 4;
  static constexpr int sampleColumn = 5;

  StatementDatabase database;
  ScriptedErrorClass errors;
  SettableClock clock;
  host::HostLocale locale{host::LocaleSettings{}};
  std::unique_ptr<clsInsertFieldsInRTB> merge;

 private:
  host::ClassRegistry registry_;
};

}  // namespace autonotify::test
