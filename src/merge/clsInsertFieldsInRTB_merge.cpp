#include "contract/tags.h"
#include "merge/clsInsertFieldsInRTB.h"
#include "merge/fields/field_catalogue.h"
#include "merge/templates/template_check.h"
#include "merge/templates/template_update.h"
#include "merge/templates/token_removal.h"
#include "merge/templates/token_search.h"
#include "merge/templates/token_texts.h"
#include "platform/text.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"clsInsertFieldsInRTB", name>;

constexpr std::size_t npos = std::string::npos;

bool holds(const std::string& text, const std::string& token) {
  return findIgnoreCase(text, token) != npos;
}

const std::string& withoutTokens(std::string& text) {
  if (!removeTokens(text, bareMarks)) removeTokens(text, escapedMarks);
  return text;
}

/// A person who is a client of their own has no company whose name could be told.
std::string withContactNameForCompanyName(std::string text) {
  for (const MergeMarks& marks : {bareMarks, escapedMarks}) {
    const std::string company = plainToken(marks, "Company Name");
    const std::string contact = plainToken(marks, "Contact Display Name");
    if (holds(text, company) && !holds(text, contact))
      return replaceAllIgnoreCase(text, company, contact);
  }
  return text;
}

}  // namespace

std::string clsInsertFieldsInRTB::parseRTBComment() {
  return procedure(tagOf<"parseRTBComment">, std::string{}, [&](Step& step, std::string& result) {
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

/// The template with its field names brought up to date; never null.
std::shared_ptr<const TemplateLayout> clsInsertFieldsInRTB::layoutOfTemplate() {
  const TemplateLayoutCache::Setting setting{regionOfInstallation(), isMergedForContactAlone()};
  TemplateLayoutCache& cache = TemplateLayoutCache::instance();
  if (auto known = cache.find(TemplateText, setting)) return known;
  std::string text = updateTemplate(TemplateText, setting.region);
  if (setting.isForContactAlone) text = withContactNameForCompanyName(std::move(text));
  const auto layout = std::make_shared<const TemplateLayout>(std::move(text));
  cache.keep(TemplateText, setting, layout);
  return layout;
}

/// Null when the text must be merged by the rules.
std::shared_ptr<const FieldClaims> clsInsertFieldsInRTB::claimsOnLayout(
    Step& step, const std::shared_ptr<const TemplateLayout>& layout) {
  if (!layout->isRegular()) return nullptr;
  const auto known = FieldCursor(step, fieldList_).mergeFields();
  return known && known->canClaim() ? claimsOn(known, layout) : nullptr;
}

/// Fields are read in the order of the list, as some values depend on those read before. From the
/// first value on that brings marks, the rules take over where the layout has got to.
std::string clsInsertFieldsInRTB::mergeByLayout(Step& step, const TemplateLayout& layout,
                                                const FieldClaims& claims) {
  TokenTexts texts(layout);
  for (const FieldClaim& claim : claims.list) {
    const std::string value = textOfClaim(claims, claim);
    if (!claim.isToday() && mayFormMark(value)) {
      std::string text = texts.joined(true);
      replaceText(text, layout.tokenText(claim.token), value);
      mergeFields(
          step, text, layout.marks(),
          claim.isDate() ? PassStart{claim.row, claim.format + 1} : PassStart{claim.row + 1, 0});
      return replaceUnfoundMergeFieldsWithBlanks(text);
    }
    texts.fill(claim.token, value, ConvertStrToRTF && texts.needsBlank(claim.token));
  }
  return texts.joined(false);
}

std::string clsInsertFieldsInRTB::textOfClaim(const FieldClaims& claims, const FieldClaim& claim) {
  if (claim.isToday()) return todaysText(*claim.pattern);
  const MergeField& field = claims.fields->field(claim.row);
  const bool isShown = fieldList_ && fieldList_->shows(*claims.fields);
  return fieldText(field.index, *claim.pattern, isShown ? field.plan : nullptr);
}

std::vector<TemplateField> clsInsertFieldsInRTB::listTemplateFields() {
  using Fields = std::vector<TemplateField>;
  return procedure(tagOf<"listTemplateFields">, Fields{}, [&](Step& step, Fields& result) {
    const std::shared_ptr<const TemplateLayout> layout = layoutOfTemplate();
    const auto claims = verifyFieldListIsPopulated() ? claimsOnLayout(step, layout) : nullptr;
    if (!claims) return;
    for (std::size_t token = 0; token < layout->tokenCount(); ++token)
      result.push_back({layout->tokenText(token), FieldFate::neverFilled});
    for (const FieldClaim& claim : claims->list)
      result[claim.token].fate = fateOf(step, *claims, claim);
  });
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
  const FieldCursor field(step, fieldList_);
  TokenSearch tokens(text, marks);
  bool isAnyFound = false;
  std::string name;
  int index = 0;
  int type = 0;
  const int count = field.count();
  for (int row = start.row; row <= count; ++row) {
    field.select(row);
    field.read(name, field_column::displayName);
    field.readKey(index);
    field.read(type, field_column::dataType);
    const std::size_t firstFormat = row == start.row ? start.format : 0;
    const bool isDate = type == static_cast<int>(FieldType::date);
    const bool isFound =
        isDate ? mergeDate(tokens, name, index, firstFormat) : mergeToken(tokens, name, index, {});
    isAnyFound = isAnyFound || isFound;
  }
  return isAnyFound;
}

bool clsInsertFieldsInRTB::mergeDate(TokenSearch& tokens, const std::string& name, int index,
                                     std::size_t firstFormat) {
  bool isFound = false;
  for (std::size_t i = firstFormat; i < mergeDateFormats.size(); ++i) {
    const std::string_view format = mergeDateFormats[i];
    if (mergeToken(tokens, dateContent(name, format), index, printedFormat(format))) isFound = true;
  }
  return isFound;
}

bool clsInsertFieldsInRTB::mergeToken(TokenSearch& tokens, const std::string& content, int index,
                                      std::string_view format) {
  if (!tokens.holds(content)) return false;
  const std::string value = getDataFieldInfo(index, std::string(format));
  replaceText(tokens.text(), tokens.tokenOf(content), value);
  tokens.noteReplaced(value);
  return true;
}

bool clsInsertFieldsInRTB::replaceText(std::string& text, const std::string& token,
                                       const std::string& value) {
  return procedure(tagOf<"replaceText">, false, [&](Step&, bool&) {
    const std::size_t first = findIgnoreCase(text, token);
    if (first == npos) return;
    const bool needsBlank = ConvertStrToRTF && first > 0 && text[first - 1] != ' ';
    text = replaceAllIgnoreCase(text, token, needsBlank ? " " + value : value);
  });
}

std::string clsInsertFieldsInRTB::parseTodaysDateInRTBComment(std::string& text,
                                                              const std::string& openMark,
                                                              const std::string& closeMark) {
  return procedure(tagOf<"parseTodaysDateInRTBComment">, text, [&](Step&, std::string& result) {
    if (!holds(text, openMark + "(" + std::string(todaysDateName) + ",")) return;
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
  const auto remove = [&](Step&, std::string& result) { result = withoutTokens(text); };
  return procedure(tagOf<"replaceUnfoundMergeFieldsWithBlanks">, text, remove);
}

bool clsInsertFieldsInRTB::testRTBComment(const std::string& text, bool isRTF, bool raiseErrors,
                                          bool skipFieldNames) {
  return procedure(tagOf<"testRTBComment">, false, [&](Step& step, bool& result) {
    std::function<bool(const std::string&)> isFieldName;
    if (!skipFieldNames) isFieldName = [&](const std::string& name) { return testStr(name); };
    TemplateCheck check(step, std::move(isFieldName));
    const std::string fault =
        check.firstFault(convertProvinceFields(text), isRTF ? escapedMarks : bareMarks);
    if (fault.empty()) return;
    result = true;
    if (raiseErrors && testErrorComment) step.run(testErrorComment, fault);
  });
}

bool clsInsertFieldsInRTB::testStr(const std::string& name) {
  return procedure(tagOf<"testStr">, false, [&](Step& step, bool& result) {
    result = upperCase(name) == "TODAYS DATE" ||
             FieldCursor(step, fieldList_).find(field_column::displayName, name);
  });
}

std::string clsInsertFieldsInRTB::convertProvinceFields(const std::string& text) {
  return autonotify::convertProvinceFields(text);
}

std::string clsInsertFieldsInRTB::verifyTemplateText(const std::string& text) {
  return autonotify::verifyTemplateText(text);
}

/// Blank lines stay: texts have come to rely on them.
std::string clsInsertFieldsInRTB::removeBlankLinesFromRTFText(std::string& text) {
  return text;
}

std::string clsInsertFieldsInRTB::convertFieldName(const std::string& text) {
  return procedure(tagOf<"convertFieldName">, text, [&](Step&, std::string& result) {
    result = replaceAll(text, bareMarks.open, escapedMarks.open);
    result = replaceAll(result, bareMarks.close, escapedMarks.close);
  });
}

}  // namespace autonotify
