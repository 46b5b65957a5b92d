#include "host/database/RecordsetDatabase.h"

#include <algorithm>
#include <limits>

#include "host/database/dialect/DatabaseError.h"
#include "host/words/Words.h"
#include "platform/date_time_text.h"
#include "platform/text.h"

namespace autonotify::host {

RecordsetDatabase::RecordsetDatabase(std::unique_ptr<Driver> driver)
    : driver_(std::move(driver)), session_(*driver_) {
  freePlaces_.reserve(mostFreePlaces);  // closing needs no memory
}

RecordsetDatabase::~RecordsetDatabase() {
  RecordsetDatabase::close();
}

void RecordsetDatabase::close() {
  recordsets_.clear();
  freePlaces_.clear();
  session_.clear();
  driver_.reset();
}

Driver& RecordsetDatabase::driver() {
  if (!driver_) throw DatabaseError(database_error::closed, Words::tr("The database is closed"));
  return *driver_;
}

std::vector<RecordsetDatabase::Open>::iterator RecordsetDatabase::placeOf(RecordsetHandle handle) {
  if (!recordsets_.empty() && recordsets_.back().handle == handle) return recordsets_.end() - 1;
  const auto place = std::ranges::lower_bound(recordsets_, handle, {}, &Open::handle);
  return place != recordsets_.end() && place->handle == handle ? place : recordsets_.end();
}

Recordset& RecordsetDatabase::earlierRecordset(RecordsetHandle handle) {
  const auto found = placeOf(handle);
  if (found != recordsets_.end()) return **found->recordset;
  driver();
  throw DatabaseError(database_error::badHandle,
                      "No recordset is open under handle " + std::to_string(handle));
}

void RecordsetDatabase::writeTogether(const std::function<void()>& write) {
  driver();
  session_.writeTogether(write);
}

bool RecordsetDatabase::isDatabaseOpen() {
  if (gate_) gate_();
  return driver_ != nullptr;
}

RecordsetHandle RecordsetDatabase::openRecordset(const std::string& sql, CursorMode cursor,
                                                 LockMode lock, int, const std::string&, int,
                                                 bool) {
  driver();
  Place place;
  if (freePlaces_.empty()) {
    place = std::make_unique<std::optional<Recordset>>();
  } else {
    place = std::move(freePlaces_.back());
    freePlaces_.pop_back();
  }
  place->emplace(session_, sql, cursor, lock);
  recordsets_.push_back({lastHandle_ + 1, std::move(place)});
  return ++lastHandle_;
}

void RecordsetDatabase::closeRecordset(RecordsetHandle handle) {
  recordset(handle);
  const auto closed = placeOf(handle);
  closed->recordset->reset();
  if (freePlaces_.size() < mostFreePlaces) freePlaces_.push_back(std::move(closed->recordset));
  recordsets_.erase(closed);
  if (recordsets_.empty()) rest();
}

int RecordsetDatabase::getRecordCount(RecordsetHandle handle) {
  constexpr std::size_t most = std::numeric_limits<int>::max();
  return static_cast<int>(std::min(recordset(handle).count(), most));
}

bool RecordsetDatabase::isRecordsetEmpty(RecordsetHandle handle) {
  return !recordset(handle).hasRows();
}

bool RecordsetDatabase::isRecordsetOpen(RecordsetHandle handle) {
  return placeOf(handle) != recordsets_.end();
}

HostObject* RecordsetDatabase::getRecordsetObject(RecordsetHandle handle) {
  return &recordset(handle);
}

void RecordsetDatabase::readColumnIntoArray(RecordsetHandle handle, std::vector<Value>& array,
                                            const std::string& fieldName) {
  recordset(handle).appendColumn(fieldName, array);
}

bool RecordsetDatabase::isEndOfRecordset(RecordsetHandle handle) {
  return recordset(handle).isAtEnd();
}

Bookmark RecordsetDatabase::getBookmark(RecordsetHandle handle) {
  return static_cast<Bookmark>(recordset(handle).position());
}

bool RecordsetDatabase::gotoBookmark(RecordsetHandle handle, Bookmark bookmark) {
  return recordset(handle).moveTo(static_cast<std::size_t>(bookmark));
}

bool RecordsetDatabase::hasRecords(RecordsetHandle handle) {
  return recordset(handle).hasRows();
}

bool RecordsetDatabase::moveNext(RecordsetHandle handle) {
  recordset(handle).moveNext();
  return true;
}

Value RecordsetDatabase::getFieldValue(RecordsetHandle handle, std::string_view fieldName) {
  return recordset(handle).value(fieldName);
}

bool RecordsetDatabase::updateFieldValue(RecordsetHandle handle, const std::string& fieldName,
                                         const std::string& value, bool, bool) {
  Recordset& rows = recordset(handle);
  if (watch_.storing && watch_.storing(handle, rows.table().name, fieldName)) return true;
  rows.update(fieldName, value);
  if (watch_.stored) watch_.stored(handle, fieldName);
  return true;
}

bool RecordsetDatabase::deleteRecord(RecordsetHandle handle) {
  if (!watch_.deleting || !watch_.deleting(handle)) recordset(handle).remove();
  return true;
}

bool RecordsetDatabase::addNewRecord(RecordsetHandle handle) {
  Recordset& rows = recordset(handle);
  rows.beginRow();
  if (watch_.begun) watch_.begun(handle, rows.table().name, rows.newKey());
  return true;
}

bool RecordsetDatabase::setFieldValue(RecordsetHandle handle, const std::string& fieldName,
                                      const std::string& value) {
  recordset(handle).setValue(fieldName, value);
  return true;
}

bool RecordsetDatabase::saveNewRecord(RecordsetHandle handle) {
  recordset(handle).saveRow();
  return true;
}

bool RecordsetDatabase::findRecord(RecordsetHandle handle, const std::string& fieldName,
                                   const std::string& value, const std::string&, const std::string&,
                                   const std::string&, const std::string&) {
  return recordset(handle).find(fieldName, value);
}

bool RecordsetDatabase::findNextRecord(RecordsetHandle handle) {
  recordset(handle).findNext();
  return true;
}

std::string RecordsetDatabase::formatDateForSQL(DateTime moment) {
  return dateTimeText(moment);
}

std::string RecordsetDatabase::formatTextForSQL(const std::string& text) {
  return replaceAll(text, "'", "''");
}

}  // namespace autonotify::host
