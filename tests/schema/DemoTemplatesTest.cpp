#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
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

void checkTemplate(const std::string& text) {
  static const std::regex token(R"(\\'ab(.*?)\\'bb)");
  static const std::regex mark(R"(\\'(ab|bb))");
  static const std::regex dated(R"(\((.*?), (.*)\))");
  EXPECT_EQ(std::ranges::count(text, '{'), std::ranges::count(text, '}')) << text;
  std::size_t marks = 0;
  for (std::sregex_iterator found(text.begin(), text.end(), token), end; found != end; ++found) {
    marks += 2;
    std::string name = (*found)[1];
    if (std::smatch parts; std::regex_match(name, parts, dated)) {
      EXPECT_TRUE(isDateFormat(parts[2])) << name;
      name = parts[1].str();
    }
    EXPECT_TRUE(knownFields().contains(name)) << name;
    EXPECT_LE(name.size(), 40u) << name;
  }
  const std::sregex_iterator first(text.begin(), text.end(), mark);
  EXPECT_EQ(static_cast<std::size_t>(std::distance(first, {})), marks) << text;
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
