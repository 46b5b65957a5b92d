#include "contract/references.h"
#include "contract/rich_texts.h"
#include "merge/clsInsertFieldsInRTB.h"
#include "merge/fields/field_catalogue.h"
#include "merge/fields/field_list_columns.h"
#include "merge/templates/merge_tokens.h"
#include "platform/controls/RichTextBox.h"

namespace autonotify {
namespace {

constexpr std::string_view pickedDateFormat = "mmmm d yyyy";
constexpr MergeMarks noMarks;

/// Nothing for a number that no format has.
std::string_view dateFormatNumbered(int number) {
  const auto index = static_cast<std::size_t>(number - 1);
  return number >= 1 && index < mergeDateFormats.size() ? mergeDateFormats[index]
                                                        : std::string_view{};
}

std::string todaysDateToken(int formatIndex, bool withMarks) {
  return dateToken(withMarks ? bareMarks : noMarks, todaysDateName,
                   dateFormatNumbered(formatIndex));
}

/// The place where a token goes: the caret, or 1 where the box cannot tell it.
int readCaret(Step& step, const RichTextBox* box) {
  int caret = 1;
  step.run([&] {
    if (!box) throw PlatformError(error_number::objectNotSet, "Object not set", "RTB");
    if (const auto start = box->selStart()) caret = static_cast<int>(*start);
  });
  return caret;
}

}  // namespace

/// The token of a list entry whose field is named by the column; a date is named as it is shown.
std::string clsInsertFieldsInRTB::tokenOfListItem(Step& step, int itemData, int nameColumn,
                                                  const MergeMarks& marks) {
  if (itemData < 0) return {};
  if (!step.value(false, [&] { return fields().selectEntry(itemData); })) return {};
  const int type =
      step.value(0, [&] { return toInteger(fields().getItem(field_column::dataType)); });
  const bool isDate = type == static_cast<int>(FieldType::date);
  return step.value(std::string{}, [&] {
    const std::string name =
        toText(fields().getItem(isDate ? field_column::displayName : nameColumn));
    return isDate ? dateToken(marks, name, pickedDateFormat) : plainToken(marks, name);
  });
}

std::string clsInsertFieldsInRTB::parseListItem(int itemData, bool& withMarks) {
  return procedure("Morvane.exe-clsInsertFieldsInRTB-parseListItem", std::string{},
                   [&](Step& step, std::string& result) {
                     result = tokenOfListItem(step, itemData, field_column::displayName,
                                              withMarks ? bareMarks : noMarks);
                   });
}

std::string clsInsertFieldsInRTB::getDBFieldFromListItem(int itemData) {
  return procedure("Morvane.exe-clsInsertFieldsInRTB-getDBFieldFromListItem", std::string{},
                   [&](Step& step, std::string& result) {
                     result = tokenOfListItem(step, itemData, field_column::databaseField, noMarks);
                   });
}

Value clsInsertFieldsInRTB::onListClick(int& itemData) {
  return procedure("Morvane.exe-clsInsertFieldsInRTB-onListClick", Value{},
                   [&](Step& step, Value& result) {
                     const int caret = readCaret(step, RTB);
                     bool withMarks = true;
                     const std::string token = parseListItem(itemData, withMarks);
                     if (!token.empty()) result = insertTextAt(step, RTB, token, caret);
                   });
}

std::string clsInsertFieldsInRTB::insertCurrentDateMergeField(int& formatIndex, bool& withMarks) {
  return procedure(
      "Morvane.exe-clsInsertFieldsInRTB-insertCurrentDateMergeField", std::string{},
      [&](Step&, std::string& result) { result = todaysDateToken(formatIndex, withMarks); });
}

Value clsInsertFieldsInRTB::insertCurrentDate(int& formatIndex) {
  return procedure("Morvane.exe-clsInsertFieldsInRTB-insertCurrentDate", Value{},
                   [&](Step& step, Value& result) {
                     const int caret = readCaret(step, RTB);
                     result = insertTextAt(step, RTB, todaysDateToken(formatIndex, true), caret);
                   });
}

}  // namespace autonotify
