#include "merge/fields/field_sections.h"

#include "contract/tags.h"

namespace autonotify {
namespace {

using namespace field_list_type;

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"clsInsertFieldsInRTB", name>;

constexpr unsigned typeBits(auto... types) {
  return ((1U << types) | ...);
}
constexpr unsigned aboutItems = typeBits(noItem, appointment, timeEntry, task);
constexpr unsigned withCompany = aboutItems | typeBits(client);
constexpr unsigned withContact = withCompany | typeBits(contact);

/// One block of the list under its header.
struct FieldSection {
  unsigned listTypes;
  const char* header;
  std::string_view tag;
  const FieldBlock& block;
  bool needsCompany = false;

  bool isFor(int listType, Id companyID) const {
    return listType >= 0 && listType < 32 && (listTypes & (1U << listType)) &&
           (!needsCompany || companyID >= 0);
  }
};

constexpr std::string_view companyTag = tagOf<"createCompanyInfoFieldListStructure">;
constexpr std::string_view contactNameTag = tagOf<"createContactNameFieldListStructure">;

constexpr FieldSection sections[] = {
    {typeBits(appointment), "[Appointment Info]", tagOf<"createAppointmentInfoFieldListStructure">,
     appointmentBlock},
    {typeBits(task), "[Task Info]", tagOf<"createTaskInfoFieldListStructure">, taskBlock},
    {typeBits(timeEntry), "[Time Entry Info]", tagOf<"createDocketInfoFieldListStructure">,
     timeEntryBlock},
    {withCompany, "[Company Address Info]", companyTag, companyBlock},
    {aboutItems, "[Default Contact Name]", contactNameTag, contactNameBlock},
    {typeBits(client, contact), "[Contact Name]", contactNameTag, contactNameBlock},
    {withCompany, "[Company Accounting Info]", tagOf<"createAccountingFieldListStructure">,
     accountingBlock},
    {withCompany, "[Company Software Info]", tagOf<"createSoftwareFieldListStructure">,
     softwareBlock},
    {withContact, "[More Contact Info]", tagOf<"createContactInfoFieldListStructure">,
     contactBlock},
    {typeBits(contact), "[Company Info]", companyTag, companyBlock, true},
};

}  // namespace

void addFieldBlock(std::string_view tag, const FieldListTarget& target, const FieldBlock& block) {
  procedure(tag, [&](Step& step) { FieldListBuilder(step, target).addBlock(block); });
}

void addFieldSections(Step& step, const FieldListTarget& target, int listType, Id companyID) {
  bool isFirst = true;
  for (const FieldSection& section : sections) {
    if (!section.isFor(listType, companyID)) continue;
    if (target.box && target.hasHeaders)
      addListBoxHeader(step, *target.box, section.header, isFirst);
    isFirst = false;
    addFieldBlock(section.tag, target, section.block);
  }
}

}  // namespace autonotify
