#include <cstdlib>

#include "contract/enumerations.h"
#include "contract/recordsets.h"
#include "merge/clsInsertFieldsInRTB.h"
#include "merge/templates/province_names.h"
#include "merge/templates/province_terms.h"
#include "merge/templates/template_rewrites.h"
#include "platform/format.h"
#include "platform/text.h"

namespace autonotify {
namespace {

constexpr std::string_view lineEnd = "\r\n";

/// Whether the text may be the name of a field that lacks its marks.
bool mayBeBareName(const std::string& text) {
  constexpr std::size_t longestCharacter = 4;
  return text.size() <= longestFieldName * longestCharacter &&
         characterCount(text) <= longestFieldName;
}

constexpr const char* convertProvinceFieldsTag =
    "Morvane.exe-clsInsertFieldsInRTB-convertProvinceFields";

Region readRegion(Step& step) {
  Region region;
  step.assign(region.country, [] { return locale().getCountryCode(); });
  if (region.country != countryCanada) return region;
  step.assign(region.province, [] { return locale().getProvinceCode(); });
  step.assign(region.isHarmonized, [] { return platformClock().today() >= harmonizedSince(); });
  return region;
}

/// What a procedure of this type has ahead of its name; null for a type that is not listed.
const char* lineStartOf(Id operatingProcedureType) {
  switch (operatingProcedureType) {
    case 1:
      return "\t- ";
    case 2:
      return "\t- Document Required - ";
    default:
      return nullptr;
  }
}

}  // namespace

/// The region as far as convertProvinceFields gets to know it.
Region clsInsertFieldsInRTB::regionOfInstallation() {
  return procedure(convertProvinceFieldsTag, Region{},
                   [](Step& step, Region& result) { result = readRegion(step); });
}

std::string clsInsertFieldsInRTB::convertProvinceFields(const std::string& text) {
  return procedure(convertProvinceFieldsTag, text, [&](Step& step, std::string& result) {
    result = generalRewrites().apply(verifyTemplateText(text));
    result = regionalRewrites(readRegion(step)).apply(std::move(result));
  });
}

std::string clsInsertFieldsInRTB::verifyTemplateText(const std::string& text) {
  return procedure("Morvane.exe-clsInsertFieldsInRTB-verifyTemplateText", text,
                   [&](Step&, std::string& result) {
                     result = headerRemovals().apply(text);
                     if (!mayBeBareName(result)) return;
                     if (result.find(bareMarks.open) == std::string::npos)
                       result.insert(0, bareMarks.open);
                     if (result.find(bareMarks.close) == std::string::npos)
                       result.append(bareMarks.close);
                   });
}

std::string clsInsertFieldsInRTB::getTodaysDate(std::string& format) {
  return procedure("Morvane.exe-clsInsertFieldsInRTB-getTodaysDate", std::string{},
                   [&](Step& step, std::string& result) {
                     step.assign(result, [&] {
                       return formatDateTime(platformClock().today(),
                                             format.empty() ? "mmm d, yyyy" : format);
                     });
                     if (!result.empty() && ConvertStrToRTF) result = convertToRTF(result);
                   });
}

std::string clsInsertFieldsInRTB::getTimeDurationFieldValue(DateTime& from, DateTime& to) {
  return procedure("Morvane.exe-clsInsertFieldsInRTB-getTimeDurationFieldValue", std::string{},
                   [&](Step& step, std::string& result) {
                     step.assign(result, [&] {
                       const std::int64_t minutes =
                           std::abs(to.totalMinutes() - from.totalMinutes());
                       return validation().getDurationText(toInteger(Value(minutes)));
                     });
                   });
}

std::string clsInsertFieldsInRTB::getDocsAndInstructionsList() {
  return procedure("Morvane.exe-clsInsertFieldsInRTB-getDocsAndInstructionsList", std::string{},
                   [&](Step& step, std::string& result) {
                     if (!isDatabaseOpen(step)) return;
                     const std::string sql =
                         "SELECT OperatingProcedures.TaskIDNum, "
                         "OperatingProcedures.OpProcedureScopeType, OperatingProcedures.OrderNum, "
                         "OperatingProcedures.OpProcedureType, "
                         "OperatingProcedures.OpProdedureName "
                         "FROM OperatingProcedures "
                         "WHERE OperatingProcedures.TaskIDNum =" +
                         std::to_string(taskID) +
                         " "
                         "AND OperatingProcedures.OpProcedureScopeType=2 "
                         "ORDER BY OperatingProcedures.OrderNum;";
                     forEachRow(step, sql, forwardRead, [&](RecordsetHandle handle) {
                       const Value name = readField(step, handle, "OpProdedureName");
                       if (isEmpty(step, name)) return true;
                       const char* start = lineStartOf(readId(step, handle, "OpProcedureType"));
                       if (start) {
                         step.run([&] { result.append(start + toText(name)).append(lineEnd); });
                       }
                       return true;
                     });
                   });
}

std::string clsInsertFieldsInRTB::getAbbreviatedProvince(std::string& province) {
  return procedure("Morvane.exe-clsInsertFieldsInRTB-getAbbreviatedProvince", province,
                   [&](Step&, std::string& result) {
                     const ProvinceName* name = recognizeProvince(province);
                     if (name) result = name->abbreviation;
                   });
}

std::string clsInsertFieldsInRTB::getFullProvinceString(std::string& province) {
  return procedure("Morvane.exe-clsInsertFieldsInRTB-getFullProvinceString", province,
                   [&](Step&, std::string& result) {
                     const ProvinceName* name = recognizeProvince(province);
                     if (name) result = name->fullName;
                   });
}

std::string clsInsertFieldsInRTB::convertToRTF(const std::string& text) {
  return procedure("Morvane.exe-clsInsertFieldsInRTB-convertToRTF", text,
                   [&](Step&, std::string& result) {
                     result = replaceAll(text, lineEnd, UseWordWrap ? "\\par \r\n" : ", \r\n");
                   });
}

}  // namespace autonotify
