#include <utility>

#include "contract/tags.h"
#include "merge/clsInsertFieldsInRTB.h"
#include "merge/fields/field_sections.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"clsInsertFieldsInRTB", name>;

/// The first id that is set tells the family of fields; without any, it stays.
void chooseListTypeByIds(clsInsertFieldsInRTB& fields) {
  using namespace field_list_type;
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
  procedure(tagOf<"createDefaultFieldListStructure">, [&](Step& step) {
    noListBox = listBox == nullptr;
    FieldCursor(step, fieldList_).clear();
    fieldRowCount_ = 0;
    if (listBox && clearListBox) step.run(&ListBox::clear, listBox);
    if (listBox && mergeFieldListUse_ == field_list_use::assigning)
      addListBoxLine(step, *listBox, "Not Assigned");
    if (fieldList_) addFieldSections(step, ownTarget(listBox), ListType, companyID);
    if (listBox) step.run(&ListBox::refresh, listBox);
    createAccountantFieldListStructure(false, true);
  });
}

void clsInsertFieldsInRTB::createCompanyInfoFieldListStructure(GridColumnList& list,
                                                               bool noListBox) {
  addFieldBlock(tagOf<"createCompanyInfoFieldListStructure">, targetOf(list, noListBox),
                companyBlock);
}

void clsInsertFieldsInRTB::createAppointmentInfoFieldListStructure(GridColumnList& list,
                                                                   bool noListBox) {
  addFieldBlock(tagOf<"createAppointmentInfoFieldListStructure">, targetOf(list, noListBox),
                appointmentBlock);
}

void clsInsertFieldsInRTB::createTaskInfoFieldListStructure(GridColumnList& list, bool noListBox) {
  addFieldBlock(tagOf<"createTaskInfoFieldListStructure">, targetOf(list, noListBox), taskBlock);
}

void clsInsertFieldsInRTB::createDocketInfoFieldListStructure(GridColumnList& list,
                                                              bool noListBox) {
  addFieldBlock(tagOf<"createDocketInfoFieldListStructure">, targetOf(list, noListBox),
                timeEntryBlock);
}

void clsInsertFieldsInRTB::createAccountantFieldListStructure(bool noListBox, bool clearListBox) {
  procedure(tagOf<"createAccountantFieldListStructure">, [&](Step& step) {
    if (!fieldList_) return;
    ListBox* const box = noListBox ? nullptr : listBox2;
    if (box && clearListBox) step.run(&ListBox::clear, box);
    if (box) addListBoxLine(step, *box, "Insert your Letterhead");
    FieldListBuilder(step, ownTarget(box)).addBlock(firmBlock);
  });
}

bool clsInsertFieldsInRTB::verifyFieldListIsPopulated() {
  return procedure(tagOf<"verifyFieldListIsPopulated">, false, [&](Step& step, bool& result) {
    result = FieldCursor(step, fieldList_).count() > 0;
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
