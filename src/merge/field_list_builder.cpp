#include "merge/field_list_builder.h"

#include <map>
#include <vector>

#include "control/contract/enumerations.h"
#include "control/contract/recordsets.h"
#include "control/contract/references.h"
#include "merge/field_list_columns.h"
#include "merge/province_terms.h"

namespace autonotify {
namespace {

constexpr std::size_t columnCount = field_column::length;
using FieldItems = std::array<Value, columnCount>;

constexpr std::size_t displayNameItem = field_column::displayName - 1;
constexpr std::size_t sampleItem = field_column::sample - 1;

FieldItems itemsOf(const std::string& displayName, const std::string& column,
                   std::string_view group, FieldType type, std::string_view sample,
                   std::int16_t length) {
  return {Value(column),
          Value(displayName),
          Value(std::string(group)),
          Value(static_cast<std::int16_t>(type)),
          Value(std::string(sample)),
          length == untold ? Value() : Value(length)};
}

struct PreparedField {
  const FieldDefinition* field;
  FieldItems items;
};

std::vector<PreparedField> prepare(const FieldPart& part, std::string_view blockGroup) {
  std::vector<PreparedField> fields;
  fields.reserve(part.rows.size());
  for (const FieldDefinition& row : part.rows) {
    fields.push_back({&row, itemsOf(std::string(part.displayPrefix).append(row.displayName),
                                    std::string(part.columnPrefix).append(row.column),
                                    row.group.empty() ? blockGroup : row.group, row.type,
                                    row.sample, row.length)});
  }
  return fields;
}

/// The part's rows as the list takes them, made once per process.
const std::vector<PreparedField>& preparedFields(const FieldPart& part, std::string_view group) {
  static std::map<const FieldPart*, std::vector<PreparedField>> parts;
  const auto known = parts.find(&part);
  if (known != parts.end()) return known->second;
  return parts.emplace(&part, prepare(part, group)).first->second;
}

std::string federalTaxWord(FederalTax tax, DateTime today) {
  const bool harmonized = tax == FederalTax::hst || (tax == FederalTax::hstSinceHarmonization &&
                                                     today.dateOnly() >= harmonizedSince());
  return harmonized ? "HST" : "GST";
}

std::string numbered(std::string_view stem, int number) {
  return std::string(stem).append(std::to_string(number));
}

std::string labelSql(const CustomFields& custom) {
  const std::string table(custom.labelTable);
  std::string sql = "SELECT ";
  for (int number = 1; number <= 5; ++number) {
    if (number > 1) sql += ", ";
    sql += table + "." + numbered(custom.labelColumn, number);
  }
  return sql + " FROM " + table + ";";
}

/// An unset label counts as one that the firm never changed: a field without a name would claim the
/// empty token.
std::string customName(std::string label, int number, const std::string& defaultName) {
  if (label.ends_with(':')) label.pop_back();
  return label.empty() || label == numbered("Custom ", number) ? defaultName : label;
}

}  // namespace

field_condition::Set FieldListSetting::conditions() const {
  using namespace field_condition;
  return (country == countryCanada ? canada : elsewhere) |
         (mergeFieldListUse == 3 ? assigning : merging) |
         (mergeFieldListUse == 4 ? always : withNotes) |
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
  for (const FieldPart& part : block.parts) {
    if (!part.header.empty()) {
      if (target_.box && target_.hasHeaders) addListBoxHeader(*target_.box, part.header, false);
    } else if (part.custom) {
      addCustomFields(*part.custom, block.group);
    } else {
      addFields(part, block.group);
    }
  }
}

void FieldListBuilder::addFields(const FieldPart& part, std::string_view group) {
  const field_condition::Set holding = setting_.conditions();
  for (const PreparedField& prepared : preparedFields(part, group)) {
    const FieldDefinition& field = *prepared.field;
    if (field.when & ~holding) continue;
    const std::size_t count = field.length == untold ? columnCount - 1 : columnCount;
    if (field.label == InstallationLabel::none && field.sampleYear == SampleYear::none) {
      addRow(std::span(prepared.items).first(count));
      continue;
    }
    FieldItems items = prepared.items;
    items[displayNameItem] = setting_.wordFor(field.label) + toText(items[displayNameItem]);
    if (field.sampleYear != SampleYear::none) {
      const int year = setting_.today.year() - (field.sampleYear == SampleYear::previous ? 1 : 0);
      items[sampleItem] = numbered(field.sample, year);
    }
    addRow(std::span(items).first(count));
  }
}

void FieldListBuilder::addCustomFields(const CustomFields& custom, std::string_view group) {
  constexpr std::int16_t customLength = 50;
  const std::array<std::string, 5> names = customNames(custom);
  for (int number = 1; number <= 5; ++number) {
    addRow(itemsOf(names[static_cast<std::size_t>(number - 1)], numbered(custom.column, number),
                   group, FieldType::text, numbered("Custom Info ", number), customLength));
  }
}

std::array<std::string, 5> FieldListBuilder::customNames(const CustomFields& custom) {
  std::array<std::string, 5> names;
  for (int number = 1; number <= 5; ++number)
    names[static_cast<std::size_t>(number - 1)] = numbered(custom.defaultName, number);
  if (!isDatabaseOpen(step_)) return names;
  withFirstRow(step_, labelSql(custom), keysetRead, [&](RecordsetHandle handle) {
    for (int number = 1; number <= 5; ++number) {
      std::string& name = names[static_cast<std::size_t>(number - 1)];
      const std::string column = numbered(custom.labelColumn, number);
      name = customName(readText(step_, handle, column.c_str()), number, name);
    }
  });
  return names;
}

void FieldListBuilder::addRow(std::span<const Value> items) {
  const int key = ++target_.rowCount;
  step_.run([&] { target_.list.addEntry(Value(key), items); });
  if (target_.box) addListBoxLine(*target_.box, toText(items[displayNameItem]), key);
}

void addListBoxLine(ListBox& box, const std::string& text, int itemData) {
  box.addItem(text);
  box.setItemData(box.newIndex(), itemData);
}

void addListBoxHeader(ListBox& box, std::string_view header, bool isFirst) {
  if (!isFirst) addListBoxLine(box, "");
  addListBoxLine(box, std::string(header));
}

}  // namespace autonotify
