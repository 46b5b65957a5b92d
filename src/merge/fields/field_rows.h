#pragma once

#include "merge/fields/field_catalogue.h"

/// The vocabulary in which the catalogue is written: each function makes one field.
namespace autonotify::field_rows {

using namespace field_condition;

constexpr FieldDefinition text(std::string_view displayName, std::string_view column,
                               std::string_view sample, std::int16_t length, Set when = always) {
  return {displayName, column, sample, length, FieldType::text, when};
}

constexpr FieldDefinition typed(FieldType type, std::string_view displayName,
                                std::string_view column, std::string_view sample) {
  return {displayName, column, sample, untold, type};
}

constexpr FieldDefinition time(std::string_view displayName, std::string_view column,
                               std::string_view sample) {
  return typed(FieldType::time, displayName, column, sample);
}
constexpr FieldDefinition yesNo(std::string_view displayName, std::string_view column,
                                std::string_view sample = "Yes") {
  return typed(FieldType::yesNo, displayName, column, sample);
}
constexpr FieldDefinition duration(std::string_view displayName, std::string_view column) {
  return typed(FieldType::duration, displayName, column, "1 hr 30 min");
}
constexpr FieldDefinition currency(std::string_view displayName, std::string_view column) {
  return typed(FieldType::currency, displayName, column, "$225.00");
}

/// `sample` lacks the year, unless `year` is none.
constexpr FieldDefinition date(std::string_view displayName, std::string_view column,
                               std::string_view sample, SampleYear year, Set when = always) {
  FieldDefinition field = typed(FieldType::date, displayName, column, sample);
  field.sampleYear = year;
  field.when = when;
  return field;
}

constexpr FieldDefinition labelled(InstallationLabel label, FieldDefinition field) {
  field.label = label;
  return field;
}

constexpr FieldDefinition inGroup(std::string_view group, FieldDefinition field) {
  field.group = group;
  return field;
}

}  // namespace autonotify::field_rows
