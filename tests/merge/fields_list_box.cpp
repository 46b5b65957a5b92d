#include <gmock/gmock.h>

#include <algorithm>

#include "fields_host.h"

namespace autonotify::test {
namespace {

class FieldsListBox : public FieldsHost {
 protected:
  FieldsListBox() {
    merge->listBox = &box;
    merge->listBox2 = &firmBox;
  }

  /// The lines that stand for no field, as text.
  std::vector<std::string> linesWithoutField() {
    std::vector<std::string> lines;
    for (const ListBox::Entry& entry : box.entries())
      if (entry.itemData == -1) lines.push_back(entry.text);
    return lines;
  }

  ListBox box;
  ListBox firmBox;
};

TEST_F(FieldsListBox, HeadersStandAheadOfTheirBlocks) {
  build(8);
  EXPECT_EQ(linesWithoutField(), (std::vector<std::string>{
                                     "[Task Info]", "", "[Task Info]", "", "[Company Address Info]",
                                     "", "[Default Contact Name]", "", "[Company Accounting Info]",
                                     "", "[Company Software Info]", "", "[More Contact Info]"}));
  const auto& entries = box.entries();
  EXPECT_EQ(entries[1].text, "Task Name");
  EXPECT_EQ(entries[1].itemData, 1);
  EXPECT_EQ(entries[26].text, "");
  EXPECT_EQ(entries[27].text, "[Task Info]");
  EXPECT_EQ(entries[28].text, "Task Subject");
  EXPECT_EQ(entries[28].itemData, 26);
}

TEST_F(FieldsListBox, EveryFamilyHasItsHeaders) {
  const std::pair<int, std::vector<std::string>> cases[] = {
      {0, {}},
      {1,
       {"[Company Address Info]", "", "[Default Contact Name]", "", "[Company Accounting Info]", "",
        "[Company Software Info]", "", "[More Contact Info]"}},
      {2,
       {"[Company Address Info]", "", "[Contact Name]", "", "[Company Accounting Info]", "",
        "[Company Software Info]", "", "[More Contact Info]"}},
      {3, {"[Contact Name]", "", "[More Contact Info]", "", "[Company Info]"}},
      {5,
       {"[Appointment Info]", "", "[Company Address Info]", "", "[Default Contact Name]", "",
        "[Company Accounting Info]", "", "[Company Software Info]", "", "[More Contact Info]"}},
      {6,
       {"[Time Entry Info]", "", "[Company Address Info]", "", "[Default Contact Name]", "",
        "[Company Accounting Info]", "", "[Company Software Info]", "", "[More Contact Info]"}},
  };
  merge->companyID = 4;
  for (const auto& [listType, lines] : cases) {
    build(listType);
    EXPECT_EQ(linesWithoutField(), lines) << listType;
  }
}

TEST_F(FieldsListBox, EntriesLeadToTheirRows) {
  const std::size_t count = build(6).size();
  std::vector<ListBox::Entry> entries = box.entries();
  const auto& firm = firmBox.entries();
  ASSERT_EQ(firm[0].text, "Insert your Letterhead");
  ASSERT_EQ(firm[0].itemData, -1);
  EXPECT_EQ(firm.size(), 19U);
  entries.insert(entries.end(), firm.begin() + 1, firm.end());
  GridColumnList& list = *merge->get_FieldList();
  int expectedKey = 0;
  for (const ListBox::Entry& entry : entries) {
    if (entry.itemData == -1) continue;
    EXPECT_EQ(entry.itemData, ++expectedKey);
    ASSERT_TRUE(list.selectEntry(entry.itemData));
    EXPECT_EQ(toText(list.getItem(displayNameColumn)), entry.text);
  }
  EXPECT_EQ(expectedKey, static_cast<int>(count));
}

TEST_F(FieldsListBox, ListsWithoutHeaders) {
  build(8, 5);
  EXPECT_THAT(linesWithoutField(), testing::IsEmpty());
  build(8, 3);
  EXPECT_EQ(linesWithoutField(), std::vector<std::string>{"Not Assigned"});
  EXPECT_EQ(box.entries()[0].text, "Not Assigned");
  merge->put_MergeFieldListUse(1);
  EXPECT_FALSE(merge->ShowListCategoryHeaders) << "stays off once a use switched it off";
}

TEST_F(FieldsListBox, ClearingIsAsked) {
  merge->ListType = 0;
  bool noListBox = true;
  bool clearListBox = false;
  box.addItem("kept");
  firmBox.addItem("gone");
  int refreshes = 0;
  box.onRefresh = [&] { ++refreshes; };
  merge->createDefaultFieldListStructure(noListBox, clearListBox);
  EXPECT_FALSE(noListBox);
  EXPECT_EQ(refreshes, 1);
  EXPECT_EQ(box.entries().at(0).text, "kept");
  EXPECT_EQ(firmBox.entries().at(0).text, "Insert your Letterhead");
  clearListBox = true;
  merge->createDefaultFieldListStructure(noListBox, clearListBox);
  EXPECT_TRUE(box.entries().empty());
  merge->createAccountantFieldListStructure(false, false);
  EXPECT_EQ(firmBox.entries().size(), 2 * 19U);
  merge->createAccountantFieldListStructure(true, true);
  EXPECT_EQ(firmBox.entries().size(), 2 * 19U);
}

TEST_F(FieldsListBox, WithoutAListBoxTheCallerLearnsSo) {
  merge->listBox = nullptr;
  merge->listBox2 = nullptr;
  bool noListBox = false;
  bool clearListBox = true;
  merge->createDefaultFieldListStructure(noListBox, clearListBox);
  EXPECT_TRUE(noListBox);
  EXPECT_TRUE(clearListBox);
  EXPECT_EQ(merge->get_FieldList()->getEntryCount(), 18);
}

TEST_F(FieldsListBox, ASingleBlockCanBeLeftOutOfTheBox) {
  merge->createTaskInfoFieldListStructure(*merge->get_FieldList(), true);
  EXPECT_EQ(merge->get_FieldList()->getEntryCount(), 35);
  EXPECT_TRUE(box.entries().empty());
  merge->createDocketInfoFieldListStructure(*merge->get_FieldList(), false);
  EXPECT_EQ(box.entries().size(), 34U);
  EXPECT_EQ(box.entries()[0].itemData, 36);
}

struct PopulationCase {
  Id clsInsertFieldsInRTB::*id;
  int listType;
};

TEST_F(FieldsListBox, AnEmptyListIsBuiltForTheFirstIdThatIsSet) {
  constexpr PopulationCase cases[] = {
      {&clsInsertFieldsInRTB::contactID, 2},     {&clsInsertFieldsInRTB::companyID, 2},
      {&clsInsertFieldsInRTB::docketId, 6},      {&clsInsertFieldsInRTB::taskID, 8},
      {&clsInsertFieldsInRTB::appointmentID, 5},
  };
  for (const PopulationCase& next : cases) {
    // The ids set before stay set: each case outranks the ones above it.
    (*merge).*next.id = 0;
    merge->get_FieldList()->clearEntries();
    EXPECT_FALSE(merge->verifyFieldListIsPopulated());
    EXPECT_EQ(merge->ListType, next.listType);
    EXPECT_GT(merge->get_FieldList()->getEntryCount(), 18);
    EXPECT_TRUE(merge->verifyFieldListIsPopulated());
  }
  EXPECT_TRUE(box.entries().empty());
  EXPECT_TRUE(firmBox.entries().empty());
  EXPECT_EQ(merge->listBox, &box);
}

TEST_F(FieldsListBox, WithoutIdsTheFamilyStays) {
  merge->ListType = 1;
  EXPECT_FALSE(merge->verifyFieldListIsPopulated());
  EXPECT_EQ(merge->ListType, 1);
  EXPECT_EQ(merge->get_FieldList()->getEntryCount(), 169);
}

TEST_F(FieldsListBox, AReleasedListIsAnErrorOfTheCall) {
  merge->Terminate();
  errors.answer({error_choice::next, error_choice::leave});
  bool noListBox = true;
  bool clearListBox = true;
  merge->createDefaultFieldListStructure(noListBox, clearListBox);
  EXPECT_FALSE(noListBox);
  EXPECT_FALSE(merge->verifyFieldListIsPopulated());
  EXPECT_EQ(errors.recorded().at(0).number, error_number::objectNotSet);
}

}  // namespace
}  // namespace autonotify::test
