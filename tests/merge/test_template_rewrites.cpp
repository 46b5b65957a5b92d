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
  const char* rules;  // "from+from=to|from=to"
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
    "Remittance Year=Task Year|Custom Remitt Field 1=Custom Task Field 1|"
    "Custom Remitt Field 2=Custom Task Field 2|Custom Remitt Field 3=Custom Task Field 3|"
    "Custom Remitt Field 4=Custom Task Field 4|Custom Remitt Field 5=Custom Task Field 5|"
    "Contact Full Name=Contact Display Name";
constexpr char customNames[] =
    "Custom Field 1=Business Client Custom Field 1|Custom Field 2=Business Client Custom Field 2|"
    "Custom Field 3=Business Client Custom Field 3|Custom Field 4=Business Client Custom Field 4|"
    "Custom Field 5=Business Client Custom Field 5";

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

struct ProvinceRules {
  int code;
  bool isHarmonized;
  const char* rules;
};
constexpr ProvinceRules provinces[] = {
    {0, false,
     "WSIB Number+NEQ Number+WHSCC Number=WCB Number|WSIB Premium Rate=WCB Premium Rate|"
     "HST Number=GST Number|ON Corp. Tax Number+Sask. Corp. Tax Number+Nfld. Corp. Tax Number+"
     "P.E.I. Corp. Tax Number=Alberta Corp. Tax Number"},
    {1, false,
     "WSIB Number+NEQ Number+WHSCC Number=WCB Number|WSIB Premium Rate=WCB Premium Rate|"
     "HST Number=GST Number|ON Corp. Tax Number+Sask. Corp. Tax Number+Nfld. Corp. Tax Number+"
     "P.E.I. Corp. Tax Number=BC Corp. Tax Number"},
    {8, true,
     "WSIB Number=NEQ Number|WSIB Premium Rate=CSST Premium Rate|WHSCC Number=WCB Number|"
     "HST Number=GST Number|ON Corp. Tax Number+Nfld. Corp. Tax Number+P.E.I. Corp. Tax Number="
     "Que. Corp. Tax Number|ON Corp. MCBS Number=Quebec ID Number"},
    {10, true,
     "WSIB Number+WCB Number+NEQ Number=WHSCC Number|WSIB Premium Rate=WHSCC Premium Rate|"
     "GST Number=HST Number|ON Corp. Tax Number+Sask. Corp. Tax Number+Nfld. Corp. Tax Number+"
     "P.E.I. Corp. Tax Number=N.B. Corp. Tax Number"},
    {3, true,
     "GST Number=HST Number|WCB Number+NEQ Number+WHSCC Number=WSIB Number|"
     "WCB Firm Number=WSIB Firm Number|WCB Premium Rate=WSIB Premium Rate|HST Number=GST Number|"
     "Sask. Corp. Tax Number+Nfld. Corp. Tax Number+P.E.I. Corp. Tax Number=ON Corp. Tax Number|"
     "Quebec ID Number=ON Corp. MCBS Number"},
};

vector<Rule> rulesOf(const RuleBlock& block) {
  vector<Rule> rules;
  for (const string& rule : split(block.rules, '|')) {
    const std::size_t equals = rule.find('=');
    const string to = block.open + rule.substr(equals + 1) + block.close;
    for (const string& from : split(rule.substr(0, equals), '+'))
      rules.push_back({block.open + from + block.close, to});
  }
  return rules;
}

constexpr char headers[] =
    "[Appointment Info]|[Task Info]|[Time Entry Info]|[Company Address Info]|"
    "[Default Contact Name]|[Company Accounting Info]|[Company Software Info]|"
    "[More Contact Info]|[Company Info]";

struct RuleBook {
  vector<Rule> general;
  vector<Rule> toAmerican = rulesOf(nationalBlock);
  vector<Rule> toCanadian = toAmerican;
  vector<vector<Rule>> byProvince;

  RuleBook() {
    for (const RuleBlock& block : generalBlocks)
      for (const Rule& rule : rulesOf(block)) general.push_back(rule);
    for (Rule& rule : toCanadian) std::swap(rule.from, rule.to);
    for (const ProvinceRules& province : provinces)
      byProvince.push_back(rulesOf({"«", "»", province.rules}));
  }

  string apply(string text) const {
    for (const string& header : split(headers)) text = replaceAllIgnoreCase(text, header, "");
    if (characterCount(text) < 41) {
      if (text.find("«") == string::npos) text = "«" + text;
      if (text.find("»") == string::npos) text += "»";
    }
    return applyInOrder(text, general);
  }
  static string applyInOrder(string text, const vector<Rule>& rules) {
    for (const Rule& rule : rules) text = replaceAllIgnoreCase(text, rule.from, rule.to);
    return text;
  }
};

/// Texts of the rules' own pieces, so that many rules meet and make work for each other.
class TemplateMaker {
 public:
  TemplateMaker(const RuleBook& book, unsigned seed) : random_(seed) {
    addPieces(book.general);
    addPieces(book.toAmerican);
    for (const vector<Rule>& rules : book.byProvince) addPieces(rules);
    for (const char* others :
         {headers, "«|»|<|>|\\'ab|\\'bb|(|)|, | |\\par |é|\xC2|\xAB|[|]|D", "Due Date|Long |Date"})
      for (const string& piece : split(others)) pieces_.push_back(piece);
  }

  string make() {
    string text;
    for (std::size_t count = random_() % 9; count > 0; --count) {
      const string& piece = pieces_[random_() % pieces_.size()];
      const auto spelling = random_() % 4;
      text += spelling == 0 ? upperCase(piece) : spelling == 1 ? lowerCase(piece) : piece;
    }
    return text;
  }

 private:
  void addPieces(const vector<Rule>& rules) {
    for (const auto& [from, to] : rules) {
      const std::size_t half = from.size() / 2;
      pieces_.insert(pieces_.end(), {from, from.substr(0, half), from.substr(half)});
    }
  }

  std::mt19937 random_;
  vector<string> pieces_;
};

TEST_F(TemplateRewrites, EqualTheRulesOneByOne) {
  constexpr unsigned seed = 20100701;
  const RuleBook book;
  TemplateMaker maker(book, seed);
  for (std::size_t round = 0; round < 4000; ++round) {
    const string text = maker.make();
    const std::size_t i = round % book.byProvince.size();
    clock.set(provinces[i].isHarmonized ? DateTime::of(2026, 1, 1) : DateTime::of(2010, 6, 30));
    const string general = book.apply(text);
    const string expected[] = {
        RuleBook::applyInOrder(RuleBook::applyInOrder(general, book.byProvince[i]),
                               book.toCanadian),
        RuleBook::applyInOrder(general, book.toAmerican), general};
    for (int country = 1; country <= 3; ++country) {
      live(country, provinces[i].code);
      ASSERT_EQ(merge->convertProvinceFields(text), expected[country - 1])
          << "round " << round << " of seed " << seed << ": " << text;
    }
  }
}

TEST_F(TemplateRewrites, FollowTheRegionAndReachTheBodyToo) {
  const auto named = [](const string& fields) {
    string text;
    for (const string& field : split(fields)) text += "«" + field + "» ";
    return text;
  };
  for (const auto& [country, province, from, to] :
       {std::tuple{1, 2, "N.S. Corp. Tax Number|HST Number",
                   "Manitoba Corp. Tax Number|GST Number"},
        {1, 4, "Que. Corp. Tax Number", "Sask. Corp. Tax Number"},
        {1, 8, "Sask. Corp. Tax Number|BC Corp. Tax Number|WCB Number",
         "Sask. Corp. Tax Number|Que. Corp. Tax Number|WCB Number"},
        {1, 9, "WHSCC Number|GST Number", "WCB Number|HST Number"},
        {1, 11, "Manitoba Corp. Tax Number", "Nfld. Corp. Tax Number"},
        {1, 12, "HST Number|N.B. Corp. Tax Number", "GST Number|P.E.I. Corp. Tax Number"},
        {1, 1, "HST Number|GST Number", "GST Number|GST Number"},
        {1, 50, "WCB Firm Number|Alberta Corp. Tax Number", "WSIB Firm Number|ON Corp. Tax Number"},
        {1, 3, "Contact SSN|zip code", "Contact SIN|Postal Code"},
        {2, 3, "WCB Number|Contact Alternate Province", "WCB Number|Contact Alternate Province"}}) {
    live(country, province);
    EXPECT_EQ(merge->convertProvinceFields(named(from)), named(to)) << country << "/" << province;
  }
  live(1, 3);
  for (const auto& [from, to] :
       {std::pair{"\\'abHST Number\\'bb and \\'abState\\'bb in rich text",
                  "\\'abHST Number\\'bb and \\'abState\\'bb in rich text"},
        {"Please find the DOCKETs of your contact full name here»«",
         "Please find the Time Entrys of your Contact Display Name here»«"},
        {"It is due on <<(Due Date, long date)>>, as you know.",
         "It is due on «(Task Due Date, dddd, mmmm d yyyy)», as you know."},
        // A short text is taken for a name before the older marks are read.
        {"<<Docket>>", "««Time Entry»»"}})
    EXPECT_EQ(merge->convertProvinceFields(from), to);
}

TEST_F(TemplateRewrites, MakeTokensOfShortTexts) {
  const string forty(40, 'x');
  const string accents = replaceAll(forty, "x", "é");
  const std::pair<string, string> cases[] = {
      {"", "«»"},
      {"«Company Name", "«Company Name»"},
      {"a » b « c", "a » b « c"},
      {forty, "«" + forty + "»"},
      {forty + "x", forty + "x"},
      {accents, "«" + accents + "»"},
      {accents + "é", accents + "é"},
      {"[Task [task info]Info]Task Name[COMPANY INFO]", "«[Task Info]Task Name»"},
      {forty + "[Contact Name][Company Info]", forty + "[Contact Name]"},
  };
  for (const auto& [text, tidied] : cases) EXPECT_EQ(merge->verifyTemplateText(text), tidied);
}

}  // namespace
}  // namespace autonotify::test
