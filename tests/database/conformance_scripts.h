#pragma once

#include <map>

#include "tests/database/conformance_rows.h"

namespace autonotify::host::conformance {

/// Does what a script of recordset_scripts.txt tells. Each row has the name of a recordset, an act,
/// what that is about and what it gives; a name with "their" in it is of another desk.
class RecordsetScript {
 public:
  explicit RecordsetScript(const Connect& connect) : desk_(connect()), other_(connect()) {}

  /// `opening` is the act that stands for "read either way".
  void run(const std::string& title, const std::string& opening) {
    for (const auto& row : rowsOf(title, 4)) {
      SCOPED_TRACE(title + ": " + row[0] + ", " + row[1] + " " + row[2]);
      EXPECT_EQ(outcome(row[0], row[1] == "read either way" ? opening : row[1], row[2]), row[3]);
    }
  }
  static std::vector<std::vector<std::string>> rowsOf(const std::string& table, std::size_t cells) {
    return test::rowsOf("../database/recordset_scripts.txt", table, cells);
  }

 private:
  struct Recordset {
    RecordsetHandle handle = noRecordset;
    Bookmark mark = 0;
  };

  std::string outcome(const std::string& name, const std::string& act, const std::string& told) {
    static const std::map<int, std::string> faults = {
        {error_number::typeMismatch, "type mismatch"},
        {error_number::overflow, "overflow"},
        {database_error::noCurrentRow, "no current row"},
        {database_error::rowGone, "row gone"},
        {database_error::unknownColumn, "unknown column"},
        {database_error::notUpdatable, "not updatable"},
        {database_error::invalidText, "invalid text"}};
    DatabaseReference& desk = name.find("their") == name.npos ? *desk_ : *other_;
    try {
      return perform(desk, recordsets_[name], act, told);
    } catch (const PlatformError& error) {
      const auto fault = faults.find(error.number());
      return fault == faults.end() ? error.description() : fault->second;
    }
  }

  std::string perform(DatabaseReference& desk, Recordset& rows, const std::string& act,
                      const std::string& told) {
    const std::size_t equals = told.find('=');
    const std::string name = told.substr(0, equals), value = told.substr(equals + 1);
    const RecordsetHandle handle = rows.handle;
    const std::map<std::string, std::function<void()>> done = {
        {"add", [&] { addNamed(desk, test::split(told)); }},
        {"open", [&] { rows.handle = open(desk, told); }},
        {"read", [&] { rows.handle = open(desk, told, LockMode::readOnly); }},
        {"stream",
         [&] { rows.handle = open(desk, told, LockMode::readOnly, CursorMode::forwardOnly); }},
        {"next", [&] { desk.moveNext(handle); }},
        {"find next", [&] { desk.findNextRecord(handle); }},
        {"mark", [&] { rows.mark = desk.getBookmark(handle); }},
        {"update", [&] { update(desk, handle, name, value); }},
        {"delete", [&] { desk.deleteRecord(handle); }},
        {"new", [&] { desk.addNewRecord(handle); }},
        {"set", [&] { desk.setFieldValue(handle, name, value); }},
        {"save", [&] { desk.saveNewRecord(handle); }},
        {"close", [&] { desk.closeRecordset(handle); }}};
    const std::map<std::string, std::function<Value()>> answers = {
        {"has rows", [&] { return desk.hasRecords(handle); }},
        {"is empty", [&] { return desk.isRecordsetEmpty(handle); }},
        {"at end", [&] { return desk.isEndOfRecordset(handle); }},
        {"count", [&] { return desk.getRecordCount(handle); }},
        {"value", [&] { return desk.getFieldValue(handle, told); }},
        {"find", [&] { return find(desk, handle, name, value); }},
        {"go to", [&] { return desk.gotoBookmark(handle, std::stoll(told)); }},
        {"go to mark", [&] { return desk.gotoBookmark(handle, rows.mark); }}};
    if (act == "gather")
      return desk.readColumnIntoArray(handle, gathered_, told), cellOf(gathered_);
    if (const auto found = done.find(act); found != done.end()) return found->second(), "";
    return cellOf({answers.at(act)()});
  }

  std::unique_ptr<DatabaseReference> desk_, other_;
  std::map<std::string, Recordset> recordsets_;
  std::vector<Value> gathered_;
};

TEST_P(Conformance, RecordsetsGiveWhatTheScriptsTell) {
  for (const auto& script : RecordsetScript::rowsOf("scripts", 2))
    RecordsetScript(GetParam().make()).run(script[0], script[1]);
}

}  // namespace autonotify::host::conformance
