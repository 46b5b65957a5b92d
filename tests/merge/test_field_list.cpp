#include "merge/MergeTest.h"
#include "support/FailingDrawing.h"

namespace autonotify::test {
namespace {

using std::string;
using std::vector;
using testing::Contains;
using testing::Not;

constexpr int canada = 1, unitedStates = 2, ontario = 3;

class FieldListTest : public MergeTest {
 protected:
  FieldListTest() {
    merge->listBox = &box;
    merge->listBox2 = &firmBox;
  }

  ListBox box, firmBox;
};

TEST_F(FieldListTest, HasTheRowsOfItsFamily) {
  // Counted apart from the tables that the code is made of.
  for (const auto& row : rowsOf("rows of a list for the uses 1, 3 and 4", 6)) {
    live(std::stoi(row[1]), std::stoi(row[2]));
    for (std::size_t i = 3; const int use : {1, 3, 4})
      EXPECT_EQ(std::to_string(build(std::stoi(row[0]), use).size()), row[i++])
          << "list " << row[0] << " in " << row[1] << '/' << row[2] << " for use " << use;
  }
}

TEST_F(FieldListTest, FieldsReadTheirColumns) {
  GridColumnList& list = *merge->get_FieldList();
  for (const auto& items : rowsOf("columns of fields", 4)) {
    live(items[1].starts_with("US") ? unitedStates : canada, ontario);
    build(8);
    ASSERT_GE(list.findEntry(field_column::displayName, items[0]), 0) << items[0];
    EXPECT_EQ(toText(list.getItem(field_column::databaseField)), items[1]);
    EXPECT_EQ(toText(list.getItem(field_column::group)), items[2]);
    EXPECT_EQ(toText(list.getItem(field_column::dataType)), items[3]);
  }
  clock.set(DateTime::of(2027, 2, 3));
  build(8);
  merge->TestComment = true;
  EXPECT_EQ(print("Task Due Date|Task in-House Due Date|Period End Date"),
            "Jan 31, 2027|Jan 27, 2027|Dec 31, 2026");
}

TEST_F(FieldListTest, SpeaksTheWordsOfItsPlaceAndUse) {
  for (const auto& row : rowsOf("names of a place and use", 6)) {
    SCOPED_TRACE(row[0] + "/" + row[1]);
    live(std::stoi(row[0]), std::stoi(row[1]));
    clock.set(toDateTime(Value(row[3])));
    const vector<string> names = build(2, std::stoi(row[2]));
    for (const string& name : split(row[4])) EXPECT_THAT(names, Contains(name));
    for (const string& name : split(row[5])) EXPECT_THAT(names, Not(Contains(name)));
  }
}

TEST_F(FieldListTest, NamesFitIntoTokensAndNoTwoFieldsReadOneColumn) {
  for (const int country : {canada, unitedStates})
    for (const int listType : {5, 6, 8}) {
      live(country, ontario);
      const vector<string> names = build(listType);
      const vector<string> groups = column(field_column::group);
      const vector<string> columns = column(field_column::databaseField);
      std::set<string> read;
      for (std::size_t i = 0; i < names.size(); ++i) {
        EXPECT_EQ(names[i].find_first_of(",\xAB"), string::npos) << names[i];
        EXPECT_TRUE(!names[i].empty() && names[i].size() <= 40) << names[i];
        const string one = groups[i] + "." + columns[i];
        EXPECT_TRUE(read.insert(one).second || one == "TaskInfo.Subject") << one;
      }
      EXPECT_THAT(column(field_column::sample), Not(Contains("")));
    }
}

TEST_F(FieldListTest, LabelsNameTheCustomFields) {
  addRow("CustomFields", {});
  addRow("CustomAddressFields", {});
  std::set<string> expected;
  for (const auto& [kind, label, column] :
       casesOf<string, string, string>("labels of custom fields"))
    for (const char digit : {'1', '2', '3', '4', '5'}) {
      const string name = label + digit;  // a label that reads like its own column
      plainDatabase->connection().exec("UPDATE Custom" + kind + "Fields SET " + name + "='" + name +
                                       "'");
      expected.insert(name + "=" + column + digit);
    }
  std::set<string> found;
  for (const int listType : {5, 6, 8}) {
    const vector<string> names = build(listType);
    const vector<string> columns = column(field_column::databaseField);
    for (std::size_t i = 0; i < names.size(); ++i) found.insert(names[i] + "=" + columns[i]);
  }
  EXPECT_THAT(expected, testing::IsSubsetOf(found));
}

TEST_F(FieldListTest, EntriesLeadToTheirRows) {
  const auto count = static_cast<int>(build(8).size());
  EXPECT_EQ(box.entries()[27].text, "[Task Info]");
  EXPECT_EQ(box.entries()[26].text, "") << "ahead of every header but the first";
  EXPECT_EQ(firmBox.entries()[0].text, "Insert your Letterhead");
  vector<ListBox::Entry> entries = box.entries();
  entries.insert(entries.end(), firmBox.entries().begin(), firmBox.entries().end());
  std::erase_if(entries, [](const ListBox::Entry& entry) { return entry.itemData == -1; });
  GridColumnList& list = *merge->get_FieldList();
  int key = 0;
  for (const ListBox::Entry& entry : entries) {
    EXPECT_EQ(entry.itemData, ++key);
    ASSERT_TRUE(list.selectEntry(entry.itemData));
    EXPECT_EQ(toText(list.getItem(field_column::displayName)), entry.text);
  }
  EXPECT_EQ(key, count);
  EXPECT_FALSE(list.selectEntry(count + 1));
}

TEST_F(FieldListTest, ClearsTheBoxesThatItIsAskedTo) {
  bool noListBox = true, clearListBox = false;
  box.addItem("kept");
  firmBox.addItem("gone");
  merge->createDefaultFieldListStructure(noListBox, clearListBox);
  merge->createTaskInfoFieldListStructure(*merge->get_FieldList(), true);
  merge->createAccountantFieldListStructure(true, true);
  EXPECT_FALSE(noListBox);
  EXPECT_EQ(box.entries().size(), 1U);
  EXPECT_EQ(firmBox.entries().size(), 19U);
  merge->listBox = nullptr;
  merge->createDefaultFieldListStructure(noListBox, clearListBox);
  EXPECT_TRUE(noListBox);
}

/// A host whose list box could not clear, add, or draw anew asks the person and goes on.
TEST_F(FieldListTest, StandsABoxThatCannotBeShown) {
  const vector<string> names = build(8);
  for (ListBox* failing : {&box, &firmBox}) {
    const auto lines = failing->entries();
    const int last = failing->listCount() + (failing == &box ? 2 : 1);
    for (const int render : {1, 2, 3, last})
      for (const int choice : {error_choice::next, error_choice::quit, error_choice::leave}) {
        errors.answer({choice});
        const FailingDrawing drawing(*failing, render);
        const vector<string> built = build(8);
        EXPECT_EQ(errors.answersLeft(), 0U) << render;
        if (choice == error_choice::leave) continue;
        EXPECT_EQ(built, names) << render;
        EXPECT_EQ(failing->entries(), lines) << render << ", settled by " << choice;
      }
  }
}

}  // namespace
}  // namespace autonotify::test
