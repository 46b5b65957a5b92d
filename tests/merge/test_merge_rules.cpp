#include "merge/MergeTest.h"
#include "platform/text.h"

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
  const string escaped = R"( \'abCompany Name\'bb)";
  const struct {
    const char* why;
    string text;
    string result;
  } cases[] = {
      {"any case", "due «(task due date, MMMM D)» of «TWO»", "due April 30, 2026 of 2"},
      {"rich text", R"({\b \'abTwo\'bb, \'ab(Task Due Date, mmmm d, yyyy)\'bb\par })",
       R"({\b 2, April 30, 2026\par })"},
      {"a format that is none", "due «(Task Due Date, ddd)»!", "due !"},
      {"a date without a format", "due «Task Due Date»!", "due !"},
      {"a format on a field that is no date", "Dear «(Company Name, d)»!", "Dear !"},
      {"a blank also ahead of an empty value", "Dear:«Empty»you", "Dear: you"},
      {"none at the very start", "«Company Name», dear", "Elm Ltd., dear"},
      {"all places go by the first", "a «Two» (by «Two»)", "a 2 (by 2)"},
      {"by the first, the other way round", "(«Two» by «Two»", "( 2 by  2"},
      {"the first of two fields with one name", "x «Twice»", "x first"},
      {"a bare field: the escaped ones vanish", "By «Two»" + escaped, "By 2 "},
      {"and stay when an unknown bare one vanished", "By «Two» «Foo»" + escaped,
       R"(By 2  \'abCompany Name\'bb)"},
      {"today's date alone: the escaped ones follow", "On «(Todays Date, yyyy)»" + escaped,
       "On 2026 Elm Ltd."},
      {"unknown ones of both: the bare ones vanish", R"(By «Foo» \'abFoo\'bb)",
       R"(By  \'abFoo\'bb)"},
      {"an opening mark that is never closed", "By «Foo» «Company Name", "By  «Company Name"},
      {"a value that brings a field of a later row", "a «One» b", "a 2 b"},
      {"a value that brings a field of an earlier row", "a «Three» b", "a  b"},
  };
  for (const auto& [why, text, result] : cases)
    EXPECT_EQ(merged(text + longEnough), result + longEnough) << why;
  merge->ConvertStrToRTF = false;
  EXPECT_EQ(merged("Dear:«Two»" + longEnough), "Dear:2" + longEnough) << "outside rich text";
}

TEST_F(MergeRules, TakeAShortTextForAFieldName) {
  EXPECT_EQ(merged("Company Name"), "Elm Ltd.");
  for (const char* text : {"Thank you for your visit", "«Task Due Date»", ""})
    EXPECT_EQ(merged(text), "") << text;
}

TEST_F(MergeRules, WriteADateInEachFormat) {
  clock.set(DateTime::of(2026, 4, 5));
  merge->docketId = addRow("Dockets", {{"DateFrom", "2026-04-05"}});
  build(6);
  merge->TestComment = false;
  string none;
  EXPECT_EQ(merge->getTodaysDate(none), "Apr 5, 2026");
  const auto formats = split(
      "dddd, mmmm d yyyy|dddd mmmm d yyyy|mmmm d, yyyy|mmmm d yyyy|mmm d yyyy|mm/dd/yy|d|dddd|"
      "mmmm|mmm|yyyy|mmmm yyyy|MMMM d|dd/mm/yy");
  const auto dates = split(
      "Sunday, April 5 2026|Sunday April 5 2026|April 5, 2026|April 5 2026|Apr 5 2026|04/05/26|5|"
      "Sunday|April|Apr|2026|April 2026|April 5|05/04/26");
  for (std::size_t i = 0; i < formats.size(); ++i) {
    // A field's month has letters where today's has figures.
    const string ofField = i + 1 == formats.size() ? "05/Apr/26" : dates[i];
    const string text =
        "«(Todays Date, " + formats[i] + ")» «(Time Entry Date, " + formats[i] + ")»";
    EXPECT_EQ(merged(text + longEnough), dates[i] + " " + ofField + longEnough);
  }
}

TEST_F(MergeRules, SpellMarksForRichTextAndKeepBlankLines) {
  EXPECT_EQ(merge->convertFieldName("«One», «Two"), R"(\'abOne\'bb, \'abTwo)");
  string text = "a\\par \r\n\\par \r\nb\r\n\r\n";
  const string before = text;
  EXPECT_EQ(merge->removeBlankLinesFromRTFText(text), before);
}

TEST_F(MergeRules, NameAPersonInPlaceOfTheCompanyThatTheyLack) {
  merge->ConvertCompanyNameToContactNameForContacts = true;
  for (const auto& [contact, company, text, result] :
       {std::tuple{3, -1, "For «Company Name»", "For Anna Lee"},
        {3, 0, R"(For \'abCompany Name\'bb)", "For Anna Lee"},
        {3, -1, "For «Company Name» of «Contact Display Name»", "For Elm Ltd. of Anna Lee"},
        {0, -1, "For «Company Name»", "For Elm Ltd."},
        {3, 1, "For «Company Name»", "For Elm Ltd."}}) {
    merge->contactID = contact;
    merge->companyID = company;
    EXPECT_EQ(merged(text + longEnough), result + longEnough) << contact << '/' << company;
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
  const string escaped = R"(Dear \'abFoo\'bb, we write to you, as you know well)";
  for (const auto& [text, isRTF, skipsNames, name] :
       {std::tuple{bare, false, false, "«Foo»"},
        {bare, false, true, ""},
        {bare, true, false, ""},
        {escaped, true, false, "«Foo»"},
        {escaped, false, false, ""},
        {"Dear «Remittance Due Date» and «todays date» as you know", false, false, ""},
        {"Dear «Contact Full Name», we write to you", false, false, "«Contact Display Name»"}}) {
    messages = {""};
    EXPECT_EQ(merge->testRTBComment(text, isRTF, true, skipsNames), *name != 0) << text;
    EXPECT_EQ(messages.size(), *name ? 2U : 1U) << text;
    EXPECT_THAT(messages.back(), testing::HasSubstr(name));
  }
  messages.clear();
  EXPECT_TRUE(merge->testRTBComment(bare, false, false, false));
  EXPECT_TRUE(messages.empty());
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

}  // namespace
}  // namespace autonotify::test
