#include "merge/templates/template_check.h"

#include "merge/MergeTest.h"

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

string wrongFormat(const string& format) {
  return "The date format of: '" + format +
         "' is not valid.  Please see help for valid date formats.";
}

TEST_F(TemplateCheckTest, TellsTheFirstFaultInWords) {
  for (const auto& row : rowsOf("faults", 2)) EXPECT_EQ(faultOf(row[0]), row[1]) << row[0];
  EXPECT_EQ(faultOf("«Foo» «(Foo, d)»", true), "");
  EXPECT_EQ(faultOf("«Foo» «(Foo, x)»", true), wrongFormat("x"));
}

TEST_F(TemplateCheckTest, TellsAllFaultsOnce) {
  for (const auto& row : rowsOf("all faults", 2)) {
    const string places = procedure("test", string(), [&](Step& step, string& result) {
      TemplateCheck check(step, [](const string& name) { return name == "Company Name"; });
      for (const TemplateFault& fault : check.allFaults(row[0], bareMarks))
        result += fault.expression + "|" + fault.message.substr(0, 20) + "|";
    });
    EXPECT_EQ(places, row[1]) << row[0];
  }
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
