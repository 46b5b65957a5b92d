#include "merge/fields/field_claims.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "merge/fields/field_format.h"
#include "merge/fields/recent_entries.h"

namespace autonotify {
namespace {

constexpr std::size_t keptClaims = 32;
constexpr std::size_t noFormat = mergeDateFormats.size();
constexpr int todaysRow = 0;

/// What prints a date in each format, and without one.
using Patterns = std::vector<DateFormat>;

Patterns makePatterns(std::string_view (*printed)(std::string_view format)) {
  Patterns patterns;
  for (const std::string_view format : mergeDateFormats)
    patterns.push_back(fieldDateFormat(printed(format)));
  patterns.push_back(fieldDateFormat({}));
  return patterns;
}

const DateFormat& patternOf(int row, std::size_t format) {
  static const Patterns ofToday = makePatterns([](std::string_view same) { return same; });
  static const Patterns ofFields = makePatterns(printedFormat);
  return (row == todaysRow ? ofToday : ofFields)[format];
}

/// A row of the list that a token may mean, and the format of a date.
struct Meaning {
  int row;
  std::size_t format;
};

/// What a date means whose expression stands between brackets, "name, format".
std::optional<Meaning> meaningInFormat(const MergeFields& fields, std::string_view expression,
                                       std::size_t format) {
  static const std::string foldedToday = foldCase(todaysDateName);
  constexpr std::string_view separator = ", ";
  const std::size_t tail = separator.size() + mergeDateFormats[format].size();
  if (expression.size() < tail) return std::nullopt;
  const std::size_t end = expression.size() - tail;
  if (expression.substr(end, separator.size()) != separator) return std::nullopt;
  if (!expression.ends_with(mergeDateFormats[format])) return std::nullopt;
  const std::string_view name = expression.substr(0, end);
  if (name == foldedToday) return Meaning{todaysRow, format};
  const int row = fields.firstRow(HashedText(name), true);
  if (row == 0) return std::nullopt;
  return Meaning{row, format};
}

/// The first of the list; today's date comes ahead of it.
std::optional<Meaning> firstMeaning(const MergeFields& fields, const HashedText& content) {
  std::optional<Meaning> first;
  if (const int row = fields.firstRow(content, false)) first = {row, noFormat};
  if (!content.text.starts_with('(') || !content.text.ends_with(')')) return first;
  const std::string_view expression = content.text.substr(1, content.text.size() - 2);
  for (std::size_t format = 0; format < noFormat; ++format) {
    const std::optional<Meaning> other = meaningInFormat(fields, expression, format);
    if (other && (!first || other->row < first->row)) first = other;
  }
  return first;
}

std::shared_ptr<const FieldClaims> tellClaims(const std::shared_ptr<const MergeFields>& fields,
                                              const TemplateLayout& layout) {
  auto claims = std::make_shared<FieldClaims>();
  claims->fields = fields;
  claims->list.reserve(layout.tokenCount());
  for (std::size_t token = 0; token < layout.tokenCount(); ++token) {
    const std::optional<Meaning> meaning = firstMeaning(*fields, layout.foldedContent(token));
    if (!meaning) continue;
    const auto& [row, format] = *meaning;
    claims->list.push_back({row, token, format, &patternOf(row, format)});
  }
  const auto order = [](const FieldClaim& claim) { return std::pair(claim.row, claim.format); };
  std::ranges::sort(claims->list, {}, order);
  return claims;
}

}  // namespace

std::shared_ptr<const FieldClaims> claimsOn(const std::shared_ptr<const MergeFields>& fields,
                                            const std::shared_ptr<const TemplateLayout>& layout) {
  using Key = std::pair<std::shared_ptr<const MergeFields>, std::shared_ptr<const TemplateLayout>>;
  static RecentEntries<Key, std::shared_ptr<const FieldClaims>> known(keptClaims);
  return known.findOrMake({fields, layout}, [&] { return tellClaims(fields, *layout); });
}

}  // namespace autonotify
