#include <random>

#include "merge/MergeTest.h"
#include "merge/template_layout.h"
#include "platform/text.h"

namespace autonotify::test {
namespace {

using std::string;
using std::vector;

/// The rules step by step over a list of samples: what every merge must give, however it gets
/// there.
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

class MergeByLayout : public MergeTest {
 protected:
  std::mt19937 random_{20260430};

  string compose(const vector<const char*>& pieces, unsigned atMost) {
    string text;
    for (unsigned left = random_() % atMost + 1; left > 0; --left)
      text += pieces[random_() % pieces.size()];
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
        const Value items[] = {"Column", names[random_() % names.size()], "None",
                               random_() % 3 == 0 ? 2 : 1, compose(values, 2)};
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

TEST_F(MergeByLayout, GivesWhatTheRulesGive) {
  const vector<const char*> names = {"A", "a", "Bé", "BÉ", "C, d", "(A, d)", "", "Todays Date"};
  const vector<const char*> values = {"", "one", " two", "three ", "\r\n", "(A, d)", "é"};
  compare(names, values,
          {"«A»", "«a»", "«bé»", "«BÉ»", "«(A, d)»", "«(C, d, d)»", "«(bÉ, dddd, mmmm d yyyy)»",
           "«»", "«Foo»", "«(Todays Date, yyyy)»", "«(A, D)»", "«Todays Date»", " ", "x", "\\par ",
           "x «C, d» y"},
          2000);
  compare(names, values,
          {R"(\'abA\'bb)", R"(\'ABa\'Bb)", R"(\'abbé\'bb)", R"(\'ab(A, d)\'bb)",
           R"(\'ab(C, d, d)\'bb)", R"(\'ab\'bb)", R"(\'abFoo\'bb)",
           R"(\'ab(Todays Date, yyyy)\'bb)", " ", "x", "\\par ", "{", "\\b", "\\b "},
          2000);
  // Marks in pieces, in the template as in the values.
  const vector<const char*> pieces = {"«",
                                      "»",
                                      "«A»",
                                      "«(A, d)»",
                                      "A",
                                      R"(\'ab)",
                                      R"(\'bb)",
                                      "\\",
                                      "'",
                                      "ab",
                                      "bb",
                                      "\xC2",
                                      R"(\'abA\'bb)",
                                      R"(\'AB)",
                                      "\xAB",
                                      " ",
                                      "d)",
                                      "\xBB",
                                      "(A, ",
                                      R"(\'ab(A, d)\'bb)",
                                      "Foo",
                                      R"(\'a)",
                                      "b",
                                      "«Foo»",
                                      R"(\'abfoo\'bb)",
                                      "«(Todays Date, yyyy)»"};
  vector<const char*> oddNames = names;
  oddNames.insert(oddNames.end(), {"A»", "«A", R"(\'abA)", "\\", "\xC2", "Foo"});
  compare(oddNames, pieces, pieces, 8000);
  compare(names, pieces, {"«A»", "«Foo»", "«(A, d)»", " ", "x", "«a»", "«C, d»"}, 2000);
}

// A template that is not regular merges as well, only slower.
TEST_F(MergeByLayout, TakesOrdinaryTemplatesForRegular) {
  for (const char* text :
       {"", "«A» «a» «B»", R"(\'abA\'BB)", R"(\'e9\'abA\'bb)", R"(\b \'abA\'bb\b0 \i\'abA\'bb)"})
    EXPECT_TRUE(TemplateLayout{string(text)}.isRegular()) << text;
}

TEST_F(MergeByLayout, FollowsTheInstallationAndTheList) {
  const string text = "Your number «HST Number», your state «State» and so on and on.";
  listSamples({{"GST Number", "1"}, {"HST Number", "2"}, {"Province", "3"}, {"State", "4"}});
  for (int round = 0; round < 2; ++round)
    for (const auto& [country, province, numbers] :
         {std::tuple{1, 3, "13"}, {1, 9, "23"}, {2, 3, "24"}}) {
      live(country, province);
      EXPECT_EQ(merged(text), string("Your number ") + numbers[0] + ", your state " + numbers[1] +
                                  " and so on and on.");
    }
  listSamples({{"State", "5"}});
  EXPECT_EQ(merged(text), "Your number , your state 5 and so on and on.");
  const auto ofList = [&](int listType) {
    build(listType);
    return merged("«Task Name», «Time Entry Name» and «Company Name» and so on and on.");
  };
  const string ofTask = ofList(8);
  EXPECT_FALSE(ofTask.starts_with(", "));
  EXPECT_TRUE(ofList(6).starts_with(", "));
  EXPECT_EQ(ofList(8), ofTask);
}

TEST_F(MergeByLayout, StandsAMergeThatAMessageStartsWithinIt) {
  merge->companyID = addRow("Companies", {{"CompanyName", "Elm Ltd."}, {"City", "Guelph"}});
  merge->ListType = 8;
  merge->initializeDataRecordsetsForSingleDocMerge();
  string inner;
  windows.nextMessage = [&] {
    inner = merged("«City», «Company Name», «Country», «Email», «Fax Number», «Office Number».");
  };
  EXPECT_EQ(merged("Dear «Company Name» of «City», thank you for your visit in spring."),
            "Dear Elm Ltd. of Guelph, thank you for your visit in spring.");
  EXPECT_EQ(inner, "Guelph, Elm Ltd., , , , .");
}

TEST_F(MergeByLayout, KeepsAFewTemplatesOfOrdinarySize) {
  TemplateLayoutCache& cache = TemplateLayoutCache::instance();
  const auto isKept = [&](const string& text) { return cache.find(text, {1, 3, true}) != nullptr; };
  const string start = "A letter that is longer than forty characters, number ";
  listSamples({{"A", "1"}});
  live(1, 3);
  for (std::size_t i = 0; i < 2 * TemplateLayoutCache::maxEntries; ++i)
    merged(start + std::to_string(i));
  EXPECT_EQ(cache.size(), TemplateLayoutCache::maxEntries);
  EXPECT_TRUE(isKept(start + "63"));
  EXPECT_FALSE(isKept(start + "0"));
  const string large(TemplateLayoutCache::maxTemplateSize + 1, 'x');
  EXPECT_EQ(merged(large + "«A»"), large + " 1");
  EXPECT_FALSE(isKept(large + "«A»"));
}

}  // namespace
}  // namespace autonotify::test
