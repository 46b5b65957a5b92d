#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "control/contract/references.h"
#include "merge/clsInsertFieldsInRTB.h"
#include "support/TestHost.h"

namespace autonotify::test {

using Fields = std::initializer_list<std::pair<const char*, const char*>>;

/// Adds a row to a host's table and gives its key.
inline Id addRowTo(TestHost& host, const std::string& table, const char* keyColumn, Fields fields) {
  DatabaseReference& database = *host.plainDatabase;
  const RecordsetHandle handle =
      database.openRecordset("SELECT " + table + ".* FROM " + table + ";", CursorMode::keyset,
                             LockMode::updatable, -1, "", -1, false);
  database.addNewRecord(handle);
  for (const auto& [column, value] : fields) database.setFieldValue(handle, column, value);
  const Id key = toInteger(database.getFieldValue(handle, keyColumn));
  database.saveNewRecord(handle);
  database.closeRecordset(handle);
  return key;
}

class CountingFormHost : public FormHost {
 public:
  std::vector<Form*> openForms() override { return {}; }
  void pumpMessages() override {
    ++pumps;
    if (auto message = std::exchange(nextMessage, nullptr)) message();
  }
  int pumps = 0;
  /// Handled by the next pump, once.
  std::function<void()> nextMessage;
};

/// A merge object on a host with an empty database.
class MergeHost : public testing::Test {
 protected:
  MergeHost() {
    host.attach();
    references().platform.formHost = &forms;
    merge = std::make_unique<clsInsertFieldsInRTB>();
  }
  ~MergeHost() override {
    merge.reset();
    EXPECT_EQ(host.errors.entered(), host.errors.left());
    EXPECT_EQ(host.errors.answersLeft(), 0U);
  }

  Id addRow(const std::string& table, const char* keyColumn, Fields fields) {
    return addRowTo(host, table, keyColumn, fields);
  }

  /// Builds the list for a family of fields without opening any recordset.
  void listFields(int listType) {
    merge->ListType = listType;
    bool noListBox = false;
    bool clearListBox = false;
    merge->createDefaultFieldListStructure(noListBox, clearListBox);
  }

  struct Field {
    const char* displayName;
    const char* sample;
    int type = 1;
  };
  /// Replaces the list by fields that have nothing but a sample, which each merge then prints.
  void listSamples(const std::vector<Field>& fields) {
    GridColumnList& list = *merge->get_FieldList();
    list.clearEntries();
    int row = 0;
    for (const Field& field : fields) {
      const Value items[] = {"Column", field.displayName, "None", field.type, field.sample};
      list.addEntry(++row, items);
    }
    merge->TestComment = true;
  }

  /// The value that a template of this one field prints.
  std::string valueOf(const std::string& displayName, const std::string& format = {}) {
    GridColumnList& list = *merge->get_FieldList();
    if (list.findEntry(2, displayName) < 0) {
      ADD_FAILURE() << "no field " << displayName;
      return {};
    }
    return merge->getDataFieldInfo(toInteger(list.getEntryKey()), format);
  }

  std::string merged(const std::string& text) {
    merge->TemplateText = text;
    return merge->parseRTBComment();
  }

  /// The calls of one operation that went through the door since the record was begun.
  std::vector<std::string> callsOf(const std::string& operation) {
    std::vector<std::string> calls;
    for (const std::string& call : host.calls.log())
      if (call.starts_with(operation + " ")) calls.push_back(call.substr(operation.size() + 1));
    return calls;
  }
  void beginRecord() {
    host.calls.reset();
    host.calls.record(true);
  }

  TestHost host;
  CountingFormHost forms;
  std::unique_ptr<clsInsertFieldsInRTB> merge;
};

}  // namespace autonotify::test
