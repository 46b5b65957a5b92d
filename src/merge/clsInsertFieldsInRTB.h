#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "control/contract/GridColumnList.h"
#include "control/contract/recordsets.h"
#include "merge/field_claims.h"
#include "merge/field_list_kinds.h"
#include "merge/merge_sources.h"
#include "platform/controls/ListBox.h"

namespace autonotify {

class RichTextBox;
struct FieldListTarget;
class TemplateLayout;
struct MergeMarks;

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

  int ListType = 0;  ///< see field_list_type
  /// See field_list_use. The uses that assign or update switch ShowListCategoryHeaders off.
  int get_MergeFieldListUse() const { return mergeFieldListUse_; }
  void put_MergeFieldListUse(int use);
  bool UseWordWrap = true;  ///< lines of a value become paragraphs, else parts between commas
  RichTextBox* RTB = nullptr;
  ListBox* listBox = nullptr;   ///< shows the fields but for the firm's
  ListBox* listBox2 = nullptr;  ///< shows the firm's
  bool ShowListCategoryHeaders = true;
  std::string TemplateText;
  Id companyID = noId;
  Id contactID = noId;
  Id firmID = noId;
  Id userID = noId;
  Id appointmentID = noId;
  Id docketId = noId;
  Id taskID = noId;
  /// Sets taskID to the task of the schedule entry.
  void put_scheduleID(Id scheduleID);
  bool TestComment = false;     ///< values are the fields' samples
  bool ConvertStrToRTF = true;  ///< values are prepared for rich text
  /// In a merge for a contact alone, the company's name in a template stands for the contact's.
  bool ConvertCompanyNameToContactNameForContacts = false;
  /// The known fields; null after Terminate. From here on the caller may change the list at any
  /// time, so each merge reads it anew.
  GridColumnList* get_FieldList();

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

  // An editor's field list beside its text (clsInsertFieldsInRTB_picking.cpp). `itemData` is that
  // of the list box's entry: a row of the field list, or below 0 for a header, which gives no text.

  /// The entry's token, with or without marks; a date comes in the format "mmmm d yyyy".
  std::string parseListItem(int itemData, bool& withMarks);
  /// The same without marks and with the database field for its name, but for dates.
  std::string getDBFieldFromListItem(int itemData);
  /// Inserts the entry's token at the caret of RTB, at 1 when the box cannot tell it. The result is
  /// that of RichTextUtility::insertTextAt, null when nothing was inserted.
  Value onListClick(int& itemData);
  /// Today's date as a token; `formatIndex` from 1 is the place in mergeDateFormats, any other
  /// number leaves the format empty. Inserts nothing.
  std::string insertCurrentDateMergeField(int& formatIndex, bool& withMarks);
  /// Inserts that token with its marks as onListClick does.
  Value insertCurrentDate(int& formatIndex);

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
  struct DerivedField;
  struct InheritedField;
  struct Expression;
  static const DerivedField derivedFields[];
  static const InheritedField inheritedFields[];
  static const DerivedField* findDerivedField(MergeSource source, const std::string& name);
  static const InheritedField* findInheritedField(const std::string& name);

  /// Throws PlatformError (91) when there is no list.
  FieldList& fields();
  // What the blocks of the catalogue are added to: the list of this object, or one given from
  // outside.
  FieldListTarget ownTarget(ListBox* box);
  FieldListTarget targetOf(GridColumnList& list, bool noListBox);
  void createFieldListWithoutListBoxes();
  void closeAllRecordsets();

  // Parts of the procedures that read and write fields; statements of the caller's frame.
  std::string tokenOfListItem(Step& step, int itemData, int nameColumn, const MergeMarks& marks);
  bool findField(Step& step, int column, const std::string& name);
  void readFieldByName(Step& step, int column, const std::string& name, std::string& result);
  void translateName(Step& step, int from, int to, std::string& name);
  Value readCurrentField(Step& step);
  bool formatByType(Step& step, const Value& value, int dataType, const std::string& format,
                    std::string& result);
  Value fieldValue(std::optional<MergeSource> source, std::string& fieldName);
  Value readFieldOf(Step& step, MergeSource source, std::string& fieldName);
  std::optional<MergeSource> sourceOfCurrentField(Step& step);
  Value readColumn(Step& step, MergeSource source, const std::string& column);
  bool isInheritingCompany(Step& step);
  Value readInherited(Step& step, const InheritedField& field);
  Value readContactAndSpouseName(Step& step, MergeSource source, std::string& fieldName);
  Value readAbbreviatedProvince(Step& step, MergeSource source, std::string& fieldName);
  Value readCompanyType(Step& step, MergeSource source, std::string& fieldName);
  Value readCodedField(Step& step, MergeSource source, std::string& fieldName);
  Value readYearEnd(Step& step, MergeSource source, std::string& fieldName);
  Value readTimeDuration(Step& step, MergeSource source, std::string& fieldName);
  void writeInherited(Step& step, const std::string& fieldName, const std::string& value);
  void writeColumn(Step& step, MergeSource source, const std::string& column,
                   const std::string& value);

  // The merge by its rules: each field of the list is sought in the text.
  /// Where the search begins: at a row of the list, and within a date row at a format.
  struct PassStart {
    int row = 1;
    std::size_t format = 0;
  };
  bool isMergedForContactAlone() const;
  std::string withContactNameForCompanyName(std::string text) const;
  void mergeByRules(Step& step, std::string& text);
  // True when a field was found, whatever its value.
  bool mergePass(Step& step, std::string& text, const MergeMarks& marks);
  bool mergeFields(Step& step, std::string& text, const MergeMarks& marks, PassStart start);
  bool mergeDate(std::string& text, const MergeMarks& marks, const std::string& name, int index,
                 std::size_t firstFormat);
  bool mergeToken(std::string& text, const std::string& token, int index,
                  const std::string& format);

  // The same text from the tokens that occur, as far as no value brings marks of its own.
  std::shared_ptr<const TemplateLayout> layoutOfTemplate(Step& step);
  std::shared_ptr<const FieldClaims> claimsOnLayout(
      Step& step, const std::shared_ptr<const TemplateLayout>& layout);
  std::string mergeByLayout(Step& step, const TemplateLayout& layout, const FieldClaims& claims);

  // The validation.
  std::string firstFault(Step& step, const std::string& text, const MergeMarks& marks,
                         bool skipFieldNames);
  std::string faultOfElement(Step& step, const std::string& element, Expression& expression);
  std::string faultOfUnknownName(Step& step, const std::string& name);

  int mergeFieldListUse_ = field_list_use::merging;
  std::unique_ptr<FieldList> fieldList_;
  /// Rows added to the list since it was last emptied; the key of the newest one.
  int fieldRowCount_ = 0;
  MergeSources sources_{*this};
};

}  // namespace autonotify
