#include "contract/rich_texts.h"
#include "contract/tags.h"
#include "merge/clsInsertFieldsInRTB.h"
#include "merge/fields/field_catalogue.h"
#include "merge/templates/merge_tokens.h"
#include "platform/controls/RichTextBox.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"clsInsertFieldsInRTB", name>;

constexpr std::string_view pickedDateFormat = "mmmm d yyyy";
constexpr MergeMarks noMarks;

/// Nothing for a number that no format has.
std::string_view dateFormatNumbered(int number) {
  const auto index = static_cast<std::size_t>(number - 1);
  if (number < 1 || index >= mergeDateFormats.size()) return {};
  return mergeDateFormats[index];
}

std::string todaysDateToken(int formatIndex, bool withMarks) {
  const MergeMarks& marks = withMarks ? bareMarks : noMarks;
  return dateToken(marks, todaysDateName, dateFormatNumbered(formatIndex));
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
std::string clsInsertFieldsInRTB::tokenOfListItem(std::string_view frameTag, int itemData,
                                                  int nameColumn, const MergeMarks& marks) {
  return procedure(frameTag, std::string{}, [&](Step& step, std::string& result) {
    if (itemData < 0) return;
    const FieldCursor field(step, fieldList_);
    if (!field.select(itemData)) return;
    if (field.dataType() == static_cast<int>(FieldType::date)) {
      field.read(result, field_column::displayName, [&](const Value& name) {
        return dateToken(marks, toText(name), pickedDateFormat);
      });
    } else {
      field.read(result, nameColumn,
                 [&](const Value& name) { return plainToken(marks, toText(name)); });
    }
  });
}

std::string clsInsertFieldsInRTB::parseListItem(int itemData, bool& withMarks) {
  const MergeMarks& marks = withMarks ? bareMarks : noMarks;
  return tokenOfListItem(tagOf<"parseListItem">, itemData, field_column::displayName, marks);
}

std::string clsInsertFieldsInRTB::getDBFieldFromListItem(int itemData) {
  return tokenOfListItem(tagOf<"getDBFieldFromListItem">, itemData, field_column::databaseField,
                         noMarks);
}

Value clsInsertFieldsInRTB::onListClick(int& itemData) {
  return procedure(tagOf<"onListClick">, Value{}, [&](Step& step, Value& result) {
    const int caret = readCaret(step, RTB);
    bool withMarks = true;
    const std::string token = parseListItem(itemData, withMarks);
    if (!token.empty()) result = insertTextAt(step, RTB, token, caret);
  });
}

std::string clsInsertFieldsInRTB::insertCurrentDateMergeField(int& formatIndex, bool& withMarks) {
  return procedure(
      tagOf<"insertCurrentDateMergeField">, std::string{},
      [&](Step&, std::string& result) { result = todaysDateToken(formatIndex, withMarks); });
}

Value clsInsertFieldsInRTB::insertCurrentDate(int& formatIndex) {
  return procedure(tagOf<"insertCurrentDate">, Value{}, [&](Step& step, Value& result) {
    const int caret = readCaret(step, RTB);
    result = insertTextAt(step, RTB, todaysDateToken(formatIndex, true), caret);
  });
}

}  // namespace autonotify
