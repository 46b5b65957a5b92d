#include "host/exchange/CardReader.h"

#include <algorithm>
#include <array>
#include <utility>

#include "platform/date_time_text.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

/// Where the parts of a property go: those of the first row whose types it has and whose columns
/// are still empty. A part without a column joins the one before it.
struct CardColumns {
  std::string_view property;
  std::array<std::string_view, 2> types;
  std::array<std::string_view, 7> headings;
};
constexpr CardColumns cardColumns[] = {
    {"FN", {}, {"Name"}},
    {"N", {}, {"Last Name", "First Name", "Middle Name", "Prefix", "Suffix"}},
    {"ORG", {}, {"Company", "Department"}},
    {"TITLE", {}, {"Job Title"}},
    {"BDAY", {}, {"Birthday"}},
    {"TEL", {"FAX", "HOME"}, {"Home Fax"}},
    {"TEL", {"FAX"}, {"Work Fax"}},
    {"TEL", {"CELL", "WORK"}, {"Work Cell"}},
    {"TEL", {"CELL"}, {"Cell"}},
    {"TEL", {"PAGER"}, {}},
    {"TEL", {"WORK"}, {"Work Phone"}},
    {"TEL", {}, {"Home Phone"}},
    {"TEL", {}, {"Work Phone"}},
    {"EMAIL", {"WORK"}, {"Work Email"}},
    {"EMAIL", {}, {"Email"}},
    {"EMAIL", {}, {"Work Email"}},
    {"ADR",
     {"WORK"},
     {"Work Address 1", "Work Address 2", "", "Work City", "Work Province", "Work Postal Code",
      "Work Country"}},
    {"ADR",
     {},
     {"Home Address 1", "Home Address 2", "Home Address 3", "Home City", "Home Province",
      "Home Postal Code", "Home Country"}},
};
constexpr std::array<std::string_view, 7> silentProperties{
    "VERSION", "PRODID", "REV", "UID", "X-ABSHOWAS", "KIND", "X-ABLABEL"};

const std::vector<std::string>& allHeadings() {
  static const std::vector<std::string> all = [] {
    std::vector<std::string> headings;
    for (const CardColumns& row : cardColumns)
      for (const std::string_view heading : row.headings)
        if (!heading.empty() && std::ranges::find(headings, heading) == headings.end())
          headings.emplace_back(heading);
    return headings;
  }();
  return all;
}

using Parts = std::vector<std::string>;

/// The lines of the street come first, then what is more precise; three in all.
Parts addressParts(const CardParts& written) {
  Parts lines;
  std::string street = written[2] + '\n' + written[1] + '\n' + written[0];
  for (std::size_t at = 0; at < street.size();) {
    const std::size_t end = std::min(street.find('\n', at), street.size());
    const std::string line(trim(street.substr(at, end - at)));
    if (lines.size() == 3 && !line.empty()) lines.back() += ", " + line;
    if (lines.size() < 3 && !line.empty()) lines.push_back(line);
    at = end + 1;
  }
  lines.resize(3);
  for (std::size_t part = 3; part < 7; ++part) lines.push_back(written[part]);
  return lines;
}

/// "1970-01-31" of "19700131" and "1970-01-31T00:00:00Z"; empty for one without a year.
std::string birthday(const std::string& value) {
  const bool isBasic = value.find('-') == value.npos && value.size() >= 8;
  const std::string day =
      isBasic ? value.substr(0, 4) + '-' + value.substr(4, 2) + '-' + value.substr(6, 2)
              : value.substr(0, 10);
  return parseDateTime(day) ? day : "";
}

/// "+1 555 0100" of "tel:+1 555 0100".
std::string withoutScheme(const std::string& value) {
  for (const std::string_view scheme : {"tel:", "mailto:"})
    if (equalIgnoreCase(value.substr(0, scheme.size()), scheme)) return value.substr(scheme.size());
  return value;
}

Parts partsOf(const CardProperty& property) {
  const CardParts written(property.value);
  if (property.name == "ADR") return addressParts(written);
  if (property.name == "N") return {written[0], written[1], written[2], written[3], written[4]};
  if (property.name == "ORG") return {written[0], written[1]};
  const std::string text = cardText(property.value);
  if (property.name == "BDAY") return {birthday(text)};
  return {withoutScheme(text)};
}

/// The cells of one card.
class Card {
 public:
  Card() : cells_(allHeadings().size()) {}

  /// False when no column takes it.
  bool take(const CardProperty& property) {
    const Parts parts = partsOf(property);
    const bool hasValue =
        std::ranges::any_of(parts, [](const auto& part) { return !part.empty(); });
    for (const CardColumns& row : cardColumns)
      if (hasValue && !property.isBinary && isFor(row, property)) return put(row, parts);
    return property.value.find_first_not_of("; ") == property.value.npos;
  }

  const std::string& operator[](std::string_view heading) const { return cells_[placeOf(heading)]; }
  std::vector<std::string> takeCells() { return std::move(cells_); }

 private:
  static std::size_t placeOf(std::string_view heading) {
    const auto found = std::ranges::find(allHeadings(), heading);
    return static_cast<std::size_t>(found - allHeadings().begin());
  }

  bool isFor(const CardColumns& row, const CardProperty& property) const {
    const bool isOfTypes = std::ranges::all_of(row.types, [&](std::string_view type) {
      return type.empty() || property.types.contains(std::string(type));
    });
    return row.property == property.name && isOfTypes &&
           std::ranges::all_of(row.headings, [&](std::string_view heading) {
             return heading.empty() || (*this)[heading].empty();
           });
  }

  bool put(const CardColumns& row, const Parts& parts) {
    std::string_view heading = row.headings[0];
    if (heading.empty()) return false;
    for (std::size_t i = 0; i < parts.size(); ++i) {
      if (!row.headings[i].empty()) heading = row.headings[i];
      std::string& target = cells_[placeOf(heading)];
      target += (target.empty() || parts[i].empty() ? "" : ", ") + parts[i];
    }
    return true;
  }

  std::vector<std::string> cells_;
};

bool isSaidToBe(const CardProperty& property, std::string_view name, std::string_view value) {
  return property.name == name && equalIgnoreCase(trim(property.value), value);
}

bool isOfCompany(const std::vector<CardProperty>& properties, const Card& card) {
  const bool isSaid = std::ranges::any_of(properties, [](const CardProperty& each) {
    return isSaidToBe(each, "KIND", "org") || isSaidToBe(each, "X-ABSHOWAS", "COMPANY");
  });
  const bool isNamedSo = card["First Name"].empty() && card["Last Name"].empty() &&
                         !card["Company"].empty() && card["Name"] == card["Company"];
  return isSaid || isNamedSo;
}

}  // namespace

CardReader::CardReader(TextFile file) : cards_(std::move(file), "VCARD") {}

bool CardReader::next(FileRecord& record) {
  record = {};
  if (!std::exchange(hasToldHeadings_, true)) {
    record.cells = allHeadings();
    return true;
  }
  TextBlock block;
  if (!cards_.next(block)) return false;
  readCard(block, record);
  return true;
}

void CardReader::readCard(const TextBlock& block, FileRecord& record) {
  const std::vector<CardProperty> properties = propertiesOf(block);
  Card card;
  for (const CardProperty& property : properties) {
    const bool isSilent =
        std::ranges::find(silentProperties, property.name) != silentProperties.end();
    if (!isSilent && !card.take(property)) leftOut_.insert(property.name);
  }
  record.line = block.line;
  if (isOfCompany(properties, card)) record.fault = "it is a company's card, and no person's";
  record.cells = card.takeCells();
}

std::vector<std::string> CardReader::leftOut() const {
  return {leftOut_.begin(), leftOut_.end()};
}

}  // namespace autonotify::host
