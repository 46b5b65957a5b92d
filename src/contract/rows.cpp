#include "contract/rows.h"

namespace autonotify {

NewRow::NewRow(Step& step, const std::string& table) : step_(step) {
  step_.assign(handle_, [&] {
    return openRecordset("SELECT " + table + ".* FROM " + table + ";", CursorMode::keyset,
                         LockMode::updatable);
  });
  step_.run([&] { database().addNewRecord(handle_); });
}

void NewRow::save(Id& key, const char* keyColumn) {
  step_.assign(key, [&] { return toInteger(database().getFieldValue(handle_, keyColumn)); });
  step_.run([&] { database().saveNewRecord(handle_); });
  step_.run([&] { database().closeRecordset(handle_); });
}

}  // namespace autonotify
