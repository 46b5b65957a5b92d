#include <utility>

#include "contract/procedure.h"
#include "merge/clsInsertFieldsInRTB.h"
#include "merge/fields/field_list_builder.h"

namespace autonotify {
namespace {

using namespace field_list_type;

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
  const char* procedureTag;
  const FieldBlock& block;
  bool needsCompany = false;

  bool isFor(int listType, Id companyID) const {
    return listType >= 0 && listType < 32 && (listTypes & (1U << listType)) &&
           (!needsCompany || companyID >= 0);
  }
};

constexpr const char* companyTag =
    "Morvane.exe-clsInsertFieldsInRTB-createCompanyInfoFieldListStructure";
constexpr const char* appointmentTag =
    "Morvane.exe-clsInsertFieldsInRTB-createAppointmentInfoFieldListStructure";
constexpr const char* taskTag = "Morvane.exe-clsInsertFieldsInRTB-createTaskInfoFieldListStructure";
constexpr const char* docketTag =
    "Morvane.exe-clsInsertFieldsInRTB-createDocketInfoFieldListStructure";
constexpr const char* contactNameTag =
    "Morvane.exe-clsInsertFieldsInRTB-createContactNameFieldListStructure";
constexpr const char* accountingTag =
    "Morvane.exe-clsInsertFieldsInRTB-createAccountingFieldListStructure";
constexpr const char* softwareTag =
    "Morvane.exe-clsInsertFieldsInRTB-createSoftwareFieldListStructure";
constexpr const char* contactTag =
    "Morvane.exe-clsInsertFieldsInRTB-createContactInfoFieldListStructure";

constexpr FieldSection sections[] = {
    {typeBits(appointment), "[Appointment Info]", appointmentTag, appointmentBlock},
    {typeBits(task), "[Task Info]", taskTag, taskBlock},
    {typeBits(timeEntry), "[Time Entry Info]", docketTag, timeEntryBlock},
    {withCompany, "[Company Address Info]", companyTag, companyBlock},
    {aboutItems, "[Default Contact Name]", contactNameTag, contactNameBlock},
    {typeBits(client, contact), "[Contact Name]", contactNameTag, contactNameBlock},
    {withCompany, "[Company Accounting Info]", accountingTag, accountingBlock},
    {withCompany, "[Company Software Info]", softwareTag, softwareBlock},
    {withContact, "[More Contact Info]", contactTag, contactBlock},
    {typeBits(contact), "[Company Info]", companyTag, companyBlock, true},
};

void addFieldBlock(const char* tag, const FieldListTarget& target, const FieldBlock& block) {
  procedure(tag, [&](Step& step) { FieldListBuilder(step, target).addBlock(block); });
}

void addFieldSections(const FieldListTarget& target, int listType, Id companyID) {
  bool isFirst = true;
  for (const FieldSection& section : sections) {
    if (!section.isFor(listType, companyID)) continue;
    if (target.box && target.hasHeaders) addListBoxHeader(*target.box, section.header, isFirst);
    isFirst = false;
    addFieldBlock(section.procedureTag, target, section.block);
  }
}

/// The first id that is set tells the family of fields; without any, it stays.
void chooseListTypeByIds(clsInsertFieldsInRTB& fields) {
  if (fields.appointmentID >= 0) {
    fields.ListType = appointment;
  } else if (fields.taskID >= 0) {
    fields.ListType = task;
  } else if (fields.docketId >= 0) {
    fields.ListType = timeEntry;
  } else if (fields.companyID >= 0 || fields.contactID >= 0) {
    fields.ListType = client;
  }
}

/// Takes the list boxes away from their owner for a while.
class ListBoxesDetached {
 public:
  explicit ListBoxesDetached(clsInsertFieldsInRTB& owner)
      : owner_(owner),
        listBox_(std::exchange(owner.listBox, nullptr)),
        listBox2_(std::exchange(owner.listBox2, nullptr)) {}
  ~ListBoxesDetached() {
    owner_.listBox = listBox_;
    owner_.listBox2 = listBox2_;
  }
  ListBoxesDetached(const ListBoxesDetached&) = delete;
  ListBoxesDetached& operator=(const ListBoxesDetached&) = delete;

 private:
  clsInsertFieldsInRTB& owner_;
  ListBox* listBox_;
  ListBox* listBox2_;
};

}  // namespace

FieldListTarget clsInsertFieldsInRTB::ownTarget(ListBox* box) {
  return {[this](Step& step, const SharedFieldRows& rows, int firstKey) {
            fieldList_->addRows(step, rows, firstKey);
          },
          box, ShowListCategoryHeaders, fieldRowCount_, mergeFieldListUse_};
}

FieldListTarget clsInsertFieldsInRTB::targetOf(GridColumnList& list, bool noListBox) {
  return {[&list](Step& step, const SharedFieldRows& rows, int firstKey) {
            addRowsTo(step, list, *rows, firstKey);
          },
          noListBox ? nullptr : listBox, ShowListCategoryHeaders, fieldRowCount_,
          mergeFieldListUse_};
}

void clsInsertFieldsInRTB::createDefaultFieldListStructure(bool& noListBox, bool& clearListBox) {
  procedure("Morvane.exe-clsInsertFieldsInRTB-createDefaultFieldListStructure", [&](Step& step) {
    noListBox = listBox == nullptr;
    step.run([&] { fields().clearEntries(); });
    fieldRowCount_ = 0;
    if (listBox && clearListBox) listBox->clear();
    if (listBox && mergeFieldListUse_ == field_list_use::assigning)
      addListBoxLine(*listBox, "Not Assigned");
    if (fieldList_) addFieldSections(ownTarget(listBox), ListType, companyID);
    if (listBox) step.run([&] { listBox->refresh(); });
    createAccountantFieldListStructure(false, true);
  });
}

void clsInsertFieldsInRTB::createCompanyInfoFieldListStructure(GridColumnList& list,
                                                               bool noListBox) {
  addFieldBlock(companyTag, targetOf(list, noListBox), companyBlock);
}

void clsInsertFieldsInRTB::createAppointmentInfoFieldListStructure(GridColumnList& list,
                                                                   bool noListBox) {
  addFieldBlock(appointmentTag, targetOf(list, noListBox), appointmentBlock);
}

void clsInsertFieldsInRTB::createTaskInfoFieldListStructure(GridColumnList& list, bool noListBox) {
  addFieldBlock(taskTag, targetOf(list, noListBox), taskBlock);
}

void clsInsertFieldsInRTB::createDocketInfoFieldListStructure(GridColumnList& list,
                                                              bool noListBox) {
  addFieldBlock(docketTag, targetOf(list, noListBox), timeEntryBlock);
}

void clsInsertFieldsInRTB::createAccountantFieldListStructure(bool noListBox, bool clearListBox) {
  procedure("Morvane.exe-clsInsertFieldsInRTB-createAccountantFieldListStructure", [&](Step& step) {
    if (!fieldList_) return;
    ListBox* const box = noListBox ? nullptr : listBox2;
    if (box && clearListBox) box->clear();
    if (box) addListBoxLine(*box, "Insert your Letterhead");
    FieldListBuilder(step, ownTarget(box)).addBlock(firmBlock);
  });
}

bool clsInsertFieldsInRTB::verifyFieldListIsPopulated() {
  return procedure("Morvane.exe-clsInsertFieldsInRTB-verifyFieldListIsPopulated", false,
                   [&](Step& step, bool& result) {
                     const int count = step.value(0, [&] { return fields().getEntryCount(); });
                     result = count > 0;
                     if (result) return;
                     chooseListTypeByIds(*this);
                     createFieldListWithoutListBoxes();
                   });
}

void clsInsertFieldsInRTB::createFieldListWithoutListBoxes() {
  const ListBoxesDetached detached(*this);
  bool noListBox = true;
  bool clearListBox = false;
  createDefaultFieldListStructure(noListBox, clearListBox);
}

}  // namespace autonotify
