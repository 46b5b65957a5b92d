#include <random>
#include <span>

#include "fields_host.h"
#include "merge/rewrite_list.h"
#include "platform/text.h"

namespace autonotify::test {
namespace {

/// The rules of one province as they are written down: one after the other over the whole text.
struct Rule {
  const char* from;
  const char* to;
};

constexpr Rule general[] = {
    {"<<", "«"},
    {">>", "»"},
    {"«(Due Date", "«(Task Due Date"},
    {"«(in-House Due Date", "«(Task in-House Due Date"},
    {"«(Calendar Date", "«(Task Calendar Due Date"},
    {"\\'ab(Due Date", "\\'ab(Task Due Date"},
    {"\\'ab(in-House Due Date", "\\'ab(Task in-House Due Date"},
    {"\\'ab(Calendar Date", "\\'ab(Task Calendar Due Date"},
    {"«Contact Full Name»", "«Contact Display Name»"},
    {"\\'abContact Full Name\\'bb", "\\'abContact Display Name\\'bb"},
    {"Contact Full Name", "Contact Display Name"},
    {"Docket", "Time Entry"},
    {"Long Date", "dddd, mmmm d yyyy"},
    {"Medium Date", "mmm d yyyy"},
    {"Short Date", "dd/mm/yy"},
    {"«Notified Date»", "«Calendar Date»"},
    {"«Weekday Date»", "«Calendar Date»"},
    {"\\'abNotified Date\\'bb", "\\'abCalendar Date\\'bb"},
    {"\\'abWeekday Date\\'bb", "\\'abCalendar Date\\'bb"},
    {"«Remittance Name»", "«Task Name»"},
    {"«Remittance Due Date»", "«Task Due Date»"},
    {"«Remittance in-House Due Date»", "«Task in-House Due Date»"},
    {"«Remittance Weekday Due Date»", "«Task Calendar Date»"},
    {"«Task Weekday Due Date»", "«Task Calendar Date»"},
    {"«Remittance Year»", "«Task Year»"},
    {"«Custom Remitt Field 1»", "«Custom Task Field 1»"},
    {"«Custom Remitt Field 2»", "«Custom Task Field 2»"},
    {"«Custom Remitt Field 3»", "«Custom Task Field 3»"},
    {"«Custom Remitt Field 4»", "«Custom Task Field 4»"},
    {"«Custom Remitt Field 5»", "«Custom Task Field 5»"},
    {"«Contact Full Name»", "«Contact Display Name»"},
    {"\\'abRemittance Name\\'bb", "\\'abTask Name\\'bb"},
    {"\\'abRemittance Due Date\\'bb", "\\'abTask Due Date\\'bb"},
    {"\\'abRemittance in-House Due Date\\'bb", "\\'abTask in-House Due Date\\'bb"},
    {"\\'abRemittance Weekday Due Date\\'bb", "\\'abTask Calendar Date\\'bb"},
    {"\\'abTask Weekday Due Date\\'bb", "\\'abTask Calendar Date\\'bb"},
    {"\\'abRemittance Year\\'bb", "\\'abTask Year\\'bb"},
    {"\\'abCustom Remitt Field 1\\'bb", "\\'abCustom Task Field 1\\'bb"},
    {"\\'abCustom Remitt Field 2\\'bb", "\\'abCustom Task Field 2\\'bb"},
    {"\\'abCustom Remitt Field 3\\'bb", "\\'abCustom Task Field 3\\'bb"},
    {"\\'abCustom Remitt Field 4\\'bb", "\\'abCustom Task Field 4\\'bb"},
    {"\\'abCustom Remitt Field 5\\'bb", "\\'abCustom Task Field 5\\'bb"},
    {"\\'abContact Full Name\\'bb", "\\'abContact Display Name\\'bb"},
    {"«Custom Field 1»", "«Business Client Custom Field 1»"},
    {"«Custom Field 2»", "«Business Client Custom Field 2»"},
    {"«Custom Field 3»", "«Business Client Custom Field 3»"},
    {"«Custom Field 4»", "«Business Client Custom Field 4»"},
    {"«Custom Field 5»", "«Business Client Custom Field 5»"},
    {"\\'abCustom Field 1\\'bb", "\\'abBusiness Client Custom Field 1\\'bb"},
    {"\\'abCustom Field 2\\'bb", "\\'abBusiness Client Custom Field 2\\'bb"},
    {"\\'abCustom Field 3\\'bb", "\\'abBusiness Client Custom Field 3\\'bb"},
    {"\\'abCustom Field 4\\'bb", "\\'abBusiness Client Custom Field 4\\'bb"},
    {"\\'abCustom Field 5\\'bb", "\\'abBusiness Client Custom Field 5\\'bb"},
};

constexpr Rule national[] = {
    {"«Province»", "«State»"},
    {"«Postal Code»", "«Zip Code»"},
    {"«Contact Business Province»", "«Contact Business State»"},
    {"«Contact Business Postal Code»", "«Contact Business Zip Code»"},
    {"«Contact Home Province»", "«Contact Home State»"},
    {"«Contact Home Postal Code»", "«Contact Home Zip Code»"},
    {"«Spouse Home Province»", "«Spouse Home State»"},
    {"«Spouse Home Postal Code»", "«Spouse Home Zip Code»"},
    {"«Your Province»", "«Your State»"},
    {"«Your Postal Code»", "«Your Zip Code»"},
    {"«Contact SIN»", "«Contact SSN»"},
    {"«Spouse SIN»", "«Spouse SSN»"},
};

constexpr const char* headers[] = {
    "[Appointment Info]",      "[Task Info]",
    "[Time Entry Info]",       "[Company Address Info]",
    "[Default Contact Name]",  "[Company Accounting Info]",
    "[Company Software Info]", "[More Contact Info]",
    "[Company Info]",
};

struct ProvinceRules {
  int code;
  bool isHarmonized;
  std::vector<Rule> rules;
};

const std::vector<ProvinceRules>& provinces() {
  static const std::vector<ProvinceRules> all = {
      {0,
       false,
       {{"«WSIB Number»", "«WCB Number»"},
        {"«NEQ Number»", "«WCB Number»"},
        {"«WHSCC Number»", "«WCB Number»"},
        {"«WSIB Premium Rate»", "«WCB Premium Rate»"},
        {"«WSIB Firm Number»", "«WSIB Firm Number»"},
        {"«HST Number»", "«GST Number»"},
        {"«ON Corp. Tax Number»", "«Alberta Corp. Tax Number»"},
        {"«Sask. Corp. Tax Number»", "«Alberta Corp. Tax Number»"},
        {"«Nfld. Corp. Tax Number»", "«Alberta Corp. Tax Number»"},
        {"«P.E.I. Corp. Tax Number»", "«Alberta Corp. Tax Number»"}}},
      {1,
       false,
       {{"«WSIB Number»", "«WCB Number»"},
        {"«NEQ Number»", "«WCB Number»"},
        {"«WHSCC Number»", "«WCB Number»"},
        {"«WSIB Premium Rate»", "«WCB Premium Rate»"},
        {"«WSIB Firm Number»", "«WSIB Firm Number»"},
        {"«HST Number»", "«GST Number»"},
        {"«ON Corp. Tax Number»", "«BC Corp. Tax Number»"},
        {"«Sask. Corp. Tax Number»", "«BC Corp. Tax Number»"},
        {"«Nfld. Corp. Tax Number»", "«BC Corp. Tax Number»"},
        {"«P.E.I. Corp. Tax Number»", "«BC Corp. Tax Number»"}}},
      {8,
       true,
       {{"«WSIB Number»", "«NEQ Number»"},
        {"«WSIB Premium Rate»", "«CSST Premium Rate»"},
        {"«WHSCC Number»", "«WCB Number»"},
        {"«WSIB Firm Number»", "«WSIB Firm Number»"},
        {"«HST Number»", "«GST Number»"},
        {"«ON Corp. Tax Number»", "«Que. Corp. Tax Number»"},
        {"«Nfld. Corp. Tax Number»", "«Que. Corp. Tax Number»"},
        {"«P.E.I. Corp. Tax Number»", "«Que. Corp. Tax Number»"},
        {"«ON Corp. MCBS Number»", "«Quebec ID Number»"}}},
      {10,
       true,
       {{"«WSIB Number»", "«WHSCC Number»"},
        {"«WCB Number»", "«WHSCC Number»"},
        {"«NEQ Number»", "«WHSCC Number»"},
        {"«WSIB Premium Rate»", "«WHSCC Premium Rate»"},
        {"«WSIB Firm Number»", "«WSIB Firm Number»"},
        {"«GST Number»", "«HST Number»"},
        {"«ON Corp. Tax Number»", "«N.B. Corp. Tax Number»"},
        {"«Sask. Corp. Tax Number»", "«N.B. Corp. Tax Number»"},
        {"«Nfld. Corp. Tax Number»", "«N.B. Corp. Tax Number»"},
        {"«P.E.I. Corp. Tax Number»", "«N.B. Corp. Tax Number»"}}},
      {3,
       true,
       {{"«GST Number»", "«HST Number»"},
        {"«WCB Number»", "«WSIB Number»"},
        {"«NEQ Number»", "«WSIB Number»"},
        {"«WHSCC Number»", "«WSIB Number»"},
        {"«WCB Firm Number»", "«WSIB Firm Number»"},
        {"«WCB Premium Rate»", "«WSIB Premium Rate»"},
        {"«HST Number»", "«GST Number»"},
        {"«Sask. Corp. Tax Number»", "«ON Corp. Tax Number»"},
        {"«Nfld. Corp. Tax Number»", "«ON Corp. Tax Number»"},
        {"«P.E.I. Corp. Tax Number»", "«ON Corp. Tax Number»"},
        {"«Quebec ID Number»", "«ON Corp. MCBS Number»"}}},
  };
  return all;
}

std::string applyInOrder(std::string text, std::span<const Rule> rules) {
  for (const Rule& rule : rules) text = replaceAllIgnoreCase(text, rule.from, rule.to);
  return text;
}

std::string tidied(std::string text) {
  for (const char* header : headers) text = replaceAllIgnoreCase(text, header, "");
  if (characterCount(text) < 41) {
    if (text.find("«") == std::string::npos) text = "«" + text;
    if (text.find("»") == std::string::npos) text += "»";
  }
  return text;
}

std::string rewrittenInCanada(const std::string& text, const ProvinceRules& province) {
  std::string result = applyInOrder(applyInOrder(tidied(text), general), province.rules);
  for (const Rule& rule : national) result = replaceAllIgnoreCase(result, rule.to, rule.from);
  return result;
}

/// Texts of the rules' own pieces, so that many rules meet and make work for each other.
class TemplateMaker {
 public:
  explicit TemplateMaker(unsigned seed) : random_(seed) {
    for (const Rule& rule : general) addPieces(rule);
    for (const Rule& rule : national) addPieces(rule);
    for (const ProvinceRules& province : provinces())
      for (const Rule& rule : province.rules) addPieces(rule);
    for (const char* header : headers) pieces_.push_back(header);
    for (const char* other :
         {"«",      "»", "<",    ">",    "\\'ab", "\\'bb", "(", ")",        ", ",    " ",
          "\\par ", "é", "\xC2", "\xAB", "[",     "]",     "D", "Due Date", "Long ", "Date"})
      pieces_.push_back(other);
  }

  std::string make() {
    std::string text;
    for (std::size_t count = random_() % 9; count > 0; --count) text += piece();
    return text;
  }

 private:
  void addPieces(const Rule& rule) {
    const std::string from = rule.from;
    pieces_.push_back(from);
    pieces_.push_back(from.substr(0, from.size() / 2));
    pieces_.push_back(from.substr(from.size() / 2));
  }

  std::string piece() {
    const std::string& chosen = pieces_[random_() % pieces_.size()];
    switch (random_() % 4) {
      case 0:
        return upperCase(chosen);
      case 1:
        return lowerCase(chosen);
      default:
        return chosen;
    }
  }

  std::mt19937 random_;
  std::vector<std::string> pieces_;
};

TEST_F(FieldsHost, RewritingEqualsTheRulesOneByOne) {
  constexpr unsigned seed = 20100701;
  TemplateMaker maker(seed);
  for (int round = 0; round < 4000; ++round) {
    const std::string text = maker.make();
    const ProvinceRules& province = provinces()[static_cast<std::size_t>(round) % 5];
    live(1, province.code);
    clock.moment = province.isHarmonized ? DateTime::of(2026, 1, 1) : DateTime::of(2010, 6, 30);
    ASSERT_EQ(merge->convertProvinceFields(text), rewrittenInCanada(text, province))
        << "round " << round << " of seed " << seed << ": " << text;
    live(2, province.code);
    ASSERT_EQ(merge->convertProvinceFields(text),
              applyInOrder(applyInOrder(tidied(text), general), national))
        << "round " << round << " of seed " << seed << ": " << text;
    live(3, province.code);
    ASSERT_EQ(merge->convertProvinceFields(text), applyInOrder(tidied(text), general));
  }
}

struct RegionCase {
  int country;
  int province;
  const char* text;
  const char* rewritten;
};

TEST_F(FieldsHost, RegionsBringTokensToTheirNames) {
  constexpr RegionCase cases[] = {
      {1, 2, "«N.S. Corp. Tax Number» «HST Number»", "«Manitoba Corp. Tax Number» «GST Number»"},
      {1, 4, "«Que. Corp. Tax Number»", "«Sask. Corp. Tax Number»"},
      {1, 8, "«Sask. Corp. Tax Number» «Que. Corp. Tax Number»",
       "«Sask. Corp. Tax Number» «Que. Corp. Tax Number»"},
      {1, 8, "«BC Corp. Tax Number» «WCB Number»", "«Que. Corp. Tax Number» «WCB Number»"},
      {1, 9, "«WHSCC Number» «GST Number»", "«WCB Number» «HST Number»"},
      {1, 11, "«Manitoba Corp. Tax Number»", "«Nfld. Corp. Tax Number»"},
      {1, 12, "«HST Number» «N.B. Corp. Tax Number»", "«GST Number» «P.E.I. Corp. Tax Number»"},
      {1, 3, "«HST Number» «GST Number»", "«GST Number» «GST Number»"},
      {1, 1, "«HST Number» «GST Number»", "«GST Number» «GST Number»"},
      {1, 50, "«WCB Firm Number» «Alberta Corp. Tax Number»",
       "«WSIB Firm Number» «ON Corp. Tax Number»"},
      {1, 3, "«Contact SSN» «zip code»", "«Contact SIN» «Postal Code»"},
      {2, 3, "«Contact SIN» «Province»", "«Contact SSN» «State»"},
      {2, 3, "«WCB Number» «Contact Alternate Province»",
       "«WCB Number» «Contact Alternate Province»"},
      {1, 3, "\\'abHST Number\\'bb and \\'abState\\'bb in rich text",
       "\\'abHST Number\\'bb and \\'abState\\'bb in rich text"},
  };
  for (const RegionCase& region : cases) {
    live(region.country, region.province);
    EXPECT_EQ(merge->convertProvinceFields(region.text), region.rewritten)
        << region.country << "/" << region.province;
  }
}

TEST_F(FieldsHost, WideWordsAreReplacedInTheBodyToo) {
  EXPECT_EQ(
      merge->convertProvinceFields("Please find the DOCKETs of your contact full name here»«"),
      "Please find the Time Entrys of your Contact Display Name here»«");
  EXPECT_EQ(merge->convertProvinceFields("It is due on <<(Due Date, long date)>>, as you know."),
            "It is due on «(Task Due Date, dddd, mmmm d yyyy)», as you know.");
  // A short text is taken for a name before the older marks are read.
  EXPECT_EQ(merge->convertProvinceFields("<<Docket>>"), "««Time Entry»»");
}

TEST_F(FieldsHost, AFailedLocaleCallLeavesTheGeneralRules) {
  references().localeReference = nullptr;
  errors.answer({error_choice::next, error_choice::leave});
  EXPECT_EQ(merge->convertProvinceFields("«HST Number» <<Docket>>"), "«HST Number» «Time Entry»");
  EXPECT_EQ(merge->convertProvinceFields("«HST Number» <<Docket>>"), "«HST Number» «Time Entry»");
  references().localeReference = &locale;
}

struct TidyCase {
  std::string text;
  std::string tidied;
};

TEST_F(FieldsHost, ShortTextsBecomeTokens) {
  const std::string fortyCharacters(39, 'x');
  const std::string accents = [] {
    std::string text;
    for (int i = 0; i < 40; ++i) text += "é";
    return text;
  }();
  const TidyCase cases[] = {
      {"", "«»"},
      {"Company Name", "«Company Name»"},
      {"«Company Name", "«Company Name»"},
      {"Company Name»", "«Company Name»"},
      {"a » b « c", "a » b « c"},
      {fortyCharacters + "x", "«" + fortyCharacters + "x»"},
      {fortyCharacters + "xx", fortyCharacters + "xx"},
      {accents, "«" + accents + "»"},
      {accents + "é", accents + "é"},
      {"[task info]Task Name[COMPANY INFO]", "«Task Name»"},
      {"[Task [Task Info]Info]", "«[Task Info]»"},
      {fortyCharacters + "[Contact Name][Company Info]", fortyCharacters + "[Contact Name]"},
  };
  for (const TidyCase& tidy : cases)
    EXPECT_EQ(merge->verifyTemplateText(tidy.text), tidy.tidied) << tidy.text;
}

TEST(RewriteList, LaterRulesSeeTheResultsOfEarlierOnes) {
  const RewriteList chain({{"a1", "b1"}, {"b1", "c1"}, {"a1", "never"}, {"B2", "<>"}});
  EXPECT_EQ(chain.apply("A1 b1 b2 a 1"), "c1 c1 <> a 1");
  EXPECT_EQ(RewriteList({{"bb", "cc"}, {"aa", "bb"}}).apply("aabb"), "bbcc");
  EXPECT_EQ(RewriteList({{"xo", "xxoo"}, {"xx", "y"}}).apply("Xo"), "yoo");
  EXPECT_EQ(RewriteList({}).apply("as it is"), "as it is");
}

}  // namespace
}  // namespace autonotify::test
