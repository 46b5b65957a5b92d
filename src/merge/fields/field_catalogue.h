#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace autonotify {

// The merge fields as data: which exist, in which order, and what each is called. A block is what
// one procedure of clsInsertFieldsInRTB adds to the field list; a block is made of parts.

/// How a value becomes text; column 4 of the field list.
enum class FieldType : std::int16_t {
  text = 1,
  date = 2,
  time = 3,
  currency = 4,
  yesNo = 5,
  duration = 6,  ///< in hours
  documentsList = 7,
};

/// Bits that a field asks for. The field exists where the installation and the use of the list have
/// all of them.
namespace field_condition {
using Set = unsigned;
inline constexpr Set always = 0;
inline constexpr Set canada = 1;
inline constexpr Set elsewhere = 2;
inline constexpr Set assigning = 4;   ///< MergeFieldListUse is 3
inline constexpr Set merging = 8;     ///< MergeFieldListUse is not 3
inline constexpr Set withNotes = 16;  ///< MergeFieldListUse is not 4
inline constexpr Set quebec = 32;
inline constexpr Set notQuebec = 64;
inline constexpr Set ontario = 128;
}  // namespace field_condition

/// A word of the installation that stands ahead of a display name.
enum class InstallationLabel { none, federalTax, salesTax, safetyBoard, province };

/// The year that is added to the sample of a date field.
enum class SampleYear { none, current, previous };

/// Length of a field without a limit, and of one whose length is not told.
inline constexpr std::int16_t unlimited = -1;
inline constexpr std::int16_t untold = 0;

struct FieldDefinition {
  std::string_view displayName;
  std::string_view column;
  std::string_view sample;
  std::int16_t length = untold;
  FieldType type = FieldType::text;
  field_condition::Set when = field_condition::always;
  InstallationLabel label = InstallationLabel::none;
  SampleYear sampleYear = SampleYear::none;
  std::string_view group = {};  ///< empty: the group of the block
};

/// Five fields that the firm names itself, in one row of a table of labels.
struct CustomFields {
  std::string_view labelTable;
  std::string_view labelColumn;  ///< ahead of the number 1 to 5
  std::string_view defaultName;  ///< ahead of the number; for a label that the firm never set
  std::string_view column;       ///< ahead of the number
};

/// Rows with the same words ahead of their names, or five custom fields, or a header.
struct FieldPart {
  std::span<const FieldDefinition> rows = {};
  std::string_view displayPrefix = {};
  std::string_view columnPrefix = {};
  const CustomFields* custom = nullptr;
  std::string_view header = {};  ///< stands in the list box alone
};

struct FieldBlock {
  std::string_view group;
  std::span<const FieldPart> parts;
};

extern const FieldBlock contactNameBlock;
extern const FieldBlock accountingBlock;
extern const FieldBlock softwareBlock;
extern const FieldBlock contactBlock;
extern const FieldBlock companyBlock;
extern const FieldBlock appointmentBlock;
extern const FieldBlock taskBlock;  ///< with the task's calendar entry
extern const FieldBlock timeEntryBlock;
extern const FieldBlock firmBlock;

}  // namespace autonotify
