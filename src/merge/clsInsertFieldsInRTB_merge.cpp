#include "merge/clsInsertFieldsInRTB.h"
#include "merge/fields/field_catalogue.h"
#include "merge/fields/field_list_columns.h"
#include "platform/text.h"

namespace autonotify {
namespace {

constexpr std::size_t npos = std::string::npos;

bool holds(const std::string& text, const std::string& token) {
  return findIgnoreCase(text, token) != npos;
}

/// Takes out every token, the first in the text first, with all that are spelled like it. An
/// opening mark without a closing one ends the search. True when there was a token.
bool removeTokens(std::string& text, const MergeMarks& marks) {
  bool wasAnyRemoved = false;
  for (;;) {
    const std::size_t open = findIgnoreCase(text, marks.open);
    if (open == npos) return wasAnyRemoved;
    const std::size_t close = findIgnoreCase(text, marks.close, open + marks.open.size());
    if (close == npos) return wasAnyRemoved;
    const std::string token = text.substr(open, close + marks.close.size() - open);
    text = replaceAll(text, token, "");
    wasAnyRemoved = true;
  }
}

}  // namespace

std::string clsInsertFieldsInRTB::parseRTBComment() {
  return procedure("Morvane.exe-clsInsertFieldsInRTB-parseRTBComment", std::string{},
                   [&](Step& step, std::string& result) {
                     const std::shared_ptr<const TemplateLayout> layout = layoutOfTemplate();
                     const bool hasFields = verifyFieldListIsPopulated();
                     const auto claims = hasFields ? claimsOnLayout(step, layout) : nullptr;
                     if (claims) {
                       result = mergeByLayout(step, *layout, *claims);
                       return;
                     }
                     std::string text = layout->text();
                     if (hasFields) mergeByRules(step, text);
                     result = replaceUnfoundMergeFieldsWithBlanks(text);
                   });
}

bool clsInsertFieldsInRTB::isMergedForContactAlone() const {
  return ConvertCompanyNameToContactNameForContacts && companyID < 1 && contactID >= 1;
}

/// A person who is a client of their own has no company whose name could be told.
std::string clsInsertFieldsInRTB::withContactNameForCompanyName(std::string text) const {
  for (const MergeMarks& marks : {bareMarks, escapedMarks}) {
    const std::string company = plainToken(marks, "Company Name");
    const std::string contact = plainToken(marks, "Contact Display Name");
    if (holds(text, company) && !holds(text, contact))
      return replaceAllIgnoreCase(text, company, contact);
  }
  return text;
}

void clsInsertFieldsInRTB::mergeByRules(Step& step, std::string& text) {
  for (const MergeMarks& marks : {bareMarks, escapedMarks})
    if (mergePass(step, text, marks)) return;
}

bool clsInsertFieldsInRTB::mergePass(Step& step, std::string& text, const MergeMarks& marks) {
  parseTodaysDateInRTBComment(text, std::string(marks.open), std::string(marks.close));
  return mergeFields(step, text, marks, {});
}

bool clsInsertFieldsInRTB::mergeFields(Step& step, std::string& text, const MergeMarks& marks,
                                       PassStart start) {
  bool isAnyFound = false;
  std::string name;
  int index = 0;
  int type = 0;
  const int count = step.value(0, [&] { return fields().getEntryCount(); });
  for (int row = start.row; row <= count; ++row) {
    step.run([&] { fields().selectEntry(row); });
    step.assign(name, [&] { return toText(fields().getItem(field_column::displayName)); });
    step.assign(index, [&] { return toInteger(fields().getEntryKey()); });
    step.assign(type, [&] { return toInteger(fields().getItem(field_column::dataType)); });
    const std::size_t firstFormat = row == start.row ? start.format : 0;
    const bool isFound = type == static_cast<int>(FieldType::date)
                             ? mergeDate(text, marks, name, index, firstFormat)
                             : mergeToken(text, plainToken(marks, name), index, {});
    isAnyFound = isAnyFound || isFound;
  }
  return isAnyFound;
}

bool clsInsertFieldsInRTB::mergeDate(std::string& text, const MergeMarks& marks,
                                     const std::string& name, int index, std::size_t firstFormat) {
  bool isFound = false;
  for (std::size_t i = firstFormat; i < mergeDateFormats.size(); ++i) {
    const std::string token = dateToken(marks, name, mergeDateFormats[i]);
    if (mergeToken(text, token, index, std::string(printedFormat(mergeDateFormats[i]))))
      isFound = true;
  }
  return isFound;
}

bool clsInsertFieldsInRTB::mergeToken(std::string& text, const std::string& token, int index,
                                      const std::string& format) {
  if (!holds(text, token)) return false;
  replaceText(text, token, getDataFieldInfo(index, format));
  return true;
}

bool clsInsertFieldsInRTB::replaceText(std::string& text, const std::string& token,
                                       const std::string& value) {
  return procedure("Morvane.exe-clsInsertFieldsInRTB-replaceText", false, [&](Step&, bool&) {
    const std::size_t first = findIgnoreCase(text, token);
    if (first == npos) return;
    const bool needsBlank = ConvertStrToRTF && first > 0 && text[first - 1] != ' ';
    text = replaceAllIgnoreCase(text, token, needsBlank ? " " + value : value);
  });
}

std::string clsInsertFieldsInRTB::parseTodaysDateInRTBComment(std::string& text,
                                                              const std::string& openMark,
                                                              const std::string& closeMark) {
  return procedure(
      "Morvane.exe-clsInsertFieldsInRTB-parseTodaysDateInRTBComment", text,
      [&](Step&, std::string& result) {
        for (const std::string_view format : mergeDateFormats) {
          const std::string token = dateToken({openMark, closeMark}, todaysDateName, format);
          if (!holds(text, token)) continue;
          std::string pattern(format);
          replaceText(text, token, getTodaysDate(pattern));
        }
        result = text;
      });
}

std::string clsInsertFieldsInRTB::replaceUnfoundMergeFieldsWithBlanks(std::string& text) {
  return procedure("Morvane.exe-clsInsertFieldsInRTB-replaceUnfoundMergeFieldsWithBlanks", text,
                   [&](Step&, std::string& result) {
                     if (!removeTokens(text, bareMarks)) removeTokens(text, escapedMarks);
                     result = text;
                   });
}

/// Blank lines stay: texts have come to rely on them.
std::string clsInsertFieldsInRTB::removeBlankLinesFromRTFText(std::string& text) {
  return text;
}

std::string clsInsertFieldsInRTB::convertFieldName(const std::string& text) {
  return procedure("Morvane.exe-clsInsertFieldsInRTB-convertFieldName", text,
                   [&](Step&, std::string& result) {
                     result = replaceAll(text, bareMarks.open, escapedMarks.open);
                     result = replaceAll(result, bareMarks.close, escapedMarks.close);
                   });
}

}  // namespace autonotify
