#include <random>

#include "control/contract/enumerations.h"
#include "merge/merge_host.h"
#include "merge/template_layout.h"
#include "platform/text.h"

namespace autonotify::test {
namespace {

using std::string;
using std::vector;

/// The rules as they are told, step by step, over a list of samples: what every merge must give,
/// however it gets there.
class PlainRules {
 public:
  PlainRules(clsInsertFieldsInRTB& merge, GridColumnList& list) : merge_(merge), list_(list) {}

  string merge(const string& templateText) {
    string text = merge_.convertProvinceFields(templateText);
    for (const MergeMarks& marks : {bareMarks, escapedMarks})
      if (pass(text, marks)) break;
    if (!removeTokens(text, bareMarks)) removeTokens(text, escapedMarks);
    return text;
  }

 private:
  bool pass(string& text, const MergeMarks& marks) {
    for (const auto format : mergeDateFormats) {
      string pattern(format);
      replace(text, dateToken(marks, todaysDateName, format),
              [&] { return merge_.getTodaysDate(pattern); });
    }
    bool isFound = false;
    for (int row = 1; row <= list_.getEntryCount(); ++row) {
      list_.selectEntry(row);
      const string name = toText(list_.getItem(2));
      const bool isDate = toInteger(list_.getItem(4)) == 2;
      const auto value = [&] { return merge_.getDataFieldInfo(row, ""); };
      if (!isDate) {
        isFound = replace(text, plainToken(marks, name), value) || isFound;
        continue;
      }
      for (const auto format : mergeDateFormats)
        isFound = replace(text, dateToken(marks, name, format), value) || isFound;
    }
    return isFound;
  }

  template <class ValueOf>
  bool replace(string& text, const string& token, ValueOf valueOf) {
    const std::size_t at = findIgnoreCase(text, token);
    if (at == string::npos) return false;
    string value = valueOf();
    if (merge_.ConvertStrToRTF && at > 0 && text[at - 1] != ' ') value = " " + value;
    text = replaceAllIgnoreCase(text, token, value);
    return true;
  }

  static bool removeTokens(string& text, const MergeMarks& marks) {
    bool isAny = false;
    for (;;) {
      const std::size_t open = findIgnoreCase(text, marks.open);
      if (open == string::npos) return isAny;
      const std::size_t close = findIgnoreCase(text, marks.close, open + marks.open.size());
      if (close == string::npos) return isAny;
      text = replaceAll(text, text.substr(open, close + marks.close.size() - open), "");
      isAny = true;
    }
  }

  clsInsertFieldsInRTB& merge_;
  GridColumnList& list_;
};

class MergeLayout : public MergeHost {
 protected:
  std::mt19937 random_{20260430};

  const char* pick(const vector<const char*>& pieces) { return pieces[random_() % pieces.size()]; }

  string compose(const vector<const char*>& pieces, unsigned atMost) {
    string text;
    for (unsigned left = random_() % atMost + 1; left > 0; --left) text += pick(pieces);
    return text;
  }

  /// Lists random fields and compares random templates of the pieces with the plain rules.
  void compare(const vector<const char*>& names, const vector<const char*>& values,
               const vector<const char*>& pieces, int rounds) {
    GridColumnList& list = *merge->get_FieldList();
    PlainRules rules(*merge, list);
    merge->TestComment = true;
    for (int round = 0; round < rounds; ++round) {
      list.clearEntries();
      const int rows = static_cast<int>(random_() % 6) + 1;
      for (int row = 1; row <= rows; ++row) {
        const Value items[] = {"Column", pick(names), "None", random_() % 3 == 0 ? 2 : 1,
                               compose(values, 2)};
        list.addEntry(row, items);
      }
      merge->ConvertStrToRTF = random_() % 4 != 0;
      const string text = compose(pieces, 12) + "                                         ";
      const string expected = rules.merge(text);
      ASSERT_EQ(merged(text), expected) << "round " << round << ": " << text;
      ASSERT_EQ(merged(text), expected) << "again, round " << round << ": " << text;
    }
  }
};

const vector<const char*> fieldNames = {"A", "a", "Bé", "BÉ", "C, d", "(A, d)", "", "Todays Date"};

TEST_F(MergeLayout, GivesWhatTheRulesGiveForWellFormedTemplates) {
  const vector<const char*> values = {"", "one", " two", "three ", "\r\n", "(A, d)", "é"};
  compare(fieldNames, values,
          {"«A»", "«a»", "«bé»", "«BÉ»", "«(A, d)»", "«(C, d, d)»", "«(bÉ, dddd, mmmm d yyyy)»",
           "«»", "«Foo»", "«(Todays Date, yyyy)»", "«(A, D)»", "«Todays Date»", " ", "x", "\\par ",
           "x «C, d» y"},
          2000);
  compare(fieldNames, values,
          {R"(\'abA\'bb)", R"(\'ABa\'Bb)", R"(\'abbé\'bb)", R"(\'ab(A, d)\'bb)",
           R"(\'ab(C, d, d)\'bb)", R"(\'ab\'bb)", R"(\'abFoo\'bb)",
           R"(\'ab(Todays Date, yyyy)\'bb)", " ", "x", "\\par ", "{", "\\b", "\\b "},
          2000);
}

TEST_F(MergeLayout, GivesWhatTheRulesGiveForAnyTemplateAndValue) {
  const vector<const char*> fragments = {"«",
                                         "»",
                                         "«A»",
                                         "«(A, d)»",
                                         "A",
                                         R"(\'ab)",
                                         R"(\'bb)",
                                         R"(\'AB)",
                                         "\\",
                                         "'",
                                         "ab",
                                         "bb",
                                         R"(\'abA\'bb)",
                                         "\xC2",
                                         "\xAB",
                                         "\xBB",
                                         " ",
                                         "(A, ",
                                         "d)",
                                         R"(\'ab(A, d)\'bb)",
                                         "Foo",
                                         "«Foo»",
                                         R"(\'a)",
                                         "b",
                                         "«(Todays Date, yyyy)»",
                                         R"(\'abfoo\'bb)"};
  vector<const char*> names = fieldNames;
  names.insert(names.end(), {"A»", "«A", R"(\'abA)", "\\", "\xC2", "Foo"});
  compare(names, fragments, fragments, 8000);
  compare(fieldNames, fragments, {"«A»", "«Foo»", "«(A, d)»", " ", "x", "«a»", "«C, d»"}, 2000);
}

TEST_F(MergeLayout, IsRegularWhenMarksOfOneSpellingAlternate) {
  const struct {
    const char* text;
    bool isRegular;
    std::size_t slots;
  } cases[] = {
      {"", true, 0},
      {"«A» «a» «B»", true, 3},
      {R"(\'abA\'bb«)", false, 0},
      {"«A» »", false, 1},
      {"«A «B»", false, 0},
      {"»«", false, 0},
      {"«A", false, 0},
      {"\\«A»", false, 0},
      {"\xC2«A»", false, 0},
      {R"(\'abA\'BB)", true, 1},
      {R"(\b \'abA\'bb\b0 \i\'abA\'bb)", true, 2},
      {R"(\'\'abA\'bb)", false, 0},
      {R"(\'A\'abA\'bb)", false, 0},
      {R"(\'e9\'abA\'bb)", true, 1},
  };
  for (const auto& [text, isRegular, slots] : cases) {
    const TemplateLayout layout{string(text)};
    EXPECT_EQ(layout.isRegular(), isRegular) << text;
    EXPECT_EQ(isRegular ? layout.slots().size() : slots, slots) << text;
  }
}

TEST_F(MergeLayout, FollowsTheInstallationAndTheList) {
  const string text = "Your number «HST Number», your state «State» and so on and on.";
  listSamples({{"GST Number", "1"}, {"HST Number", "2"}, {"Province", "3"}, {"State", "4"}});
  const auto live = [&](countryCode country, provinceCode province) {
    host.plainLocale.settings().country = country;
    host.plainLocale.settings().province = province;
    return merged(text);
  };
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(live(countryCanada, provinceOntario),
              "Your number 1, your state 3 and so on and on.");
    EXPECT_EQ(live(countryCanada, provinceNovaScotia),
              "Your number 2, your state 3 and so on and on.");
    EXPECT_EQ(live(countryUnitedStates, provinceOntario),
              "Your number 2, your state 4 and so on and on.");
  }
  listSamples({{"State", "5"}});
  EXPECT_EQ(merged(text), "Your number , your state 5 and so on and on.");
}

TEST_F(MergeLayout, NoticesARebuiltList) {
  const string text = "«Task Name», «Time Entry Name» and «Company Name» and so on and on.";
  merge->TestComment = true;
  listFields(8);
  const string ofTask = merged(text);
  EXPECT_EQ(ofTask.find(","), merged("«Task Name»").size());
  listFields(6);
  EXPECT_TRUE(merged(text).starts_with(", "));
  listFields(8);
  EXPECT_EQ(merged(text), ofTask);
}

TEST_F(MergeLayout, StandsAMergeThatAMessageStartsWithinIt) {
  merge->companyID =
      addRow("Companies", "CompanyID", {{"CompanyName", "Elm Ltd."}, {"City", "Guelph"}});
  merge->ListType = 8;
  merge->initializeDataRecordsetsForSingleDocMerge();
  string inner;
  forms.nextMessage = [&] {
    inner = merged("«City», «Company Name», «Country», «Email», «Fax Number», «Office Number».");
  };
  EXPECT_EQ(merged("Dear «Company Name» of «City», thank you for your visit in spring."),
            "Dear Elm Ltd. of Guelph, thank you for your visit in spring.");
  EXPECT_EQ(inner, "Guelph, Elm Ltd., , , , .");
}

TEST_F(MergeLayout, KeepsAFewTemplatesOfOrdinarySize) {
  const TemplateLayoutCache& cache = TemplateLayoutCache::instance();
  listSamples({{"A", "1"}});
  for (std::size_t i = 0; i < 2 * TemplateLayoutCache::maxEntries; ++i)
    merged("A letter that is longer than forty characters, number " + std::to_string(i));
  EXPECT_EQ(cache.size(), TemplateLayoutCache::maxEntries);
  const string last = "A letter that is longer than forty characters, number 63";
  EXPECT_NE(TemplateLayoutCache::instance().find(last, {countryCanada, provinceOntario, true}),
            nullptr);
  const string large(TemplateLayoutCache::maxTemplateSize + 1, 'x');
  EXPECT_EQ(merged(large + "«A»"), large + " 1");
  EXPECT_EQ(
      TemplateLayoutCache::instance().find(large + "«A»", {countryCanada, provinceOntario, true}),
      nullptr);
}

}  // namespace
}  // namespace autonotify::test
