#include <set>

#include "merge/MergeTest.h"

namespace autonotify::test {
namespace {

using std::string;
using std::vector;
using testing::Contains;
using testing::Not;

constexpr int canada = 1;
constexpr int unitedStates = 2;
constexpr int alberta = 0;
constexpr int ontario = 3;
constexpr int quebec = 8;

class FieldListTest : public MergeTest {
 protected:
  FieldListTest() {
    merge->listBox = &box;
    merge->listBox2 = &firmBox;
  }

  /// The lines of the list box that stand for no field and are not empty.
  vector<string> headers() {
    vector<string> lines;
    for (const ListBox::Entry& entry : box.entries())
      if (entry.itemData == -1 && !entry.text.empty()) lines.push_back(entry.text);
    return lines;
  }

  ListBox box;
  ListBox firmBox;
};

TEST_F(FieldListTest, HasTheRowsOfItsFamily) {
  // Counted apart from the tables that the code is made of, for the uses 1, 3 and 4.
  const struct {
    int listType;
    int country;
    int province;
    std::size_t rows[3];
  } cases[] = {
      {0, canada, ontario, {18, 18, 18}},        {1, unitedStates, alberta, {149, 160, 147}},
      {2, canada, quebec, {168, 173, 166}},      {3, canada, ontario, {100, 103, 99}},
      {3, unitedStates, alberta, {96, 103, 95}}, {4, canada, ontario, {18, 18, 18}},
      {5, canada, alberta, {178, 183, 176}},     {5, unitedStates, ontario, {160, 171, 158}},
      {6, canada, ontario, {203, 208, 201}},     {6, unitedStates, quebec, {183, 194, 181}},
      {8, canada, ontario, {204, 209, 202}},     {8, canada, quebec, {203, 208, 201}},
      {8, canada, alberta, {202, 207, 200}},     {8, unitedStates, ontario, {184, 195, 182}},
      {8, 7, ontario, {184, 195, 182}},          {-1, canada, ontario, {18, 18, 18}},
      {33, canada, ontario, {18, 18, 18}},
  };
  for (const auto& [listType, country, province, rows] : cases) {
    live(country, province);
    for (int i = 0; const int use : {1, 3, 4})
      EXPECT_EQ(build(listType, use).size(), rows[i++])
          << "list " << listType << " in " << country << "/" << province << " for use " << use;
  }
}

TEST_F(FieldListTest, FieldsReadTheirColumns) {
  GridColumnList& list = *merge->get_FieldList();
  for (const char* expected :
       {"Task Due Date|DueDate|TaskInfo|2", "Estimated Time|EstimatedTime|TaskInfo|6",
        "Task Start Time|TimeFrom|TaskInfo|3", "Contact Birthday|Birthday|ContactInfo|2",
        "Contact Marital Status|MaritialStatus|ContactInfo|1", "Company Notes|Notes|CompanyNotes|1",
        "Spouse Birthday|SpouseBirthday|ContactInfo|1", "Contact Notes|Notes|ContactNotes|1",
        "Year End Date|YearEndDate|ClientInfo|1", "Year End Date|USYearEndDate|ClientInfo|2",
        "Spouse Home Postal Code|SpousePostalCode|ContactInfo|1"}) {
    const vector<string> items = split(expected);
    live(items[1].starts_with("US") ? unitedStates : canada, ontario);
    build(8);
    ASSERT_GE(list.findEntry(field_column::displayName, items[0]), 0) << expected;
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
  const string canadian =
      "Contact SIN|Spouse SIN|Province|Postal Code|Your Province|Business Number|EHT Number";
  const string american =
      "Contact SSN|Spouse SSN|State|Zip Code|Your State|Sellers Permit Number|Alcohol Number";
  const string joined =
      "Contact Display Name|Contact & Spouse Name|Address|Contact Home Address|"
      "Abbreviated Province|Contact Alternate Abbreviated Province";
  const string lines =
      "Contact Full Name|Address 1|Address 2|Address 3|Contact Business Address 1|"
      "Company Alternate Address 3";
  const struct {
    int country;
    int province;
    string present;
    string absent;
    int use = 1;
    DateTime now = DateTime::of(2010, 7, 1);
  } cases[] = {
      {1, 0, "GST Number|PST Number|WCB Number|WCB Coverage|Alberta Corp. Tax Number",
       "HST Number|WCB Firm Number|ON Corp. MCBS Number|Quebec ID Number"},
      {1, 1, "HST Filing Method|WCB Premium Rate|BC Corp. Tax Number", "GST Number"},
      {1, 3, "HST Number|WSIB Firm Number|ON Corp. Tax Number|ON Corp. MCBS Number",
       "GST Number|Quebec ID Number|NEQ Number"},
      {1, 8, "QST Number|NEQ Number|CSST Coverage|Que. Corp. Tax Number|Quebec ID Number",
       "PST Number|CSST Number|CSST Firm Number|ON Corp. MCBS Number"},
      {1, 10, "HST Number|WHSCC Number|N.B. Corp. Tax Number", "WHSCC Firm Number"},
      {1, 77, "GST Number|WSIB Firm Number|ON Corp. MCBS Number", "HST Number|NEQ Number"},
      {1, 1, "GST Number", "HST Number", 1, DateTime::of(2010, 6, 30, 23, 59, 59)},
      {1, 3, "GST Number", "HST Number", 1, DateTime::of(2010, 6, 30, 23, 59, 59)},
      {1, 3, canadian, american},
      {2, 3, american, canadian},
      {5, 3, american, canadian},
      {1, 3, joined, lines, 1},
      {1, 3, lines, joined, 3},
  };
  for (const auto& [country, province, present, absent, use, now] : cases) {
    SCOPED_TRACE(std::to_string(country) + "/" + std::to_string(province));
    live(country, province);
    clock.set(now);
    const vector<string> names = build(2, use);
    for (const string& name : split(present)) EXPECT_THAT(names, Contains(name));
    for (const string& name : split(absent)) EXPECT_THAT(names, Not(Contains(name)));
  }
}

TEST_F(FieldListTest, NoNameHoldsWhatATokenIsMadeOf) {
  for (const int country : {canada, unitedStates})
    for (const int listType : {5, 6, 8}) {
      live(country, quebec);
      for (const string& name : build(listType)) {
        EXPECT_EQ(name.find(','), string::npos) << name;
        EXPECT_EQ(name.find("«"), string::npos) << name;
        EXPECT_TRUE(!name.empty() && name.size() <= 40) << "a template could not name " << name;
      }
      EXPECT_THAT(column(field_column::sample), Not(Contains("")));
    }
}

TEST_F(FieldListTest, NoTwoFieldsReadOneColumn) {
  for (const int country : {canada, unitedStates})
    for (const int listType : {5, 6, 8}) {
      live(country, ontario);
      build(listType);
      const vector<string> groups = column(field_column::group);
      const vector<string> columns = column(field_column::databaseField);
      std::set<string> read;
      for (std::size_t i = 0; i < columns.size(); ++i) {
        const string one = groups[i] + "." + columns[i];
        EXPECT_TRUE(read.insert(one).second || one == "TaskInfo.Subject") << one;
      }
    }
}

TEST_F(FieldListTest, LabelsNameTheCustomFields) {
  const std::tuple<const char*, string, string> stems[] = {
      {"", "ApptCustomName", "ApptCustom"},      {"", "DocketCustomName", "DocketCustom"},
      {"", "RemittanceLabel", "ScheduleCustom"}, {"", "TaskCustomName", "TaskCustom"},
      {"", "CustomName", "ClientCustom"},        {"Address", "ContactLabel", "ContactCustom"},
      {"Address", "CompanyLabel", "FirmCustom"}, {"Address", "CompanyLabel", "CompanyCustom"}};
  addRow("CustomFields", {});
  addRow("CustomAddressFields", {});
  std::set<string> expected;
  for (const auto& [kind, label, column] : stems)
    for (const char digit : {'1', '2', '3', '4', '5'}) {
      const string name = label + digit;  // a label that reads like its own column
      plainDatabase->connection().exec(string("UPDATE Custom") + kind + "Fields SET " + name +
                                       "='" + name + "'");
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

TEST_F(FieldListTest, LabelsThatSayNothingKeepTheDefaultName) {
  addRow("CustomFields", {});
  const auto setLabel = [&](const string& sql) {
    plainDatabase->connection().exec("UPDATE CustomFields SET ApptCustomName2 = " + sql);
  };
  for (const char* label : {"''", "':'", "NULL", "'Custom 2'", "'Custom 2:'"}) {
    setLabel(label);
    EXPECT_EQ(build(5).at(7), "Custom Appt Field 2") << label;
  }
  for (const char* name : {"Room", "Notes:", "Custom 3", "custom 2", "Custom 2 "}) {
    setLabel("'" + string(name) + ":'");
    EXPECT_EQ(build(5).at(7), name);
  }
}

TEST_F(FieldListTest, HeadersStandAheadOfTheirBlocks) {
  const string others = "[Company Accounting Info]|[Company Software Info]|[More Contact Info]";
  const string company = "[Company Address Info]|[Default Contact Name]|" + others;
  const struct {
    int listType;
    Id companyID;
    string headers;
    int use = 1;
  } cases[] = {
      {0, 4, ""},
      {1, 4, company},
      {2, 4, "[Company Address Info]|[Contact Name]|" + others},
      {3, -1, "[Contact Name]|[More Contact Info]"},
      {3, 0, "[Contact Name]|[More Contact Info]|[Company Info]"},
      {5, 4, "[Appointment Info]|" + company},
      {6, 4, "[Time Entry Info]|" + company},
      {8, 4, "[Task Info]|[Task Info]|" + company},
      {8, 4, "", 5},
      {8, 4, "Not Assigned", 3},
  };
  for (const auto& [listType, companyID, lines, use] : cases) {
    merge->companyID = companyID;
    build(listType, use);
    EXPECT_EQ(headers(), split(lines)) << listType << " for use " << use;
  }
  merge->put_MergeFieldListUse(1);
  EXPECT_FALSE(merge->ShowListCategoryHeaders) << "stays off once a use switched it off";
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
  bool noListBox = true;
  bool clearListBox = false;
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
        failing->onRender = [&, left = render](Aspect) mutable {
          if (--left == 0) throw PlatformError(1000, "Cannot draw");
        };
        const vector<string> built = build(8);
        EXPECT_EQ(errors.answersLeft(), 0U) << render;
        if (choice == error_choice::leave) continue;
        EXPECT_EQ(built, names) << render;
        EXPECT_EQ(failing->entries(), lines) << render << ", settled by " << choice;
      }
    failing->onRender = nullptr;
  }
}

TEST_F(FieldListTest, AnEmptyListIsBuiltForTheFirstIdThatIsSet) {
  merge->ListType = 1;
  EXPECT_FALSE(merge->verifyFieldListIsPopulated());
  EXPECT_EQ(merge->ListType, 1) << "without ids the family stays";
  EXPECT_EQ(merge->get_FieldList()->getEntryCount(), 169);
  // The ids set before stay set: each case outranks the ones above it.
  for (const auto& [id, listType] : {std::pair{&clsInsertFieldsInRTB::contactID, 2},
                                     {&clsInsertFieldsInRTB::companyID, 2},
                                     {&clsInsertFieldsInRTB::docketId, 6},
                                     {&clsInsertFieldsInRTB::taskID, 8},
                                     {&clsInsertFieldsInRTB::appointmentID, 5}}) {
    (*merge).*id = 0;
    merge->get_FieldList()->clearEntries();
    EXPECT_FALSE(merge->verifyFieldListIsPopulated());
    EXPECT_EQ(merge->ListType, listType);
    EXPECT_TRUE(merge->verifyFieldListIsPopulated());
  }
  EXPECT_TRUE(box.entries().empty() && firmBox.entries().empty());
}

}  // namespace
}  // namespace autonotify::test
