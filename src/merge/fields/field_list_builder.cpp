#include "merge/fields/field_list_builder.h"

#include <map>
#include <utility>

#include "contract/enumerations.h"
#include "contract/rows.h"
#include "contract/windows.h"
#include "merge/fields/field_list_columns.h"
#include "merge/fields/recent_entries.h"
#include "merge/templates/province_terms.h"

namespace autonotify {
namespace {

/// Enough for the parts of the catalogue under a few settings, and a few firms' labels.
constexpr std::size_t keptParts = 64;

FieldRow rowOf(const std::string& displayName, const std::string& column, std::string_view group,
               FieldType type, const std::string& sample, std::int16_t length) {
  const bool hasLength = length != untold;
  return {
      {Value(column), Value(displayName), Value(std::string(group)),
       Value(static_cast<std::int16_t>(type)), Value(sample), hasLength ? Value(length) : Value()},
      hasLength ? std::size_t{field_column::length} : std::size_t{field_column::sample},
      planField(type, column, group)};
}

std::string federalTaxWord(FederalTax tax, DateTime today) {
  const bool harmonized = tax == FederalTax::hst || (tax == FederalTax::hstSinceHarmonization &&
                                                     today.dateOnly() >= harmonizedSince());
  return harmonized ? "HST" : "GST";
}

std::string numbered(std::string_view stem, int number) {
  return std::string(stem).append(std::to_string(number));
}

using FiveTexts = std::array<std::string, 5>;

FiveTexts fiveNumbered(std::string_view stem) {
  FiveTexts texts;
  for (std::size_t i = 0; i < texts.size(); ++i) texts[i] = numbered(stem, static_cast<int>(i) + 1);
  return texts;
}

/// Where the firm's labels of five custom fields stand, and what they are called without one.
struct CustomLabels {
  explicit CustomLabels(const CustomFields& custom)
      : columns(fiveNumbered(custom.labelColumn)), defaults(fiveNumbered(custom.defaultName)) {
    const std::string table(custom.labelTable);
    for (const std::string& column : columns) {
      sql += sql.empty() ? "SELECT " : ", ";
      sql.append(table).append(".").append(column);
    }
    sql.append(" FROM ").append(table).append(";");
  }
  FiveTexts columns;
  FiveTexts defaults;
  std::string sql;
};

const CustomLabels& labelsOf(const CustomFields& custom) {
  static std::map<const CustomFields*, CustomLabels> made;
  return made.try_emplace(&custom, custom).first->second;
}

/// An unset label counts as one that the firm never changed: a field without a name would claim the
/// empty token.
bool isUnset(std::string_view label, std::size_t place) {
  static const FiveTexts neverChanged = fiveNumbered("Custom ");
  return label.empty() || label == neverChanged[place];
}

SharedFieldRows customFields(const CustomFields& custom, const FiveTexts& labels,
                             std::string_view group) {
  constexpr std::int16_t customLength = 50;
  const FiveTexts& defaults = labelsOf(custom).defaults;
  auto rows = std::make_shared<FieldRows>();
  for (int number = 1; number <= 5; ++number) {
    const auto place = static_cast<std::size_t>(number - 1);
    rows->push_back(rowOf(labels[place].empty() ? defaults[place] : labels[place],
                          numbered(custom.column, number), group, FieldType::text,
                          numbered("Custom Info ", number), customLength));
  }
  return rows;
}

}  // namespace

field_condition::Set FieldListSetting::conditions() const {
  using namespace field_condition;
  return (country == countryCanada ? canada : elsewhere) |
         (mergeFieldListUse == field_list_use::assigning ? assigning : merging) |
         (mergeFieldListUse == field_list_use::withoutNotes ? always : withNotes) |
         (province == provinceQuebec ? quebec : notQuebec) |
         (usesOntarioTerms(province) ? ontario : always);
}

std::string FieldListSetting::wordFor(InstallationLabel label) const {
  const ProvinceTerms& terms = provinceTerms(province);
  switch (label) {
    case InstallationLabel::none:
      break;
    case InstallationLabel::federalTax:
      // A code without terms of its own never went over to the HST.
      return province == terms.code ? federalTaxWord(terms.federalTax, today) : "GST";
    case InstallationLabel::salesTax:
      return province == provinceQuebec ? "QST" : "PST";
    case InstallationLabel::safetyBoard:
      return std::string(terms.safetyBoard);
    case InstallationLabel::province:
      return std::string(terms.name);
  }
  return {};
}

FieldListBuilder::FieldListBuilder(Step& step, const FieldListTarget& target)
    : step_(step), target_(target) {
  setting_.mergeFieldListUse = target.mergeFieldListUse;
  step.assign(setting_.country, [] { return locale().getCountryCode(); });
  step.assign(setting_.province, [] { return locale().getProvinceCode(); });
  step.assign(setting_.today, [] { return platformClock().today(); });
}

void FieldListBuilder::addBlock(const FieldBlock& block) {
  using PartKey = std::pair<const FieldPart*, FieldListSetting>;
  static RecentEntries<PartKey, SharedFieldRows> parts(keptParts);
  using CustomKey = std::pair<const CustomFields*, FiveTexts>;
  static RecentEntries<CustomKey, SharedFieldRows> customs(keptParts);
  for (const FieldPart& part : block.parts) {
    if (!part.header.empty()) {
      if (target_.box && target_.hasHeaders)
        addListBoxHeader(step_, *target_.box, part.header, false);
    } else if (part.custom) {
      const CustomKey key{part.custom, ownLabels(*part.custom)};
      const auto make = [&] { return customFields(*part.custom, key.second, block.group); };
      add(customs.findOrMake(key, make));
    } else {
      add(parts.findOrMake({&part, setting_}, [&] { return fieldsOf(part, block.group); }));
    }
  }
}

/// The part's fields that this installation and use have, in the catalogue's order.
SharedFieldRows FieldListBuilder::fieldsOf(const FieldPart& part, std::string_view group) const {
  auto rows = std::make_shared<FieldRows>();
  const field_condition::Set holding = setting_.conditions();
  for (const FieldDefinition& field : part.rows) {
    if (field.when & ~holding) continue;
    std::string sample(field.sample);
    if (field.sampleYear != SampleYear::none) {
      const int year = setting_.today.year() - (field.sampleYear == SampleYear::previous ? 1 : 0);
      sample = numbered(field.sample, year);
    }
    rows->push_back(
        rowOf(setting_.wordFor(field.label).append(part.displayPrefix).append(field.displayName),
              std::string(part.columnPrefix).append(field.column),
              field.group.empty() ? group : field.group, field.type, sample, field.length));
  }
  return rows;
}

void FieldListBuilder::add(const SharedFieldRows& rows) {
  target_.addRows(step_, rows, target_.rowCount + 1);
  for (const FieldRow& row : *rows) {
    ++target_.rowCount;
    if (!target_.box) continue;
    const std::string name = toText(row.item(field_column::displayName));
    addListBoxLine(step_, *target_.box, name, target_.rowCount);
  }
}

std::array<std::string, 5> FieldListBuilder::ownLabels(const CustomFields& custom) {
  const CustomLabels& labels = labelsOf(custom);
  FiveTexts set;
  if (!isDatabaseOpen(step_)) return set;
  if (const Rows row(step_, labels.sql, keysetRead); row) {
    for (std::size_t i = 0; i < set.size(); ++i) {
      std::string label = row.text(labels.columns[i].c_str());
      if (label.ends_with(':')) label.pop_back();
      if (!isUnset(label, i)) set[i] = std::move(label);
    }
  }
  return set;
}

void addListBoxLine(Step& step, ListBox& box, const std::string& text, int itemData) {
  addEntry(step, box, text, itemData);
}

void addListBoxHeader(Step& step, ListBox& box, std::string_view header, bool isFirst) {
  if (!isFirst) addListBoxLine(step, box, "");
  addListBoxLine(step, box, std::string(header));
}

}  // namespace autonotify
