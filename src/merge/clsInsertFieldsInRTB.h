#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>

#include "control/contract/GridColumnList.h"
#include "control/contract/recordsets.h"
#include "platform/ListBox.h"

namespace autonotify {

class RichTextBox;
class Step;

/// Turns a template into client text: knows all merge fields, finds their values in the client's
/// records and puts them in place of the tokens between « and ».
///
/// Set the properties, call initializeDataRecordsetsForSingleDocMerge, then parseRTBComment. Field
/// list and recordsets stay in place for further merges. An id below 0 is not part of the merge.
class clsInsertFieldsInRTB {
 public:
  clsInsertFieldsInRTB();
  ~clsInsertFieldsInRTB();
  clsInsertFieldsInRTB(const clsInsertFieldsInRTB&) = delete;
  clsInsertFieldsInRTB& operator=(const clsInsertFieldsInRTB&) = delete;

  // Properties, set by the caller before the merge.

  int ListType = 0;
  int get_MergeFieldListUse() const { return mergeFieldListUse_; }
  void put_MergeFieldListUse(int use);
  bool UseWordWrap = true;
  RichTextBox* RTB = nullptr;
  ListBox* listBox = nullptr;
  ListBox* listBox2 = nullptr;
  bool ShowListCategoryHeaders = true;
  std::string TemplateText;
  Id companyID = noId;
  Id contactID = noId;
  Id firmID = noId;
  Id userID = noId;
  Id appointmentID = noId;
  Id docketId = noId;
  Id taskID = noId;
  void put_scheduleID(Id scheduleID);
  bool TestComment = false;
  bool ConvertStrToRTF = true;
  bool ConvertCompanyNameToContactNameForContacts = false;
  GridColumnList* get_FieldList() const { return fieldList_.get(); }

  /// Raised with the message of a template's first fault.
  std::function<void(const std::string& message)> testErrorComment;

  void resetAllItemIDs();
  void Terminate();

  // The catalogue of fields (clsInsertFieldsInRTB_fields.cpp).
  void createDefaultFieldListStructure(bool& noListBox, bool& clearListBox);
  void createCompanyInfoFieldListStructure(GridColumnList& list, bool noListBox);
  void createAppointmentInfoFieldListStructure(GridColumnList& list, bool noListBox);
  void createTaskInfoFieldListStructure(GridColumnList& list, bool noListBox);
  void createDocketInfoFieldListStructure(GridColumnList& list, bool noListBox);
  void createAccountantFieldListStructure(bool noListBox, bool clearListBox);
  bool verifyFieldListIsPopulated();

  // Values from the records (clsInsertFieldsInRTB_data.cpp).
  void initializeDataRecordsetsForSingleDocMerge();
  std::string getDataFieldInfo(int index, const std::string& format);
  std::string getDataFieldFromRecordset(std::string& fieldName);
  std::string getMergeDataFromFieldName(const std::string& fieldName);
  std::string getMergeDataFromDisplayName(const std::string& displayName);
  std::string getDBFieldNameFromDisplayFieldName(std::string& name);
  std::string getDisplayFieldNameFromDBFieldName(std::string& name);
  void writeDataToField(const std::string& fieldName, const std::string& value);
  Id getTaskIDFromScheduleIDNum(Id scheduleID);

  // Conversions (clsInsertFieldsInRTB_conversions.cpp).
  std::string convertProvinceFields(const std::string& text);
  std::string verifyTemplateText(const std::string& text);
  std::string getTodaysDate(std::string& format);
  std::string getTimeDurationFieldValue(DateTime& from, DateTime& to);
  std::string getDocsAndInstructionsList();
  std::string getAbbreviatedProvince(std::string& province);
  std::string getFullProvinceString(std::string& province);
  std::string convertToRTF(const std::string& text);

  // Merge and validation (clsInsertFieldsInRTB_merge.cpp).
  std::string parseRTBComment();
  bool testRTBComment(const std::string& text, bool isRTF, bool raiseErrors, bool skipFieldNames);
  bool replaceText(std::string& text, const std::string& token, const std::string& value);
  std::string parseTodaysDateInRTBComment(std::string& text, const std::string& openMark,
                                          const std::string& closeMark);
  std::string replaceUnfoundMergeFieldsWithBlanks(std::string& text);
  std::string removeBlankLinesFromRTFText(std::string& text);
  std::string convertFieldName(const std::string& text);
  bool testStr(const std::string& name);

 private:
  int mergeFieldListUse_ = 1;
  std::unique_ptr<GridColumnList> fieldList_;
  /// Rows added to the list since it was last emptied; the key of the newest one.
  int fieldRowCount_ = 0;
};

}  // namespace autonotify
