#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "schema/firm_in_memory.h"

namespace autonotify::host {
namespace {

const std::set<std::string>& knownFields() {
  static const std::set<std::string> names = {"Company Name",
                                              "Corporate Name",
                                              "Address",
                                              "City",
                                              "Province",
                                              "Postal Code",
                                              "State",
                                              "Zip Code",
                                              "Todays Date",
                                              "Contact Display Name",
                                              "Contact & Spouse Name",
                                              "Contact First Name",
                                              "Contact Home Address",
                                              "Contact Home City",
                                              "Contact Home Province",
                                              "Contact Home Postal Code",
                                              "Contact Home State",
                                              "Contact Home Zip Code",
                                              "Contact Personal Email",
                                              "Contact Personal Phone",
                                              "Contact Marital Status",
                                              "Task Name",
                                              "Task Due Date",
                                              "Task in-House Due Date",
                                              "Task Client Info Deadline Date",
                                              "Task Year",
                                              "Period End Date",
                                              "Period Description",
                                              "Client Documents & Instructions",
                                              "File Location",
                                              "Employee Assigned",
                                              "Estimated Time",
                                              "Managing Accountant",
                                              "Supervising Partner",
                                              "Software Name",
                                              "Software Version",
                                              "Data File Saved As",
                                              "Office Number",
                                              "Fax Number",
                                              "Email",
                                              "Your Company Name",
                                              "Your Office Number",
                                              "Business Number",
                                              "GST Number",
                                              "HST Number",
                                              "PST Number",
                                              "QST Number",
                                              "WSIB Number",
                                              "WCB Number",
                                              "WHSCC Number",
                                              "NEQ Number",
                                              "Sellers Permit Number",
                                              "Federal Employer Identification Number"};
  return names;
}

bool isDateFormat(const std::string& format) {
  static const std::set<std::string> formats = {"dddd, mmmm d yyyy",
                                                "dddd mmmm d yyyy",
                                                "mmmm d, yyyy",
                                                "mmmm d yyyy",
                                                "mmm d yyyy",
                                                "dd/mm/yy",
                                                "mm/dd/yy",
                                                "d",
                                                "dddd",
                                                "mmmm",
                                                "mmm",
                                                "yyyy",
                                                "mmmm yyyy",
                                                "mmmm d"};
  return formats.contains(format);
}

/// What stands between the marks, in order; a mark without its partner fails the test.
std::vector<std::string> tokensOf(std::string text) {
  constexpr std::string_view opening = "\\'ab";
  constexpr std::string_view closing = "\\'bb";
  std::vector<std::string> result;
  std::size_t start = text.find(opening);
  for (; start != text.npos; start = text.find(opening)) {
    const std::size_t end = text.find(closing, start);
    EXPECT_NE(end, text.npos) << text;
    if (end == text.npos) break;
    result.push_back(text.substr(start + opening.size(), end - start - opening.size()));
    EXPECT_EQ(result.back().find(opening), text.npos) << result.back();
    text.erase(start, end + closing.size() - start);
  }
  EXPECT_EQ(text.find(closing), text.npos) << text;
  return result;
}

void checkTemplate(const std::string& text) {
  EXPECT_EQ(std::ranges::count(text, '{'), std::ranges::count(text, '}')) << text;
  for (std::string name : tokensOf(text)) {
    if (name.starts_with('(')) {
      const std::size_t comma = name.find(", ");
      ASSERT_TRUE(comma != name.npos && name.ends_with(')')) << name;
      EXPECT_TRUE(isDateFormat(name.substr(comma + 2, name.size() - comma - 3))) << name;
      name = name.substr(1, comma - 1);
    }
    EXPECT_TRUE(knownFields().contains(name)) << name;
    EXPECT_LE(name.size(), 40u) << name;
  }
}

TEST(DemoTemplates, HaveBalancedMarksAndKnownFields) {
  for (const countryCode country : {countryCanada, countryUnitedStates})
    for (const provinceCode province : {provinceOntario, provinceQuebec, provinceNewBrunswick}) {
      DemoOptions options = small();
      options.country = country;
      options.province = province;
      Firm firm(options);
      const auto templates = firm.texts("SELECT NotificationComment FROM ScheduleTypes");
      EXPECT_GT(templates.size(), 30u);
      for (const std::string& text : templates) checkTemplate(text);
    }
}

}  // namespace
}  // namespace autonotify::host
