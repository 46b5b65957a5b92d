#include <SQLiteCpp/SQLiteCpp.h>

#include "host/database/sqlite/SqliteRowSink.h"
#include "host/demo/DemoFirm.h"
#include "merge/MergeTest.h"
#include "merge/fields/field_format.h"
#include "support/value_cells.h"

namespace autonotify::test {
namespace {

using std::string;

const string longEnough = " and so on, until a text has more than forty characters.";

class MergeRules : public MergeTest {
 protected:
  MergeRules() {
    listSamples({{"Contact Display Name", "Anna Lee"},
                 {"Company Name", "Elm Ltd."},
                 {"Task Due Date", "April 30, 2026", 2},
                 {"Empty", ""},
                 {"Twice", "first"},
                 {"Twice", "second"},
                 {"One", "«Two»"},
                 {"Two", "2"},
                 {"Three", "«One»"}});
  }
};

TEST_F(MergeRules, PutEachTokenInItsPlace) {
  for (const auto& row : rowsOf("merged", 3))
    EXPECT_EQ(merged(row[1] + longEnough), row[2] + longEnough) << row[0];
  merge->ConvertStrToRTF = false;
  EXPECT_EQ(merged("Dear:«Two»" + longEnough), "Dear:2" + longEnough) << "outside rich text";
}

TEST_F(MergeRules, WriteADateInEachFormat) {
  clock.set(DateTime::of(2026, 4, 5));
  merge->docketId = addRow("Dockets", {{"DateFrom", "2026-04-05"}});
  build(6);
  merge->TestComment = false;
  string none;
  EXPECT_EQ(merge->getTodaysDate(none), "Apr 5, 2026");
  // A field's month has letters where today's has figures.
  for (const auto& row : rowsOf("dates of today and of a field", 3))
    EXPECT_EQ(
        merged("«(Todays Date, " + row[0] + ")» «(Time Entry Date, " + row[0] + ")»" + longEnough),
        row[1] + " " + row[2] + longEnough);
}

TEST_F(MergeRules, SpellMarksForRichTextAndKeepBlankLines) {
  EXPECT_EQ(merge->convertFieldName("«One», «Two"), R"(\'abOne\'bb, \'abTwo)");
  string text = "a\\par \r\n\\par \r\nb\r\n\r\n";
  const string before = text;
  EXPECT_EQ(merge->removeBlankLinesFromRTFText(text), before);
}

TEST_F(MergeRules, NameAPersonInPlaceOfTheCompanyThatTheyLack) {
  merge->ConvertCompanyNameToContactNameForContacts = true;
  for (const auto& row : rowsOf("names in place of the company", 4)) {
    merge->contactID = std::stoi(row[0]);
    merge->companyID = std::stoi(row[1]);
    EXPECT_EQ(merged(row[2] + longEnough), row[3] + longEnough) << row[0] << '/' << row[1];
  }
}

TEST_F(MergeRules, MergeNothingWithoutAListAndPrepareItForTheNextTime) {
  clsInsertFieldsInRTB fresh;
  fresh.taskID = 0;
  fresh.TestComment = true;
  fresh.TemplateText = "For «Task Name»" + longEnough;
  EXPECT_EQ(fresh.parseRTBComment(), "For " + longEnough);
  EXPECT_EQ(fresh.ListType, 8);
  EXPECT_NE(fresh.parseRTBComment(), "For " + longEnough);
}

using FieldFormat = HostTest;

TEST_F(FieldFormat, PrintsEachTypeInItsForm) {
  const std::map<std::string, FieldType> types = {
      {"date", FieldType::date},         {"time", FieldType::time},
      {"currency", FieldType::currency}, {"yes or no", FieldType::yesNo},
      {"duration", FieldType::duration}, {"text", FieldType::text},
      {"no type", FieldType{}},          {"documents", FieldType::documentsList}};
  for (const auto& row : rowsOf("values of fields", 4))
    EXPECT_EQ(formattedField(valueOfCell(row[1]), types.at(row[0]), fieldDateFormat(row[2]))
                  .value_or("none"),
              row[3])
        << row[0] << ' ' << row[1];
  EXPECT_THROW(formattedField("Bookkeeping", FieldType::date, fieldDateFormat("")), PlatformError);
}

class MergeValidation : public MergeTest {
 protected:
  MergeValidation() {
    listSamples({{"Company Name", "x"}, {"Task Due Date", "x", 2}});
    merge->testErrorComment = [&](const string& message) { messages.push_back(message); };
  }

  std::vector<string> messages;
};

TEST_F(MergeValidation, ChecksTheTemplateOfTodayForItsKindOfText) {
  const string bare = "Dear «Foo» and «Bar», we write to you as you know";
  for (const auto& row : rowsOf("names found unknown", 4)) {
    const string& name = row[3];
    messages = {""};
    EXPECT_EQ(merge->testRTBComment(row[0], row[1] == "rich", true, !row[2].empty()),
              !name.empty());
    EXPECT_EQ(messages.size(), name.empty() ? 1U : 2U) << row[0];
    EXPECT_THAT(messages.back(), testing::HasSubstr(name));
  }
  messages.clear();
  EXPECT_TRUE(merge->testRTBComment(bare, false, false, false) && messages.empty());
  merge->testErrorComment = nullptr;
  EXPECT_TRUE(merge->testRTBComment(bare, false, true, false));
}

TEST_F(MergeValidation, StandsAListenerThatFails) {
  int raised = 0;
  merge->testErrorComment = [&](const string&) {
    if (++raised % 2 == 1) throw PlatformError(1000, "Cannot tell");
  };
  errors.answer({error_choice::quit});
  EXPECT_TRUE(merge->testRTBComment("«Foo»", false, true, false));
  EXPECT_EQ(raised, 2) << "told again";
  for (const int choice : {error_choice::next, error_choice::leave}) {
    raised = 0;
    errors.answer({choice});
    EXPECT_TRUE(merge->testRTBComment("«Foo»", false, true, false));
  }
}

class DemoTemplates : public MergeTest, public testing::WithParamInterface<std::pair<int, int>> {};

TEST_P(DemoTemplates, HaveNoFault) {
  const auto [country, province] = GetParam();
  live(country, province);
  host::SqliteRowSink sink(plainDatabase->connection());
  host::DemoOptions options;
  options.companies = options.contacts = options.staff = 1;
  options.country = static_cast<countryCode>(country);
  options.province = static_cast<provinceCode>(province);
  makeDemoFirm(sink, options);
  merge->testErrorComment = [](const std::string& message) { ADD_FAILURE() << message; };
  SQLite::Statement templates(plainDatabase->connection(),
                              "SELECT NotificationComment FROM ScheduleTypes");
  int count = 0;
  for (build(8); templates.executeStep(); ++count) {
    const std::string text = templates.getColumn(0).getString();
    EXPECT_FALSE(merge->testRTBComment(text, true, true, false)) << text;
  }
  EXPECT_GT(count, 30);
}

INSTANTIATE_TEST_SUITE_P(Places, DemoTemplates,
                         testing::Values(std::pair{1, 3}, std::pair{1, 8}, std::pair{1, 10},
                                         std::pair{2, 3}));

}  // namespace
}  // namespace autonotify::test
