#include "merge/merge_host.h"

namespace autonotify::test {
namespace {

using std::string;

class MergeValidation : public MergeHost {
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
  const string forty(40, 'x');
  const struct {
    string text;
    string fault;
  } cases[] = {
      {"Dear «Company Name» of «(Task Due Date, mmmm d, yyyy)», ", ""},
      {"A text without any field, and long enough for that.", ""},
      {"Dear Company Name» as it says in the letter of last week", ""},
      {"«Task Due Date»", ""},
      {"Dear «(Todays Date, d)» and «todays date»", ""},
      {"Dear «( Task Due Date ,  dddd, mmmm d yyyy )», we write to you", ""},
      {"Dear Company Name» of «Company Name» in the city", missingOpen},
      {"Dear «Company Name of Elm Street in the city of Guelph", missingOpen},
      {"Dear «Company Name», and «Company Name of the city", missingOpen},
      {"Dear «(Task Due Date, d», we write to you", missingCloseRound},
      {"Dear «(», we write to you on this fine day in spring", missingCloseRound},
      {"Dear «Task Due Date, d)», we write to you", missingOpenRound},
      {"Dear «(Task Due Date, MMMM)», we write to you", wrongFormat("MMMM")},
      {"Dear «(Nothing, ddd)», we write to you, as you know", wrongFormat("ddd")},
      {"Dear «Company Name, we write on behalf of «Company Name»", missingClose},
      {"Dear «" + forty + "x»", missingClose},
      {"Dear «" + forty + "»", unknownName(forty)},
      {"Dear «company name», we write to you, as you know well", unknownName("company name")},
      {"Dear «(Nothing, d)» and «(Nothing, ddd)», as you know", unknownName("Nothing")},
      {"Dear «»", unknownName("")},
  };
  for (const auto& [text, fault] : cases) EXPECT_EQ(faultOf(text), fault) << text;
}

TEST_F(MergeValidation, CountsCharactersNotBytes) {
  string name;
  for (int i = 0; i < 40; ++i) name += "é";
  EXPECT_EQ(faultOf("«" + name + "»"), unknownName(name));
  EXPECT_EQ(faultOf("«" + name + "é»"), missingClose);
}

TEST_F(MergeValidation, LooksForTheMarksOfItsKindOfText) {
  const string escaped = R"(Dear \'abFoo\'bb, we write to you, as you know well)";
  EXPECT_EQ(faultOf(escaped, true), unknownName("Foo"));
  EXPECT_EQ(faultOf(escaped, false), "");
  EXPECT_EQ(faultOf("Dear «Foo», we write to you, as you know very well", true), "");
}

TEST_F(MergeValidation, PassesNamesOverWhenAsked) {
  EXPECT_EQ(faultOf("Dear «Foo» and «Bar», we write to you as you know", false, true), "");
  EXPECT_EQ(faultOf("Dear «(Foo, x)» and «Bar», we write to you", false, true), wrongFormat("x"));
}

TEST_F(MergeValidation, ReportsWithoutAnEventWhenAsked) {
  EXPECT_TRUE(merge->testRTBComment("Dear «Foo»", false, false, false));
  EXPECT_TRUE(messages.empty());
  merge->testErrorComment = nullptr;
  EXPECT_TRUE(merge->testRTBComment("Dear «Foo»", false, true, false));
}

TEST_F(MergeValidation, LeavesADateWithoutAFormatToThePersonAtTheDialog) {
  host.errors.answer({error_choice::leave});
  EXPECT_EQ(faultOf("Dear «(Task Due Date)»"), "");
  EXPECT_EQ(host.errors.recorded().back().number, error_number::subscriptOutOfRange);
  host.errors.answer({error_choice::next});
  EXPECT_EQ(faultOf("Dear «(Task Due Date)»"), wrongFormat(""));
  host.errors.answer({error_choice::next});
  EXPECT_EQ(faultOf("Dear «(Task Due Date, d)» or «(Task Due Date)»"), "")
      << "the format read before stays";
}

TEST_F(MergeValidation, BringsNamesUpToDateFirst) {
  EXPECT_EQ(faultOf("Dear «Remittance Due Date», we write to you"), "");
  EXPECT_EQ(faultOf("Dear «Contact Full Name», we write to you as you know"),
            unknownName("Contact Display Name"));
}

}  // namespace
}  // namespace autonotify::test
