#include <random>

#include "merge/MergeTest.h"
#include "platform/text.h"

namespace autonotify::test {
namespace {

using std::string;
using std::vector;
using TemplateRewrites = MergeTest;

/// The rules as they are written down: one after the other over the whole text.
struct Rule {
  string from;
  string to;
};
struct RuleBlock {
  const char* open;
  const char* close;
  const char* rules;  // "from+from=to|from=to", where # is 1 to 5
};

constexpr char dateNames[] =
    "Due Date=Task Due Date|in-House Due Date=Task in-House Due Date|"
    "Calendar Date=Task Calendar Due Date";
constexpr char fullName[] = "Contact Full Name=Contact Display Name";
constexpr char calendarDates[] = "Notified Date+Weekday Date=Calendar Date";
constexpr char taskNames[] =
    "Remittance Name=Task Name|Remittance Due Date=Task Due Date|"
    "Remittance in-House Due Date=Task in-House Due Date|"
    "Remittance Weekday Due Date+Task Weekday Due Date=Task Calendar Date|"
    "Remittance Year=Task Year|Custom Remitt Field #=Custom Task Field #|"
    "Contact Full Name=Contact Display Name";
constexpr char customNames[] = "Custom Field #=Business Client Custom Field #";

constexpr RuleBlock generalBlocks[] = {
    {"", "", "<<=«|>>=»"},
    {"«(", "", dateNames},
    {"\\'ab(", "", dateNames},
    {"«", "»", fullName},
    {"\\'ab", "\\'bb", fullName},
    {"", "", fullName},
    {"", "",
     "Docket=Time Entry|Long Date=dddd, mmmm d yyyy|Medium Date=mmm d yyyy|Short Date=dd/mm/yy"},
    {"«", "»", calendarDates},
    {"\\'ab", "\\'bb", calendarDates},
    {"«", "»", taskNames},
    {"\\'ab", "\\'bb", taskNames},
    {"«", "»", customNames},
    {"\\'ab", "\\'bb", customNames},
};

constexpr RuleBlock nationalBlock = {
    "«", "»",
    "Province=State|Postal Code=Zip Code|Contact Business Province=Contact Business State|"
    "Contact Business Postal Code=Contact Business Zip Code|"
    "Contact Home Province=Contact Home State|Contact Home Postal Code=Contact Home Zip Code|"
    "Spouse Home Province=Spouse Home State|Spouse Home Postal Code=Spouse Home Zip Code|"
    "Your Province=Your State|Your Postal Code=Your Zip Code|"
    "Contact SIN=Contact SSN|Spouse SIN=Spouse SSN"};

struct Province {
  int code;
  const char* corporate;
  string rules;
};
const string board =
    "WSIB Number+NEQ Number+WHSCC Number=WCB Number|WSIB Premium Rate=WCB Premium Rate|";
const string atlanticBoard =
    "WSIB Number+WCB Number+NEQ Number=WHSCC Number|WSIB Premium Rate=WHSCC Premium Rate|";
const string ontarioBoard =
    "WCB Number+NEQ Number+WHSCC Number=WSIB Number|WCB Firm Number=WSIB Firm Number|"
    "WCB Premium Rate=WSIB Premium Rate|";
const string quebecBoard =
    "WSIB Number=NEQ Number|WSIB Premium Rate=CSST Premium Rate|WHSCC Number=WCB Number|";
const string toGst = "HST Number=GST Number";
const string toHst = "GST Number=HST Number";
const string ontarioRules =
    toHst + "|" + ontarioBoard + toGst + "|Quebec ID Number=ON Corp. MCBS Number";
const Province provinces[] = {
    {0, "Alberta", board + toGst},
    {1, "BC", toHst + "|" + board + toGst},
    {2, "Manitoba", board + toGst},
    {3, "ON", ontarioRules},
    {4, "Sask.", board + toGst},
    {8, "Que.", quebecBoard + toGst + "|ON Corp. MCBS Number=Quebec ID Number"},
    {9, "N.S.", board + toHst},
    {10, "N.B.", atlanticBoard + toHst},
    {11, "Nfld.", atlanticBoard + toHst},
    {12, "P.E.I.", board + toGst},
    {50, "ON", ontarioRules},
};

/// The rules of one province, with those that bring each corporate tax number to its own.
string rulesOf(const Province& own) {
  string rules = own.rules;
  for (const Province& other : provinces) {
    // Quebec's list never had an entry for Saskatchewan.
    const bool isMissing = own.code == 8 && other.code == 4;
    if (string(other.corporate) == own.corporate || isMissing) continue;
    rules +=
        string("|") + other.corporate + " Corp. Tax Number=" + own.corporate + " Corp. Tax Number";
  }
  return rules;
}

vector<Rule> rulesOf(const RuleBlock& block) {
  vector<Rule> rules;
  for (const string& line : split(block.rules))
    for (const char* digit : {"1", "2", "3", "4", "5"}) {
      const string rule = replaceAll(line, "#", digit);
      const std::size_t equals = rule.find('=');
      const string to = block.open + rule.substr(equals + 1) + block.close;
      for (const string& from : split(rule.substr(0, equals), '+'))
        rules.push_back({block.open + from + block.close, to});
      if (rule == line) break;
    }
  return rules;
}

constexpr char headers[] =
    "[Appointment Info]|[Task Info]|[Time Entry Info]|[Company Address Info]|"
    "[Default Contact Name]|[Company Accounting Info]|[Company Software Info]|"
    "[More Contact Info]|[Company Info]";

string applyInOrder(string text, const vector<Rule>& rules) {
  for (const Rule& rule : rules) text = replaceAllIgnoreCase(text, rule.from, rule.to);
  return text;
}

string tidied(string text) {
  for (const string& header : split(headers)) text = replaceAllIgnoreCase(text, header, "");
  if (characterCount(text) > 40) return text;
  if (text.find("«") == string::npos) text = "«" + text;
  return text.find("»") == string::npos ? text + "»" : text;
}

/// The rules' own pieces: texts of them make many rules meet and make work for each other.
vector<string> piecesOf(const vector<vector<Rule>>& books) {
  vector<string> pieces = split(headers);
  for (const string& piece : split("«|»|<|>|\\'ab|\\'bb|(|)|, | |\\par |é|\xC2|\xAB|[|]|D|Due Date|"
                                   "Long |Date|<<(Due Date"))
    pieces.push_back(piece);
  for (const vector<Rule>& rules : books)
    for (const auto& [from, to] : rules) {
      const std::size_t half = from.size() / 2;
      pieces.insert(pieces.end(), {from, from.substr(0, half), from.substr(half)});
    }
  return pieces;
}

TEST_F(TemplateRewrites, EqualTheRulesOneByOne) {
  vector<Rule> general;
  for (const RuleBlock& block : generalBlocks)
    for (const Rule& rule : rulesOf(block)) general.push_back(rule);
  const vector<Rule> toAmerican = rulesOf(nationalBlock);
  vector<Rule> toCanadian = toAmerican;
  for (Rule& rule : toCanadian) std::swap(rule.from, rule.to);
  vector<vector<Rule>> books;
  for (const Province& province : provinces)
    books.push_back(rulesOf({"«", "»", rulesOf(province).c_str()}));
  const std::size_t count = books.size();
  books.insert(books.end(), {general, toAmerican});
  const vector<string> pieces = piecesOf(books);
  std::mt19937 random(20100701);
  for (std::size_t round = 0; round < 6000; ++round) {
    string text;
    for (std::size_t left = random() % 9; left > 0; --left) {
      const string& piece = pieces[random() % pieces.size()];
      const auto spelling = random() % 4;
      text += spelling == 0 ? upperCase(piece) : spelling == 1 ? lowerCase(piece) : piece;
    }
    const std::size_t i = round % count;
    const string anywhere = applyInOrder(tidied(text), general);
    const string canadian = applyInOrder(applyInOrder(anywhere, books[i]), toCanadian);
    const string american = applyInOrder(anywhere, toAmerican);
    for (const auto& [country, expected] : {std::pair{1, canadian}, {2, american}, {3, anywhere}}) {
      live(country, provinces[i].code);
      ASSERT_EQ(merge->convertProvinceFields(text), expected) << "round " << round << ": " << text;
    }
  }
}

TEST_F(TemplateRewrites, MakeTokensOfShortTextsAlone) {
  const string forty = replaceAll(string(40, 'x'), "x", "é");
  const std::pair<string, string> cases[] = {
      {"", "«»"},
      {"«Company Name", "«Company Name»"},
      {"a » b « c", "a » b « c"},
      {forty, "«" + forty + "»"},
      {forty + "x", forty + "x"},
      {"[Task [task info]Info]Task Name[COMPANY INFO]", "«[Task Info]Task Name»"},
      {forty + "[Contact Name][Company Info]", forty + "[Contact Name]"},
      // A short text is taken for a name before the older marks are read.
      {"<<Docket>>", "««Time Entry»»"},
  };
  for (const auto& [text, rewritten] : cases)
    EXPECT_EQ(merge->convertProvinceFields(text), rewritten);
}

}  // namespace
}  // namespace autonotify::test
