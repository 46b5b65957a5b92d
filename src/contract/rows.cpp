#include "contract/rows.h"

namespace autonotify {

Value Row::value(std::string_view column) const {
  return step_->value(Value(), [&] { return database().getFieldValue(handle_, column); });
}

std::string Row::text(std::string_view column) const {
  const Value held = value(column);
  const auto asText = [&] { return toText(generalUtilities().textOrDefault(held, false)); };
  return step_->value(std::string{}, asText);
}

Id Row::id(std::string_view column, Id fallback) const {
  return idOf(*step_, value(column), fallback);
}

bool Row::flag(std::string_view column) const {
  const Value held = value(column);
  return !isEmpty(*step_, held) && step_->holds(toFlag, held);
}

NewRow::NewRow(Step& step, const std::string& table) : step_(step) {
  step_.assign(handle_, [&] {
    return openRecordset("SELECT " + table + ".* FROM " + table + ";", keysetUpdate);
  });
  step_.run([&] { database().addNewRecord(handle_); });
}

void NewRow::save(Id& key, const char* keyColumn) {
  readKey(key, keyColumn);
  store();
  close();
}

void NewRow::saveAndReadBack(Id& key, const char* keyColumn) {
  store();
  readKey(key, keyColumn);
  close();
}

void NewRow::readKey(Id& key, const char* keyColumn) {
  step_.assign(key, [&] { return toInteger(database().getFieldValue(handle_, keyColumn)); });
}

void NewRow::store() {
  step_.run([&] { database().saveNewRecord(handle_); });
}

void NewRow::close() {
  step_.run([&] { database().closeRecordset(handle_); });
}

}  // namespace autonotify
