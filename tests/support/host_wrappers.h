#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <tuple>
#include <type_traits>

#include "contract/ProgressDialog.h"
#include "contract/RichTextUtility.h"
#include "contract/ScheduleTreeService.h"
#include "contract/references.h"
#include "support/host_calls.h"

namespace autonotify::test {

/// Passes calls of an interface through the door to the object inside. The record tells their
/// arguments, but of a database the texts alone: its handles come as they come.
template <class Interface>
class Counted : public Interface {
 public:
  Counted(Interface& inner, HostCalls& calls) : inner_(&inner), calls_(calls) {}
  Counted(std::unique_ptr<Interface> inner, HostCalls& calls)
      : own_(std::move(inner)), inner_(own_.get()), calls_(calls) {}

 protected:
  using Base = Interface;
  template <class Result, class... Parameters, class... Arguments>
  Result pass(const char* operation, Result (Interface::*method)(Parameters...),
              Arguments&... arguments) {
    calls_.pass(operation, [&] {
      std::string told;
      (tell(told, arguments), ...);
      return told;
    });
    return (inner_->*method)(arguments...);
  }
  HostCalls& calls() { return calls_; }
  Interface& inner() { return *inner_; }

 private:
  template <class Argument>
  static void tell(std::string& told, const Argument& argument) {
    constexpr bool isNumber =
        std::is_arithmetic_v<Argument> && !std::is_same_v<Interface, DatabaseReference>;
    constexpr bool isText =
        std::is_same_v<Argument, std::string> || std::is_same_v<Argument, std::string_view>;
    if constexpr (isText)
      told.append(told.empty() ? "" : "=").append(argument);
    else if constexpr (isNumber || std::is_same_v<Argument, DateTime>)
      told += (told.empty() ? "" : "=") + toText(argument);
  }

  std::unique_ptr<Interface> own_;
  Interface* inner_;
  HostCalls& calls_;
};

// COUNTED(result, operation, (parameters), arguments): one operation that passes the door.
#define COUNTED(Result, operation, parameters, ...)                             \
  Result operation parameters override {                                        \
    return this->pass(#operation, &Base::operation __VA_OPT__(, ) __VA_ARGS__); \
  }

/// Reserved arguments that are not the fixed ones fail the test.
struct CountedDatabase : Counted<DatabaseReference> {
  using Handle = RecordsetHandle;
  using Text = const std::string&;
  using Counted::Counted;
  COUNTED(void, closeRecordset, (Handle h), h)
  COUNTED(int, getRecordCount, (Handle h), h)
  COUNTED(bool, isRecordsetEmpty, (Handle h), h)
  COUNTED(HostObject*, getRecordsetObject, (Handle h), h)
  COUNTED(void, readColumnIntoArray, (Handle h, std::vector<Value>& all, Text column), h, all,
          column)
  COUNTED(bool, isEndOfRecordset, (Handle h), h)
  COUNTED(Bookmark, getBookmark, (Handle h), h)
  COUNTED(bool, gotoBookmark, (Handle h, Bookmark b), h, b)
  COUNTED(bool, hasRecords, (Handle h), h)
  COUNTED(bool, moveNext, (Handle h), h)
  COUNTED(Value, getFieldValue, (Handle h, std::string_view column), h, column)
  COUNTED(bool, deleteRecord, (Handle h), h)
  COUNTED(bool, addNewRecord, (Handle h), h)
  COUNTED(bool, setFieldValue, (Handle h, Text column, Text text), h, column, text)
  COUNTED(bool, saveNewRecord, (Handle h), h)
  COUNTED(bool, findNextRecord, (Handle h), h)
  COUNTED(std::string, formatDateForSQL, (DateTime moment), moment)
  COUNTED(std::string, formatTextForSQL, (Text text), text)

  /// As the component finds the database; the host's own services go on.
  bool isClosed = false;

  bool isDatabaseOpen() override {
    return !isClosed && pass("isDatabaseOpen", &Base::isDatabaseOpen);
  }
  bool isRecordsetOpen(Handle h) override { return inner().isRecordsetOpen(h); }
  Handle openRecordset(Text sql, CursorMode cursor, LockMode lock, int r1, Text r2, int r3,
                       bool r4) override {
    calls().pass("openRecordset", [&] {
      return std::to_string(static_cast<int>(cursor)) + "," +
             std::to_string(static_cast<int>(lock)) + " " + sql;
    });
    EXPECT_EQ(std::tuple(r1, r2, r3, r4), std::tuple(-1, std::string{}, -1, false)) << sql;
    return inner().openRecordset(sql, cursor, lock, r1, r2, r3, r4);
  }
  bool updateFieldValue(Handle h, Text column, Text text, bool r1, bool r2) override {
    EXPECT_FALSE(r1 || r2) << column;
    return pass("updateFieldValue", &Base::updateFieldValue, h, column, text, r1, r2);
  }
  bool findRecord(Handle h, Text column, Text text, Text r1, Text r2, Text r3, Text r4) override {
    EXPECT_EQ(r1 + r2 + r3 + r4, "") << column;
    calls().pass("findRecord", [&] { return column + "=" + text; });
    return inner().findRecord(h, column, text, r1, r2, r3, r4);
  }
};

struct CountedClients : Counted<clientDropDownCtrlReference> {
  using Counted::Counted;
  COUNTED(bool, isCompanyClient, (Id id), id)
  COUNTED(bool, isContactClient, (Id id), id)
  COUNTED(Id, getCompanyIDFromClientID, (Id id), id)
  COUNTED(Id, getClientDataIDFromCompanyID, (Id id), id)
  COUNTED(Id, getDefaultContactID, (Id id), id)
  COUNTED(std::string, getCompanyDisplayName, (Id id), id)
  COUNTED(std::string, getContactDisplayName, (Id id), id)
  COUNTED(std::string, getCompanyNameFromClientID, (Id id), id)
  COUNTED(std::string, getContactAndSpouseName, (Id id, bool a, int b), id, a, b)
  COUNTED(std::string, getCompanyInfoItem, (Id id, std::int16_t item), id, item)
  COUNTED(std::string, getContactInfoItem, (Id id, std::int16_t item), id, item)
  COUNTED(std::string, getUserNameFromID, (Id id), id)
  COUNTED(Id, getUserIDFromName, (const std::string& name), name)
  COUNTED(std::string, getCategoryName, (Id id), id)
  COUNTED(Id, getMainAddressBookCategoryID, ())
  COUNTED(void, setClientLookupBatch, (bool on), on)
  COUNTED(int, getListOrder, ())
  COUNTED(std::vector<std::string>, getClientNames, ())
  COUNTED(std::vector<std::string>, getEmployeeNames, ())
  COUNTED(ListedClient, getClientFromName, (const std::string& name), name)
  COUNTED(void, registerPanel, (int key, std::shared_ptr<HostObject> panel), key, panel)
  COUNTED(std::shared_ptr<HostObject>, getPanel, (int key), key)
};

struct CountedLocale : Counted<LocaleReference> {
  using Counted::Counted;
  COUNTED(Id, getCurrentUserID, ())
  COUNTED(std::string, getFirmCode, ())
  COUNTED(HostObject*, getActiveWindow, ())
  COUNTED(InterfaceStyler*, getInterfaceStyler, ())
  COUNTED(std::int16_t, getUserAccessLevel, ())
  COUNTED(std::string, getProductName, ())
  COUNTED(int, getCountryCode, ())
  COUNTED(int, getProvinceCode, ())
  COUNTED(std::int16_t, getCurrentYear, ())
};

struct CountedGeneralUtilities : Counted<GeneralUtilities> {
  using Texts = const std::vector<std::string>&;
  using Counted::Counted;
  COUNTED(bool, isValueEmpty, (const Value& value), value)
  COUNTED(Value, textOrDefault, (const Value& value, bool flag), value, flag)
  COUNTED(std::string, toLabelText, (const std::string& text), text)
  COUNTED(int, filterKeyPress, (int key), key)
  COUNTED(bool, isWholeNumber, (const std::string& text, int least, int most), text, least, most)
  COUNTED(void, fillComboFromList, (Texts texts, ComboBox& combo, bool clear), texts, combo, clear)
  COUNTED(void, selectComboText, (ComboBox & combo, const std::string& text, int r1, int r2), combo,
          text, r1, r2)
  void put_errorClass(errorClass* value) override { inner().put_errorClass(value); }
};

struct CountedRichTextUtility : Counted<RichTextUtility> {
  using Counted::Counted;
  COUNTED(Value, insertTextAt, (RichTextBox * box, const std::string& text, int at), box, text, at)
  COUNTED(std::string, toPlainText, (const std::string& richText), richText)
  void put_errorClass(errorClass* value) override { inner().put_errorClass(value); }
  void put_LocaleReference(LocaleReference* value) override { inner().put_LocaleReference(value); }
  COUNTED(void, release, ())
};

struct CountedFileUtility : Counted<FileUtility> {
  using Text = const std::string&;
  using Counted::Counted;
  COUNTED(bool, fileExists, (Text path), path)
  COUNTED(void, deleteFile, (Text path), path)
  COUNTED(std::string, addTrailingBackslash, (Text folder), folder)
  COUNTED(std::string, getUniqueFileName, (Text path), path)
};

struct CountedWorkingFolder : Counted<WorkingFolderReference> {
  using Counted::Counted;
  COUNTED(std::string, getWorkingFolder, ())
};

struct CountedValidation : Counted<ValidationUtilities> {
  using Counted::Counted;
  COUNTED(bool, isWeekend, (DateTime date), date)
  COUNTED(bool, isDateText, (const std::string& text), text)
  COUNTED(bool, parseDateText, (const std::string& text, DateTime& date), text, date)
  COUNTED(bool, isValidYear, (std::int16_t year), year)
  COUNTED(std::string, getDurationText, (int minutes), minutes)
  void put_errorClass(errorClass* value) override { inner().put_errorClass(value); }
};

class CountedProgress : public Counted<ProgressDialog> {
  using Base = ProgressDialog;

 public:
  using Counted::Counted;
  COUNTED(void, put_text, (const std::string& text), text)
  COUNTED(void, put_owner, (HostObject * window), window)
  COUNTED(void, put_maximum, (int maximum), maximum)
  COUNTED(int, get_value, ())
  COUNTED(void, put_value, (int value), value)
  COUNTED(void, close, ())
  void show() override {
    inner().StartProgress = StartProgress;
    pass("show", &Base::show);
  }
};

/// The tree inside has its database.
class CountedScheduleTree : public Counted<ScheduleTreeService> {
  using Base = ScheduleTreeService;

 public:
  using Counted::Counted;
  COUNTED(void, populateFirstScheduleTypes, (TreeView & tree), tree)
  void put_DatabaseReference(DatabaseReference*) override {}
};

#undef COUNTED

}  // namespace autonotify::test
