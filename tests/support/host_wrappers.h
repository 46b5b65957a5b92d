#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "contract/RichTextUtility.h"
#include "contract/references.h"
#include "support/host_calls.h"

namespace autonotify::test {

/// Forwards every call to the DatabaseReference inside, through the door. Reserved arguments that
/// are not the fixed ones fail the test.
class CountedDatabase : public DatabaseReference {
 public:
  CountedDatabase(DatabaseReference& inner, HostCalls& calls) : inner_(&inner), calls_(calls) {}
  bool isDatabaseOpen() override {
    calls_.pass("isDatabaseOpen");
    return inner_->isDatabaseOpen();
  }
  RecordsetHandle openRecordset(const std::string& sql, CursorMode cursor, LockMode lock, int r1,
                                const std::string& r2, int r3, bool r4) override {
    calls_.pass("openRecordset", [&] {
      return std::to_string(static_cast<int>(cursor)) + "," +
             std::to_string(static_cast<int>(lock)) + " " + sql;
    });
    EXPECT_EQ(std::tuple(r1, r2, r3, r4), std::tuple(-1, std::string{}, -1, false)) << sql;
    return inner_->openRecordset(sql, cursor, lock, r1, r2, r3, r4);
  }
  void closeRecordset(RecordsetHandle h) override {
    calls_.pass("closeRecordset");
    inner_->closeRecordset(h);
  }
  int getRecordCount(RecordsetHandle h) override {
    calls_.pass("getRecordCount");
    return inner_->getRecordCount(h);
  }
  bool isRecordsetEmpty(RecordsetHandle h) override {
    calls_.pass("isRecordsetEmpty");
    return inner_->isRecordsetEmpty(h);
  }
  bool isRecordsetOpen(RecordsetHandle h) override { return inner_->isRecordsetOpen(h); }
  HostObject* getRecordsetObject(RecordsetHandle h) override {
    calls_.pass("getRecordsetObject");
    return inner_->getRecordsetObject(h);
  }
  void readColumnIntoArray(RecordsetHandle h, std::vector<Value>& array,
                           const std::string& field) override {
    calls_.pass("readColumnIntoArray", [&] { return field; });
    inner_->readColumnIntoArray(h, array, field);
  }
  bool isEndOfRecordset(RecordsetHandle h) override {
    calls_.pass("isEndOfRecordset");
    return inner_->isEndOfRecordset(h);
  }
  Bookmark getBookmark(RecordsetHandle h) override {
    calls_.pass("getBookmark");
    return inner_->getBookmark(h);
  }
  bool gotoBookmark(RecordsetHandle h, Bookmark b) override {
    calls_.pass("gotoBookmark");
    return inner_->gotoBookmark(h, b);
  }
  bool hasRecords(RecordsetHandle h) override {
    calls_.pass("hasRecords");
    return inner_->hasRecords(h);
  }
  bool moveNext(RecordsetHandle h) override {
    calls_.pass("moveNext");
    return inner_->moveNext(h);
  }
  Value getFieldValue(RecordsetHandle h, const std::string& field) override {
    calls_.pass("getFieldValue", [&] { return field; });
    return inner_->getFieldValue(h, field);
  }
  bool updateFieldValue(RecordsetHandle h, const std::string& field, const std::string& value,
                        bool r1, bool r2) override {
    calls_.pass("updateFieldValue", [&] { return field + "=" + value; });
    EXPECT_FALSE(r1 || r2) << field;
    return inner_->updateFieldValue(h, field, value, r1, r2);
  }
  bool deleteRecord(RecordsetHandle h) override {
    calls_.pass("deleteRecord");
    return inner_->deleteRecord(h);
  }
  bool addNewRecord(RecordsetHandle h) override {
    calls_.pass("addNewRecord");
    return inner_->addNewRecord(h);
  }
  bool setFieldValue(RecordsetHandle h, const std::string& field,
                     const std::string& value) override {
    calls_.pass("setFieldValue", [&] { return field + "=" + value; });
    return inner_->setFieldValue(h, field, value);
  }
  bool saveNewRecord(RecordsetHandle h) override {
    calls_.pass("saveNewRecord");
    return inner_->saveNewRecord(h);
  }
  bool findRecord(RecordsetHandle h, const std::string& field, const std::string& value,
                  const std::string& r1, const std::string& r2, const std::string& r3,
                  const std::string& r4) override {
    calls_.pass("findRecord", [&] { return field + "=" + value; });
    EXPECT_EQ(r1 + r2 + r3 + r4, "") << field;
    return inner_->findRecord(h, field, value, r1, r2, r3, r4);
  }
  bool findNextRecord(RecordsetHandle h) override {
    calls_.pass("findNextRecord");
    return inner_->findNextRecord(h);
  }
  std::string formatDateForSQL(DateTime m) override {
    calls_.pass("formatDateForSQL");
    return inner_->formatDateForSQL(m);
  }
  std::string formatTextForSQL(const std::string& t) override {
    calls_.pass("formatTextForSQL");
    return inner_->formatTextForSQL(t);
  }

 private:
  DatabaseReference* inner_;
  HostCalls& calls_;
};

/// Forwards every call to the clientDropDownCtrlReference inside, through the door.
class CountedClients : public clientDropDownCtrlReference {
 public:
  CountedClients(clientDropDownCtrlReference& inner, HostCalls& calls)
      : inner_(&inner), calls_(calls) {}
  bool isCompanyClient(Id id) override {
    calls_.pass("isCompanyClient");
    return inner_->isCompanyClient(id);
  }
  bool isContactClient(Id id) override {
    calls_.pass("isContactClient");
    return inner_->isContactClient(id);
  }
  Id getCompanyIDFromClientID(Id id) override {
    calls_.pass("getCompanyIDFromClientID");
    return inner_->getCompanyIDFromClientID(id);
  }
  Id getClientDataIDFromCompanyID(Id id) override {
    calls_.pass("getClientDataIDFromCompanyID");
    return inner_->getClientDataIDFromCompanyID(id);
  }
  Id getDefaultContactID(Id id) override {
    calls_.pass("getDefaultContactID");
    return inner_->getDefaultContactID(id);
  }
  std::string getCompanyDisplayName(Id id) override {
    calls_.pass("getCompanyDisplayName");
    return inner_->getCompanyDisplayName(id);
  }
  std::string getContactDisplayName(Id id) override {
    calls_.pass("getContactDisplayName");
    return inner_->getContactDisplayName(id);
  }
  std::string getCompanyNameFromClientID(Id id) override {
    calls_.pass("getCompanyNameFromClientID");
    return inner_->getCompanyNameFromClientID(id);
  }
  std::string getContactAndSpouseName(Id id, bool a, int b) override {
    calls_.pass("getContactAndSpouseName");
    return inner_->getContactAndSpouseName(id, a, b);
  }
  std::string getCompanyInfoItem(Id id, std::int16_t item) override {
    calls_.pass("getCompanyInfoItem");
    return inner_->getCompanyInfoItem(id, item);
  }
  std::string getContactInfoItem(Id id, std::int16_t item) override {
    calls_.pass("getContactInfoItem");
    return inner_->getContactInfoItem(id, item);
  }
  std::string getUserNameFromID(Id id) override {
    calls_.pass("getUserNameFromID");
    return inner_->getUserNameFromID(id);
  }
  Id getUserIDFromName(const std::string& name) override {
    calls_.pass("getUserIDFromName");
    return inner_->getUserIDFromName(name);
  }
  std::string getCategoryName(Id id) override {
    calls_.pass("getCategoryName");
    return inner_->getCategoryName(id);
  }
  Id getMainAddressBookCategoryID() override {
    calls_.pass("getMainAddressBookCategoryID");
    return inner_->getMainAddressBookCategoryID();
  }
  void setClientLookupBatch(bool on) override {
    calls_.pass("setClientLookupBatch");
    inner_->setClientLookupBatch(on);
  }
  int getListOrder() override {
    calls_.pass("getListOrder");
    return inner_->getListOrder();
  }

 private:
  clientDropDownCtrlReference* inner_;
  HostCalls& calls_;
};

/// Forwards every call to the LocaleReference inside, through the door.
class CountedLocale : public LocaleReference {
 public:
  CountedLocale(LocaleReference& inner, HostCalls& calls) : inner_(&inner), calls_(calls) {}
  Id getCurrentUserID() override {
    calls_.pass("getCurrentUserID");
    return inner_->getCurrentUserID();
  }
  std::string getFirmCode() override {
    calls_.pass("getFirmCode");
    return inner_->getFirmCode();
  }
  HostObject* getActiveWindow() override {
    calls_.pass("getActiveWindow");
    return inner_->getActiveWindow();
  }
  InterfaceStyler* getInterfaceStyler() override {
    calls_.pass("getInterfaceStyler");
    return inner_->getInterfaceStyler();
  }
  std::int16_t getUserAccessLevel() override {
    calls_.pass("getUserAccessLevel");
    return inner_->getUserAccessLevel();
  }
  std::string getProductName() override {
    calls_.pass("getProductName");
    return inner_->getProductName();
  }
  int getCountryCode() override {
    calls_.pass("getCountryCode");
    return inner_->getCountryCode();
  }
  int getProvinceCode() override {
    calls_.pass("getProvinceCode");
    return inner_->getProvinceCode();
  }
  std::int16_t getCurrentYear() override {
    calls_.pass("getCurrentYear");
    return inner_->getCurrentYear();
  }

 private:
  LocaleReference* inner_;
  HostCalls& calls_;
};

/// Forwards every call to the GeneralUtilities inside, through the door.
class CountedGeneralUtilities : public GeneralUtilities {
 public:
  CountedGeneralUtilities(std::unique_ptr<GeneralUtilities> inner, HostCalls& calls)
      : inner_(std::move(inner)), calls_(calls) {}
  void put_errorClass(errorClass* value) override { inner_->put_errorClass(value); }
  bool isValueEmpty(const Value& value) override {
    calls_.pass("isValueEmpty");
    return inner_->isValueEmpty(value);
  }
  Value textOrDefault(const Value& value, bool flag) override {
    calls_.pass("textOrDefault");
    return inner_->textOrDefault(value, flag);
  }
  int filterKeyPress(int key) override {
    calls_.pass("filterKeyPress");
    return inner_->filterKeyPress(key);
  }
  void fillComboFromList(const std::vector<std::string>& list, ComboBox& combo,
                         bool clearFirst) override {
    calls_.pass("fillComboFromList");
    inner_->fillComboFromList(list, combo, clearFirst);
  }
  void selectComboText(ComboBox& combo, const std::string& text, int r1, int r2) override {
    calls_.pass("selectComboText", [&] { return text; });
    inner_->selectComboText(combo, text, r1, r2);
  }

 private:
  std::unique_ptr<GeneralUtilities> inner_;
  HostCalls& calls_;
};

/// Forwards every call to the RichTextUtility inside, through the door.
class CountedRichTextUtility : public RichTextUtility {
 public:
  CountedRichTextUtility(std::unique_ptr<RichTextUtility> inner, HostCalls& calls)
      : inner_(std::move(inner)), calls_(calls) {}
  void put_errorClass(errorClass* value) override { inner_->put_errorClass(value); }
  void put_LocaleReference(LocaleReference* value) override { inner_->put_LocaleReference(value); }
  Value insertTextAt(RichTextBox* box, const std::string& text, int position) override {
    calls_.pass("insertTextAt", [&] { return std::to_string(position) + " " + text; });
    return inner_->insertTextAt(box, text, position);
  }
  std::string toPlainText(const std::string& richText) override {
    calls_.pass("toPlainText");
    return inner_->toPlainText(richText);
  }
  void release() override { inner_->release(); }

 private:
  std::unique_ptr<RichTextUtility> inner_;
  HostCalls& calls_;
};

/// Forwards every call to the ValidationUtilities inside, through the door.
class CountedValidation : public ValidationUtilities {
 public:
  CountedValidation(std::unique_ptr<ValidationUtilities> inner, HostCalls& calls)
      : inner_(std::move(inner)), calls_(calls) {}
  void put_errorClass(errorClass* value) override { inner_->put_errorClass(value); }
  bool isWeekend(DateTime date) override {
    calls_.pass("isWeekend");
    return inner_->isWeekend(date);
  }
  bool isDateText(const std::string& text) override {
    calls_.pass("isDateText");
    return inner_->isDateText(text);
  }
  bool parseDateText(const std::string& text, DateTime& date) override {
    calls_.pass("parseDateText");
    return inner_->parseDateText(text, date);
  }
  bool isValidYear(std::int16_t year) override {
    calls_.pass("isValidYear");
    return inner_->isValidYear(year);
  }
  std::string getDurationText(int minutes) override {
    calls_.pass("getDurationText");
    return inner_->getDurationText(minutes);
  }

 private:
  std::unique_ptr<ValidationUtilities> inner_;
  HostCalls& calls_;
};

}  // namespace autonotify::test
