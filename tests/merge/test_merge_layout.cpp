#include <random>

#include "merge/MergeTest.h"
#include "merge/templates/template_layout.h"

namespace autonotify::test {
namespace {

using std::string;
using std::vector;

/// Every token taken out, the first in the text first, with all that are spelled like it.
string withoutTokens(string text) {
  for (const MergeMarks& marks : {bareMarks, escapedMarks})
    for (bool isAny = false;; isAny = true) {
      const std::size_t open = findIgnoreCase(text, marks.open);
      const std::size_t close = findIgnoreCase(text, marks.close, open);
      if (open == string::npos || close == string::npos) {
        if (isAny) return text;
        break;
      }
      text = replaceAll(text, text.substr(open, close + marks.close.size() - open), "");
    }
  return text;
}

/// The rules step by step over a list of samples: what every merge must give.
string mergedStepByStep(clsInsertFieldsInRTB& merge, const string& templateText) {
  GridColumnList& list = *merge.get_FieldList();
  string text = merge.convertProvinceFields(templateText);
  bool isFound = false;
  const auto replace = [&](int row, const string& token) {
    if (findIgnoreCase(text, token) == string::npos) return;
    merge.replaceText(text, token, merge.getDataFieldInfo(row, ""));
    isFound = true;
  };
  for (const MergeMarks& marks : {bareMarks, escapedMarks}) {
    if (isFound) break;
    merge.parseTodaysDateInRTBComment(text, string(marks.open), string(marks.close));
    for (int row = 1; row <= list.getEntryCount(); ++row) {
      list.selectEntry(row);
      const string name = toText(list.getItem(field_column::displayName));
      if (toInteger(list.getItem(field_column::dataType)) != 2) {
        replace(row, plainToken(marks, name));
        continue;
      }
      for (const auto format : mergeDateFormats) replace(row, dateToken(marks, name, format));
    }
  }
  return withoutTokens(text);
}

class MergeByLayout : public MergeTest {
 protected:
  std::mt19937 random_{20260430};

  string compose(const vector<string>& pieces, unsigned atMost) {
    string text;
    for (unsigned left = random_() % atMost + 1; left > 0; --left)
      text += pieces[random_() % pieces.size()];
    return text;
  }

  /// Lists random fields and compares random templates of the pieces with the rules.
  void compare(const vector<string>& names, const vector<string>& values,
               const vector<string>& pieces, int rounds) {
    GridColumnList& list = *merge->get_FieldList();
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
      const string expected = mergedStepByStep(*merge, text);
      ASSERT_EQ(merged(text), expected) << "round " << round << ": " << text;
      ASSERT_EQ(merged(text), expected) << "again, round " << round << ": " << text;
    }
  }
};

TEST_F(MergeByLayout, GivesWhatTheRulesGive) {
  // Names, values and pieces of templates, and how many rounds.
  for (const auto& row : rowsOf("random fields", 4))
    compare(split(row[0]), split(row[1]), split(row[2]), std::stoi(row[3]));
}

// A template that is not regular merges as well, only slower.
TEST_F(MergeByLayout, TakesOrdinaryTemplatesForRegular) {
  for (const char* text :
       {"", "«A» «a» «B»", R"(\'abA\'BB)", R"(\'e9\'abA\'bb)", R"(\b \'abA\'bb\b0 \i\'abA\'bb)"})
    EXPECT_TRUE(TemplateLayout{string(text)}.isRegular()) << text;
}

TEST_F(MergeByLayout, StandsAMergeThatAMessageStartsWithinIt) {
  merge->companyID = addRow("Companies", {{"CompanyName", "Elm Ltd."}, {"City", "Guelph"}});
  merge->ListType = 8;
  merge->initializeDataRecordsetsForSingleDocMerge();
  string inner;
  screen.duringPump(1, [&] {
    inner = merged("«City», «Company Name», «Country», «Email», «Fax Number», «Office Number».");
  });
  EXPECT_EQ(merged("Dear «Company Name» of «City», thank you for your visit in spring."),
            "Dear Elm Ltd. of Guelph, thank you for your visit in spring.");
  EXPECT_EQ(inner, "Guelph, Elm Ltd., , , , .");
}

TEST_F(MergeByLayout, ReadsTheListThatAMessageHasChanged) {
  merge->companyID = addRow("Companies", {{"CompanyName", "Elm Ltd."}, {"City", "Guelph"}});
  merge->ListType = 8;
  merge->initializeDataRecordsetsForSingleDocMerge();
  const string letter = "«Company Name» of «City», thank you for your visit in spring.";
  EXPECT_EQ(merged(letter), "Elm Ltd. of Guelph, thank you for your visit in spring.");
  screen.duringPump(1, [&] {
    merge->get_FieldList()->findEntry(field_column::displayName, "City");
    merge->get_FieldList()->setItem(field_column::databaseField, "CompanyName");
  });
  EXPECT_EQ(merged(letter), "Elm Ltd. of Elm Ltd., thank you for your visit in spring.");
}

TEST_F(MergeByLayout, KeepsAFewTemplatesOfOrdinarySize) {
  TemplateLayoutCache& cache = TemplateLayoutCache::instance();
  const auto isKept = [&](const string& text) {
    return cache.find(text, {{1, 3, true}}) != nullptr;
  };
  const string start = "A letter that is longer than forty characters, number ";
  listSamples({{"A", "1"}});
  live(1, 3);
  for (std::size_t i = 0; i < 2 * TemplateLayoutCache::maxEntries; ++i)
    merged(start + std::to_string(i));
  EXPECT_EQ(cache.size(), TemplateLayoutCache::maxEntries);
  EXPECT_TRUE(isKept(start + "63"));
  EXPECT_FALSE(isKept(start + "0"));
  EXPECT_TRUE(isKept(start + "32"));
  merged(start + "64");
  EXPECT_TRUE(isKept(start + "32")) << "it was used last";
  EXPECT_FALSE(isKept(start + "33"));
  const string large(TemplateLayoutCache::maxTemplateSize + 1, 'x');
  EXPECT_EQ(merged(large + "«A»"), large + " 1");
  EXPECT_FALSE(isKept(large + "«A»"));
}

}  // namespace
}  // namespace autonotify::test
