#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "contract/GridColumnList.h"
#include "contract/merge_fields.h"
#include "merge/fields/field_claims.h"
#include "merge/fields/field_cursor.h"
#include "merge/fields/field_list_kinds.h"
#include "merge/records/merge_sources.h"
#include "platform/controls/ListBox.h"

namespace autonotify {

class RichTextBox;
class TokenSearch;
struct FieldListTarget;
struct MergeMarks;

/// Turns a template into client text: knows all merge fields, finds their values in the client's
/// records and puts them in place of the tokens between « and ».
///
/// Set the properties, among them the ids, and call initializeDataRecordsetsForSingleDocMerge, then
/// parseRTBComment. Field list and recordsets stay in place for further merges. Failures are
/// settled at the host's error dialog; what cannot be read is the empty text then.
class clsInsertFieldsInRTB : public MergeIds {
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

  /// All ids become -1.
  void resetAllItemIDs();
  /// Gives the field list up and closes all recordsets; nothing can be merged from here on.
  void Terminate();

  // The catalogue of fields (clsInsertFieldsInRTB_fields.cpp). The four blocks of one kind are
  // added to `list`, and to listBox unless `noListBox`.

  /// Fills the field list and the list boxes anew with the blocks of ListType, the firm's at the
  /// end. `noListBox` tells afterwards whether listBox was missing; `clearListBox` empties listBox
  /// first, listBox2 is always emptied.
  void createDefaultFieldListStructure(bool& noListBox, bool& clearListBox);
  void createCompanyInfoFieldListStructure(GridColumnList& list, bool noListBox);
  void createAppointmentInfoFieldListStructure(GridColumnList& list, bool noListBox);
  void createTaskInfoFieldListStructure(GridColumnList& list, bool noListBox);
  void createDocketInfoFieldListStructure(GridColumnList& list, bool noListBox);
  /// Adds the firm's block to the field list, and to listBox2 unless `noListBox`.
  void createAccountantFieldListStructure(bool noListBox, bool clearListBox);
  /// False when the field list was empty: it is filled, by the family of the first id that is set.
  bool verifyFieldListIsPopulated();

  // Values from the records (clsInsertFieldsInRTB_values.cpp).

  /// Opens the records of the ids anew and fills the field list.
  void initializeDataRecordsetsForSingleDocMerge();
  /// The value of the field list's row with this key, printed by its type; `format` is that of a
  /// date, "mmm d, yyyy" when empty.
  std::string getDataFieldInfo(int index, const std::string& format);
  /// The field of the records that the list's current row belongs to, as text and not formatted. A
  /// field that is worked out from others may leave one of those in `fieldName`.
  std::string getDataFieldFromRecordset(std::string& fieldName);
  // By the name in the database, and by the name in templates; empty for an unknown one, and when
  // the field list had to be filled first.
  std::string getMergeDataFromFieldName(const std::string& fieldName);
  std::string getMergeDataFromDisplayName(const std::string& displayName);
  // The one name for the other; an unknown one comes back.
  std::string getDBFieldNameFromDisplayFieldName(std::string& name);
  std::string getDisplayFieldNameFromDBFieldName(std::string& name);
  /// Writes the text into the record behind the database field, saved at once; the address that a
  /// contact has of its company is changed there too.
  void writeDataToField(const std::string& fieldName, const std::string& value);
  /// The task of a schedule entry, also of an archived one; -1 for none.
  Id getTaskIDFromScheduleIDNum(Id scheduleID);
  /// The documents and instructions of the task, a line each.
  std::string getDocsAndInstructionsList();
  /// Today in the format, "mmm d, yyyy" when empty.
  std::string getTodaysDate(std::string& format);
  /// The time between two moments in words, whichever comes first.
  std::string getTimeDurationFieldValue(DateTime& from, DateTime& to);
  // A province or state in its short and in its long form; one unknown comes back.
  std::string getAbbreviatedProvince(std::string& province);
  std::string getFullProvinceString(std::string& province);
  /// The lines of the text as paragraphs, or as parts between commas without UseWordWrap.
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

  /// TemplateText with the values of the records in place of its fields.
  std::string parseRTBComment();
  /// True when the template has a fault; `raiseErrors` raises testErrorComment with the first.
  /// `isRTF` looks for escaped marks instead of bare ones, `skipFieldNames` accepts any name.
  bool testRTBComment(const std::string& text, bool isRTF, bool raiseErrors, bool skipFieldNames);
  /// The fields of TemplateText, each once, and what becomes of them by the records. None for a
  /// template whose marks do not pair.
  std::vector<TemplateField> listTemplateFields();
  /// The template with today's names for the fields of older templates and of other regions.
  std::string convertProvinceFields(const std::string& text);
  /// The template without block headers; a text of at most longestFieldName characters gets the
  /// marks that it lacks.
  std::string verifyTemplateText(const std::string& text);
  /// Puts the value in place of every such token of `text`, in any case; in rich text with a blank
  /// ahead where the first one has none. Always False.
  bool replaceText(std::string& text, const std::string& token, const std::string& value);
  // These two change `text` and give it.
  std::string parseTodaysDateInRTBComment(std::string& text, const std::string& openMark,
                                          const std::string& closeMark);
  /// Takes out what stands between bare marks, or between escaped ones where there is no bare one.
  std::string replaceUnfoundMergeFieldsWithBlanks(std::string& text);
  std::string removeBlankLinesFromRTFText(std::string& text);
  /// The text with escaped marks for its bare ones.
  std::string convertFieldName(const std::string& text);
  /// True for the name of a field in the list, and for that of today's date.
  bool testStr(const std::string& name);

 private:
  MergeScope scope() const;
  void closeAllRecordsets();
  bool isMergedForContactAlone() const;

  // What the blocks of the catalogue are added to: the list of this object, or one given from
  // outside.
  FieldListTarget ownTarget(ListBox* box);
  FieldListTarget targetOf(GridColumnList& list, bool noListBox);
  void createFieldListWithoutListBoxes();

  // What two procedures do alike, for a column of the field list.
  std::string valueOfField(std::string_view frameTag, int column, const std::string& name);
  std::string tokenOfListItem(std::string_view frameTag, int itemData, int nameColumn,
                              const MergeMarks& marks);

  // Values, with or without the plan of the field, which is else read from the list.
  std::string fieldText(int index, const DateFormat& format, const FieldPlan* plan);
  std::string todaysText(const DateFormat& format);
  Value readField(Step& step, const FieldPlan& plan);
  Value valueInRow(const FieldPlan& plan);
  void convertLines(std::string& text);

  // The merge by its rules: each field of the list is sought in the text.
  /// Where the search begins: at a row of the list, and within a date row at a format.
  struct PassStart {
    int row = 1;
    std::size_t format = 0;
  };
  void mergeByRules(Step& step, std::string& text);
  // True when a field was found, whatever its value.
  bool mergePass(Step& step, std::string& text, const MergeMarks& marks);
  bool mergeFields(Step& step, std::string& text, const MergeMarks& marks, PassStart start);
  bool mergeDate(TokenSearch& tokens, const std::string& name, int index, std::size_t firstFormat);
  bool mergeToken(TokenSearch& tokens, const std::string& content, int index,
                  std::string_view format);

  // The same text from the tokens that occur, as far as no value brings marks of its own.
  std::shared_ptr<const TemplateLayout> layoutOfTemplate();
  std::shared_ptr<const FieldClaims> claimsOnLayout(
      Step& step, const std::shared_ptr<const TemplateLayout>& layout);
  std::string mergeByLayout(Step& step, const TemplateLayout& layout, const FieldClaims& claims);
  std::string textOfClaim(const FieldClaims& claims, const FieldClaim& claim);
  FieldFate fateOf(Step& step, const FieldClaims& claims, const FieldClaim& claim);

  int mergeFieldListUse_ = field_list_use::merging;
  std::unique_ptr<FieldList> fieldList_;
  /// Rows added to the list since it was last emptied; the key of the newest one.
  int fieldRowCount_ = 0;
  MergeSources sources_;
};

}  // namespace autonotify
