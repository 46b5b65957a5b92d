#include "host/desk/work/firm_details.h"

#include <array>
#include <memory>
#include <string_view>

#include "host/clients/record_rows.h"
#include "host/database/RowSink.h"
#include "host/desk/databases.h"
#include "host/mail/addresses.h"
#include "host/words/Words.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

constexpr std::string_view firmTable = "AccountantFirmInfo";
constexpr const char* selectFirm = "SELECT AccountantFirmInfo.* FROM AccountantFirmInfo;";
constexpr std::string_view nameKey = "name";
constexpr std::string_view emailKey = "email";

constexpr std::array details{
    FirmDetail{Words::later("Name"), nameKey.data(), "CompanyName"},
    FirmDetail{Words::later("Corporate Name"), "corporate-name", "CorporateName"},
    FirmDetail{Words::later("Address"), "address", "Address1"},
    FirmDetail{Words::later("Address 2"), "address-2", "Address2"},
    FirmDetail{Words::later("Address 3"), "address-3", "Address3"},
    FirmDetail{Words::later("City"), "city", "City"},
    FirmDetail{Words::later("Province"), "province", "Province"},
    FirmDetail{Words::later("Postal Code"), "postal-code", "PostalCode"},
    FirmDetail{Words::later("Phone"), "phone", "OfficeNumber"},
    FirmDetail{Words::later("Fax"), "fax", "FaxNumber"},
    FirmDetail{Words::later("Email"), emailKey.data(), "Email"},
    FirmDetail{Words::later("Web Site"), "web-site", "WebSite"},
};

bool isMailAddress(const std::string& text) {
  try {
    return parseRecipients(text).size() == 1;
  } catch (const MailError&) {
    return false;
  }
}

}  // namespace

std::span<const FirmDetail> firmDetails() {
  return details;
}

std::vector<std::string> readFirmDetails(Desk& desk) {
  std::vector<std::string> texts(details.size());
  firstRow(desk.database(), selectFirm, [&](const Row& row) {
    for (std::size_t i = 0; i < details.size(); ++i) texts[i] = row.text(details[i].column);
  });
  return texts;
}

std::string faultOfFirmDetail(const FirmDetail& detail, const std::string& text) {
  if (detail.key == nameKey && trim(text).empty()) return Words::tr("The firm needs a name");
  if (detail.key == emailKey && !text.empty() && !isMailAddress(text))
    return Words::tr("\"%1\" is no email address", {text});
  return {};
}

void storeFirmDetails(Desk& desk, const std::vector<std::optional<std::string>>& texts) {
  std::vector<Field> fields;
  for (std::size_t i = 0; i < texts.size(); ++i)
    if (texts[i]) fields.push_back({details.at(i).column, *texts[i]});
  Id firm = noId;
  firstRow(desk.database(), selectFirm, [&](const Row& row) { firm = row.id("CompanyID"); });
  const std::unique_ptr<RowSink> sink = sinkInto(desk.database());
  sink->begin();
  if (firm < 0)
    sink->insertRow(firmTable, fields);
  else
    sink->updateRow(firmTable, firm, fields);
  sink->commit();
}

}  // namespace autonotify::host
