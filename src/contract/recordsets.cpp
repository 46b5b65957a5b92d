#include "contract/recordsets.h"

#include <charconv>
#include <cstddef>

namespace autonotify {

RecordsetHandle openRecordset(const std::string& sql, Access access) {
  return database().openRecordset(sql, access.cursor, access.lock, -1, std::string{}, -1, false);
}

void updateField(RecordsetHandle handle, const char* column, const std::string& value) {
  database().updateFieldValue(handle, column, value, false, false);
}

bool findRecord(RecordsetHandle handle, const char* column, const std::string& value) {
  const std::string none;
  return database().findRecord(handle, column, value, none, none, none, none);
}

std::string statementFor(std::string_view statement, Id id) {
  constexpr std::size_t longestId = 11;
  std::string whole(statement.size() + longestId + 1, ';');
  char* const number = whole.data() + statement.copy(whole.data(), statement.size());
  const char* const end = std::to_chars(number, number + longestId, id).ptr;
  whole.resize(static_cast<std::size_t>(end - whole.data()) + 1);
  return whole;
}

std::string nowText() {
  return toText(platformClock().now());
}

bool isListedCompany(Step& step, Id companyId) {
  return companyId >= 0 && step.value(false, [&] { return clients().isCompanyClient(companyId); });
}

bool isListedContact(Step& step, Id contactId) {
  return contactId >= 0 && step.value(false, [&] { return clients().isContactClient(contactId); });
}

bool isEmpty(Step& step, const Value& value) {
  return step.value(true, [&] { return generalUtilities().isValueEmpty(value); });
}

Id idOf(Step& step, const Value& value, Id fallback) {
  if (isEmpty(step, value)) return fallback;
  return step.value(fallback, toInteger, value);
}

}  // namespace autonotify
