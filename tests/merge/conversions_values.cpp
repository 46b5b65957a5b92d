#include <limits>

#include "fields_host.h"
#include "merge/modCodeTexts.h"

namespace autonotify::test {
namespace {

TEST_F(FieldsHost, TodayIsPrintedInTheAskedFormat) {
  std::string format;
  EXPECT_EQ(merge->getTodaysDate(format), "Apr 30, 2026");
  EXPECT_EQ(format, "");
  for (const auto& [pattern, text] : {std::pair{"dddd, mmmm d yyyy", "Thursday, April 30 2026"},
                                      {"dd/mm/yy", "30/04/26"},
                                      {"mmmm d", "April 30"}}) {
    format = pattern;
    EXPECT_EQ(merge->getTodaysDate(format), text);
  }
}

struct DurationCase {
  DateTime from;
  DateTime to;
  const char* text;
};

TEST_F(FieldsHost, DurationsCountMinuteBoundaries) {
  const DateTime noon = DateTime::of(2026, 4, 30, 12);
  const DurationCase cases[] = {
      {noon, DateTime::of(2026, 4, 30, 13, 30), "1 hr 30 min"},
      {DateTime::of(2026, 4, 30, 13, 30), noon, "1 hr 30 min"},
      {DateTime::of(2026, 4, 30, 11, 59, 59), noon, "1 min"},
      {noon, DateTime::of(2026, 4, 30, 12, 0, 59), "0 min"},
      {DateTime::of(2026, 4, 30, 23, 59), DateTime::of(2026, 5, 1, 0, 30), "31 min"},
      {DateTime::fromSerial(-1, 86399), DateTime(), "1 min"},
  };
  for (const DurationCase& duration : cases) {
    DateTime from = duration.from;
    DateTime to = duration.to;
    EXPECT_EQ(merge->getTimeDurationFieldValue(from, to), duration.text);
  }
}

TEST_F(FieldsHost, ADurationBeyondAllMeasureIsAnError) {
  errors.answer({error_choice::next});
  DateTime from = DateTime::fromSerial(std::numeric_limits<int>::min());
  DateTime to = DateTime::fromSerial(std::numeric_limits<int>::max());
  EXPECT_EQ(merge->getTimeDurationFieldValue(from, to), "");
  EXPECT_EQ(errors.recorded().at(0).number, error_number::overflow);
}

class DocumentsList : public FieldsHost {
 protected:
  static StatementDatabase::Row row(const Value& type, const Value& name) {
    return {{"OpProcedureType", type}, {"OpProdedureName", name}};
  }
  const std::string sql_ =
      "SELECT OperatingProcedures.TaskIDNum, OperatingProcedures.OpProcedureScopeType, "
      "OperatingProcedures.OrderNum, OperatingProcedures.OpProcedureType, "
      "OperatingProcedures.OpProdedureName FROM OperatingProcedures "
      "WHERE OperatingProcedures.TaskIDNum =17 AND OperatingProcedures.OpProcedureScopeType=2 "
      "ORDER BY OperatingProcedures.OrderNum;";
};

TEST_F(DocumentsList, ListsInstructionsAndDocuments) {
  merge->taskID = 17;
  database.rows[sql_] = {row(1, "Call first"), row(2, "Bank statements"), row(1, ""),
                         row(2, Value()),      row(3, "Internal"),        row(Value(), "Untyped"),
                         row(1, "Sign")};
  EXPECT_EQ(merge->getDocsAndInstructionsList(),
            "\t- Call first\r\n\t- Document Required - Bank statements\r\n\t- Sign\r\n");
  EXPECT_EQ(database.opened, std::vector<std::string>{"0,1 " + sql_});
  EXPECT_EQ(database.closed, 1);
}

TEST_F(DocumentsList, IsEmptyWithoutRowsOrDatabase) {
  merge->taskID = 17;
  EXPECT_EQ(merge->getDocsAndInstructionsList(), "");
  database.rows[sql_] = {row(1, "Call first")};
  database.isOpen = false;
  EXPECT_EQ(merge->getDocsAndInstructionsList(), "");
  EXPECT_EQ(database.opened.size(), 1U);
}

struct ProvinceNameCase {
  const char* written;
  const char* abbreviation;
  const char* fullName;
};

TEST_F(FieldsHost, ProvincesAreRecognizedByTheirForms) {
  constexpr ProvinceNameCase cases[] = {
      {"Alberta", "AB", "Alberta"},
      {"alta.", "AB", "Alberta"},
      {"BritishColumbia", "BC", "British Columbia"},
      {"b.c.", "BC", "British Columbia"},
      {"Man", "MB", "Manitoba"},
      {"ont.", "ON", "Ontario"},
      {"Sask", "SK", "Saskatchewan"},
      {"quebec", "QC", "Quebec"},
      {"N.S.", "NS", "Nova Scotia"},
      {"New Brunswick", "NB", "New Brunswick"},
      {"newfoundland", "NL", "Newfoundland"},
      {"Newfoundland & Labrador", "NL", "Newfoundland"},
      {"prince edward island", "PEI", "Prince Edward Island"},
      {"P.E.I.", "PEI", "Prince Edward Island"},
      {"nwt", "NT", "Northwest Territories"},
      {"Nunavut", "NU", "Nunavut"},
      {"yt", "YT", "Yukon"},
      // Not recognized: these come back as written.
      {"Newfoundland And Labrador", "Newfoundland And Labrador", "Newfoundland And Labrador"},
      {"Nfld.", "Nfld.", "Nfld."},
      {"Québec", "Québec", "Québec"},
      {"PE", "PE", "PE"},
      {" Ontario", " Ontario", " Ontario"},
      {"New York", "New York", "New York"},
      {"", "", ""},
  };
  for (const ProvinceNameCase& province : cases) {
    std::string written = province.written;
    EXPECT_EQ(merge->getAbbreviatedProvince(written), province.abbreviation);
    EXPECT_EQ(merge->getFullProvinceString(written), province.fullName);
    EXPECT_EQ(written, province.written);
  }
}

struct LineEndCase {
  const char* value;
  const char* wrapped;
  const char* joined;
};

TEST_F(FieldsHost, LineEndsOfAValueBecomeParagraphsOrCommas) {
  constexpr LineEndCase cases[] = {
      {"", "", ""},
      {"one line {\\b} é", "one line {\\b} é", "one line {\\b} é"},
      {"12 King St\r\nSuite 4", "12 King St\\par \r\nSuite 4", "12 King St, \r\nSuite 4"},
      {"a\r\n\r\n", "a\\par \r\n\\par \r\n", "a, \r\n, \r\n"},
      {"a\nb\rc", "a\nb\rc", "a\nb\rc"},
  };
  for (const LineEndCase& lineEnd : cases) {
    merge->UseWordWrap = true;
    EXPECT_EQ(merge->convertToRTF(lineEnd.value), lineEnd.wrapped);
    merge->UseWordWrap = false;
    EXPECT_EQ(merge->convertToRTF(lineEnd.value), lineEnd.joined);
  }
}

struct CodeCase {
  std::string (*lookUp)(std::int16_t&);
  /// From code 0 on; the last text also stands for every code beyond.
  std::vector<const char*> texts;
};

TEST_F(FieldsHost, CodesHaveTexts) {
  const CodeCase cases[] = {
      {getCompanyTypeStringFromCompanyTypeNum,
       {"Unknown", "Corporation", "Sole Proprietorship", "Partnership", "Non Profit", "Trust",
        "Joint Venture", "S Corporation", "LLP", "LLC", "Fiduciary", "Unknown"}},
      {getFinancialStatementsStringFromFinancialStatementsNum,
       {"Not Specified", "Not Specified", "Compilation (NTR)", "Review Engagement",
        "Review Engagement with Differential Reporting", "Audit", "Not Specified"}},
      {getRC59FormStatusStringFromRC59FormStatusNum,
       {"Not Filed", "Awaiting Signature", "CRA Processing", "Completed", "Not Filed"}},
      {getRC59PermissionStringFromRC59PermissionNum, {"None", "Full", "Limited", "None"}},
      {getGSTFilingMethodStringFromGSTFilingMethodNum,
       {"Not Specified", "Traditional", "Simple Method", "Quick Method", "Not Specified"}},
      {getCorporationTypeStringFromCorporationTypeNum, {"CCPC", "Regular Corporation", "CCPC"}},
      {getCorporationLevelStringFromCorporationLevelNum,
       {"Federal Corporation", "Federal Corporation", "Provincial Corporation",
        "Federal Corporation"}},
  };
  live(1, 3);
  for (const CodeCase& codes : cases) {
    for (std::size_t i = 0; i < codes.texts.size(); ++i) {
      std::int16_t code = static_cast<std::int16_t>(i);
      EXPECT_EQ(codes.lookUp(code), codes.texts[i]) << i;
    }
    for (std::int16_t code : {std::int16_t{-1}, std::int16_t{32767}})
      EXPECT_EQ(codes.lookUp(code), codes.texts.back());
  }
}

TEST_F(FieldsHost, PartnershipsAreGeneralOutsideCanada) {
  std::int16_t partnership = 3;
  for (const int country : {2, 9}) {
    live(country, 3);
    EXPECT_EQ(getCompanyTypeStringFromCompanyTypeNum(partnership), "General Partnership");
  }
}

}  // namespace
}  // namespace autonotify::test
