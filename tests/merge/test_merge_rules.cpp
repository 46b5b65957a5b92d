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

  /// The message of the first fault; empty for a template without one.
  string faultOf(const string& text, bool isRTF = false, bool skipFieldNames = false) {
    messages.clear();
    const bool hasFault = merge->testRTBComment(text, isRTF, true, skipFieldNames);
    EXPECT_EQ(messages.size(), hasFault ? 1U : 0U) << text;
    return messages.empty() ? string{} : messages.front();
  }

  std::vector<string> messages;
};

constexpr const char* missingOpen =
    "You are missing your opening brackets, '«' in one of your expressions";
constexpr const char* missingClose =
    "You are missing a closing bracket, '»' in one of your expressions.  Make sure you have a "
    "bracket immediately before and after a field.\r\n\r\neg. «Company Name»";
constexpr const char* missingOpenRound =
    "You are missing the opening round bracket, '(' in one of your date expressions";
constexpr const char* missingCloseRound =
    "You are missing the closing round bracket, ')' in one of your date expressions";

string wrongFormat(const string& format) {
  return "The date format of: '" + format +
         "' is not valid.  Please see help for valid date formats.";
}

string unknownName(const string& name) {
  return "The Morvane Pad did not recognize: «" + name + "» as a valid placeholder field name.";
}

TEST_F(MergeValidation, ReportsTheFirstFaultInWords) {
  const string forty = replaceAll(string(40, 'x'), "x", "é");
  const std::pair<string, string> cases[] = {
      {"Dear «Company Name» of «(Task Due Date, mmmm d, yyyy)», ", ""},
      {"Dear Company Name» as it says in the letter of last week", ""},
      {"«Task Due Date»", ""},
      {"Dear «(Todays Date, d)» and «todays date»", ""},
      {"Dear «( Task Due Date ,  dddd, mmmm d yyyy )», we write to you", ""},
      {"Dear «Remittance Due Date», we write to you", ""},
      {"Dear Company Name» of «Company Name» in the city", missingOpen},
      {"Dear «Company Name of Elm Street in the city of Guelph", missingOpen},
      {"Dear «Company Name», and «Company Name of the city", missingOpen},
      {"Dear «(Task Due Date, d», we write to you", missingCloseRound},
      {"Dear «Task Due Date, d)», we write to you", missingOpenRound},
      {"Dear «(Task Due Date, MMMM)», we write to you", wrongFormat("MMMM")},
      {"Dear «(Nothing, ddd)», we write to you, as you know", wrongFormat("ddd")},
      {"Dear «Company Name, we write on behalf of «Company Name»", missingClose},
      {"«" + forty + "é»", missingClose},
      {"«" + forty + "»", unknownName(forty)},
      {"Dear «company name», we write to you, as you know well", unknownName("company name")},
      {"Dear «(Nothing, d)» and «(Nothing, ddd)», as you know", unknownName("Nothing")},
      {"Dear «Contact Full Name», we write to you", unknownName("Contact Display Name")},
  };
  for (const auto& [text, fault] : cases) EXPECT_EQ(faultOf(text), fault) << text;
}

TEST_F(MergeValidation, LooksForTheMarksOfItsKindOfTextAndPassesNamesOverWhenAsked) {
  const string escaped = R"(Dear \'abFoo\'bb, we write to you, as you know well)";
  const string bare = "Dear «Foo» and «Bar», we write to you as you know";
  EXPECT_EQ(faultOf(escaped, true), unknownName("Foo"));
  EXPECT_EQ(faultOf(escaped, false), "");
  EXPECT_EQ(faultOf(bare, true), "");
  EXPECT_EQ(faultOf(bare, false, true), "");
  EXPECT_EQ(faultOf("Dear «(Foo, x)», we write to you", false, true), wrongFormat("x"));
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

TEST_F(MergeValidation, LeavesADateWithoutAFormatToThePersonAtTheDialog) {
  errors.answer({error_choice::leave, error_choice::next, error_choice::next});
  EXPECT_EQ(faultOf("Dear «(Task Due Date)»"), "");
  EXPECT_EQ(errors.recorded().back().number, error_number::subscriptOutOfRange);
  EXPECT_EQ(faultOf("Dear «(Task Due Date)»"), wrongFormat(""));
  EXPECT_EQ(faultOf("Dear «(Task Due Date, d)» or «(Task Due Date)»"), "")
      << "the format read before stays";
}

}  // namespace
}  // namespace autonotify::test
