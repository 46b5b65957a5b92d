#include "contacts/modAddressFormatting.h"

#include <algorithm>

#include "contract/procedure.h"
#include "contract/tags.h"
#include "platform/text.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"modAddressFormatting", name>;

constexpr const char* lineEnd = "\r\n";

struct ContactLine {
  AddressField field;
  const char* label;
};
constexpr ContactLine contactLines[] = {
    {AddressField::phone, "Phone: "}, {AddressField::fax, "Fax: "},
    {AddressField::cell, "Cell: "},   {AddressField::homePhone, "Home: "},
    {AddressField::email, "Email: "}, {AddressField::webSite, "Web Site: "},
};

constexpr const char* namesOfCanada[] = {"CANADA", "CA", "CAN", "CDA"};

std::string textOf(const AddressRecord& record, AddressField field) {
  return std::string(trim(record[field]));
}

std::string cityLine(const AddressRecord& record) {
  std::string line = textOf(record, AddressField::city);
  // The empty line stands where the street would.
  if (!line.empty() && textOf(record, AddressField::street).empty()) line.insert(0, lineEnd);
  const auto append = [&](const char* separator, AddressField field) {
    const std::string text = textOf(record, field);
    if (text.empty()) return;
    if (!line.empty()) line += separator;
    line += text;
  };
  append(", ", AddressField::province);
  append("  ", AddressField::postalCode);
  return line;
}

std::string countryLine(const AddressRecord& record) {
  const std::string country = textOf(record, AddressField::country);
  const bool isHome =
      std::ranges::find(namesOfCanada, upperCase(country)) != std::end(namesOfCanada);
  return country.empty() || isHome ? std::string() : lineEnd + country;
}

std::string addressBlock(const AddressRecord& record, bool includePerson) {
  std::string block;
  const auto appendLine = [&](AddressField field) {
    const std::string text = textOf(record, field);
    if (!text.empty()) block += text + lineEnd;
  };
  appendLine(AddressField::businessName);
  if (includePerson) appendLine(AddressField::personName);
  appendLine(AddressField::street);
  return block + cityLine(record) + countryLine(record);
}

}  // namespace

void clearAddressFields(AddressRecord& record) {
  record = AddressRecord{};
}

std::string convertToRTF(const std::string& text) {
  return procedure(tagOf<"convertToRTF">, std::string{}, [&](Step&, std::string& result) {
    result = replaceAll(text, lineEnd, std::string("\\par ") + lineEnd);
  });
}

std::string createAddress(const AddressRecord& record, bool includePerson, bool asRTF) {
  return procedure(tagOf<"createAddress">, std::string{}, [&](Step&, std::string& result) {
    result = addressBlock(record, includePerson);
    if (asRTF) result = convertToRTF(result);
  });
}

std::string createAddressWithContactInfo(const AddressRecord& record, bool includePerson,
                                         bool asRTF) {
  return procedure(tagOf<"createAddressWithContactInfo">, std::string{}, [&](Step&, auto& result) {
    result = createAddress(record, includePerson, asRTF);
    for (const ContactLine& line : contactLines) {
      const std::string text = textOf(record, line.field);
      if (!text.empty()) result += lineEnd + (line.label + text);
    }
    if (asRTF) result = convertToRTF(result);
  });
}

}  // namespace autonotify
