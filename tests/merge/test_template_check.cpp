#include "merge/templates/template_check.h"
#include "platform/text.h"
#include "support/HostTest.h"

namespace autonotify::test {
namespace {

using std::string;

class TemplateCheckTest : public HostTest {
 protected:
  /// Of bare marks and the names that the firm has two of; an empty name list accepts any.
  string faultOf(const string& text, bool anyName = false) {
    std::function<bool(const string&)> isFieldName = [](const string& name) {
      return name == "Company Name" || name == "Task Due Date";
    };
    if (anyName) isFieldName = nullptr;
    return procedure("test", string("left"), [&](Step& step, string& result) {
      result = TemplateCheck(step, isFieldName).firstFault(text, bareMarks);
    });
  }
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

TEST_F(TemplateCheckTest, TellsTheFirstFaultInWords) {
  const string forty = replaceAll(string(40, 'x'), "x", "é");
  const std::pair<string, string> cases[] = {
      {"Dear «Company Name» of «(Task Due Date, mmmm d, yyyy)», ", ""},
      {"Dear Company Name»", ""},
      {"«Task Due Date»", ""},
      {"«( Task Due Date ,  dddd, mmmm d yyyy )»", ""},
      {"Dear Company Name» of «Company Name»", missingOpen},
      {"«Company Name of Elm Street", missingOpen},
      {"«Company Name», and «Company Name of the city", missingOpen},
      {"«(Task Due Date, d»", missingCloseRound},
      {"«Task Due Date, d)»", missingOpenRound},
      {"«(Task Due Date, MMMM)»", wrongFormat("MMMM")},
      {"«(Nothing, ddd)»", wrongFormat("ddd")},
      {"Dear «Company Name, we write on behalf of «Company Name»", missingClose},
      {"«" + forty + "é»", missingClose},
      {"«" + forty + "»", unknownName(forty)},
      {"«company name»", unknownName("company name")},
      {"«(Nothing, d)» and «(Nothing, ddd)»", unknownName("Nothing")},
  };
  for (const auto& [text, fault] : cases) EXPECT_EQ(faultOf(text), fault) << text;
  EXPECT_EQ(faultOf("«Foo» «(Foo, d)»", true), "");
  EXPECT_EQ(faultOf("«Foo» «(Foo, x)»", true), wrongFormat("x"));
}

TEST_F(TemplateCheckTest, LeavesADateWithoutAFormatToThePersonAtTheDialog) {
  errors.answer({error_choice::leave, error_choice::next, error_choice::next});
  EXPECT_EQ(faultOf("«(Task Due Date)»"), "left");
  EXPECT_EQ(errors.recorded().back().number, error_number::subscriptOutOfRange);
  EXPECT_EQ(faultOf("«(Task Due Date)»"), wrongFormat(""));
  EXPECT_EQ(faultOf("«(Task Due Date, d)» or «(Task Due Date)»"), "")
      << "the format read before stays";
}

}  // namespace
}  // namespace autonotify::test
