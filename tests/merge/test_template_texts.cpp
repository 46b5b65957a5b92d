#include <random>

#include "merge/MergeTest.h"
#include "merge/templates/template_check.h"

namespace autonotify::test {
namespace {

using std::string;
using std::vector;
using TemplateRewrites = MergeTest;

struct Rule {
  string from, to;
};
using Rules = vector<Rule>;

/// The rules of one line, "open, close, from+from=to|from=to" with # for 1 to 5.
Rules rulesOf(const vector<string>& line) {
  Rules rules;
  for (const string& text : split(line[3]))
    for (const char* digit : {"1", "2", "3", "4", "5"}) {
      const string rule = replaceAll(text, "#", digit);
      const std::size_t equals = rule.find('=');
      const string to = line[1] + rule.substr(equals + 1) + line[2];
      for (const string& from : split(rule.substr(0, equals), '+'))
        rules.push_back({line[1] + from + line[2], to});
      if (rule == text) break;
    }
  return rules;
}

/// The rules as they are written down, by country or code of province.
std::map<string, Rules> readRules() {
  std::map<string, Rules> books;
  for (const vector<string>& row : rowsOf("rewriting rules", 4))
    for (const Rule& rule : rulesOf(row)) books[row[0]].push_back(rule);
  return books;
}

string applyInOrder(string text, const Rules& rules) {
  for (const Rule& rule : rules) text = replaceAllIgnoreCase(text, rule.from, rule.to);
  return text;
}

string tidied(string text) {
  static const auto headers = rowsOf("headers", 1);
  for (const auto& row : headers) text = replaceAllIgnoreCase(text, row[0], "");
  if (characterCount(text) > 40) return text;
  if (text.find("«") == string::npos) text = "«" + text;
  return text.find("»") == string::npos ? text + "»" : text;
}

/// The rules' own pieces: texts of them make many rules meet and make work for each other.
vector<string> piecesOf(const std::map<string, Rules>& books) {
  vector<string> pieces;
  for (const char* table : {"headers", "pieces of templates"})
    for (const auto& row : rowsOf(table, 1)) pieces.push_back(row[0]);
  for (const auto& [name, rules] : books)
    for (const auto& [from, to] : rules) {
      const std::size_t half = from.size() / 2;
      pieces.insert(pieces.end(), {from, from.substr(0, half), from.substr(half)});
    }
  return pieces;
}

TEST_F(TemplateRewrites, EqualTheRulesOneByOne) {
  const std::map<string, Rules> books = readRules();
  const Rules& general = books.at("anywhere");
  const Rules& toAmerican = books.at("United States");
  Rules toCanadian = toAmerican;
  for (Rule& rule : toCanadian) std::swap(rule.from, rule.to);
  const vector<string> pieces = piecesOf(books);
  constexpr int provinces[] = {0, 1, 2, 3, 4, 8, 9, 10, 11, 12, 50};
  std::mt19937 random(20100701);
  for (std::size_t round = 0; round < 6000; ++round) {
    string text;
    for (std::size_t left = random() % 9; left > 0; --left) {
      const string& piece = pieces[random() % pieces.size()];
      const auto spelling = random() % 4;
      text += spelling == 0 ? upperCase(piece) : spelling == 1 ? lowerCase(piece) : piece;
    }
    const int province = provinces[round % std::size(provinces)];
    const Rules& provincial = books.at(std::to_string(province));
    const string anywhere = applyInOrder(tidied(text), general);
    const string canadian = applyInOrder(applyInOrder(anywhere, provincial), toCanadian);
    const string american = applyInOrder(anywhere, toAmerican);
    for (const auto& [country, expected] : {std::pair{1, canadian}, {2, american}, {3, anywhere}}) {
      live(country, province);
      ASSERT_EQ(merge->convertProvinceFields(text), expected) << "round " << round << ": " << text;
    }
  }
}

TEST_F(TemplateRewrites, MakeTokensOfShortTextsAlone) {
  for (const auto& row : rowsOf("rewritten short texts", 2))
    EXPECT_EQ(merge->convertProvinceFields(row[0]), row[1]);
}

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
