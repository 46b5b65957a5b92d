#include "wizards/documents/document_kinds.h"

#include <algorithm>
#include <iterator>

#include "contacts/modAddressFormatting.h"
#include "contract/RichTextUtility.h"
#include "contract/enumerations.h"
#include "platform/format.h"
#include "wizards/documents/drFax.h"
#include "wizards/documents/drLetter.h"

namespace autonotify {
namespace {

struct FirmColumn {
  AddressField field;
  const char* column;
};
constexpr FirmColumn firmColumns[] = {
    {AddressField::businessName, "CompanyName"},
    {AddressField::street, "Address"},
    {AddressField::city, "City"},
    {AddressField::province, "Province"},
    {AddressField::postalCode, "PostalCode"},
    {AddressField::phone, "OfficeNumber"},
    {AddressField::fax, "FaxNumber"},
};
constexpr std::span<const FirmColumn> withNumbers = firmColumns;
constexpr std::span<const FirmColumn> placeAlone = withNumbers.first<5>();

using Compose = std::string (*)(const AddressRecord&, bool includePerson, bool asRTF);

/// Empty without a record of the firm.
std::string readAddress(Step& step, std::span<const FirmColumn> columns, Compose compose) {
  std::string address;
  const char* const statement = "SELECT AccountantFirmInfo.* FROM AccountantFirmInfo;";
  if (const Rows row(step, statement, keysetRead); row) {
    AddressRecord record;
    for (const FirmColumn& each : columns) record[each.field] = row.text(each.column);
    address = compose(record, false, false);
  }
  return address;
}

std::string firmWithNumbers(const Row& row, const char*) {
  return readAddress(row.step(), withNumbers, createAddressWithContactInfo);
}

std::string firm(const Row& row, const char*) {
  return readAddress(row.step(), placeAlone, createAddress);
}

/// A date in short, as it is written in the firm's country.
const char* shortDatePattern(int country) {
  return country == countryUnitedStates ? "m/d/yyyy" : "yyyy-mm-dd";
}

std::string today(const Row& row, const char*) {
  const int country = row.step().value(0, [] { return locale().getCountryCode(); });
  const auto write = [&] {
    return formatDateTime(platformClock().today(), shortDatePattern(country));
  };
  return row.step().value(std::string{}, write);
}

std::string field(const Row& row, const char* column) {
  return row.text(column);
}

std::string plainText(const Row& row, const char* column) {
  Step& step = row.step();
  std::unique_ptr<RichTextUtility> converter;
  step.assign(converter, createHostObject<RichTextUtility>);
  std::string text = row.text(column);
  if (!converter) return {};
  text = step.value(std::string{}, &RichTextUtility::toPlainText, *converter, text);
  step.run(&RichTextUtility::release, *converter);
  return text;
}

constexpr const char* reportHeader = "Section4";
constexpr const char* pageHeader = "Section2";
constexpr const char* detail = "Section1";

constexpr DocumentPart faxParts[] = {
    {reportHeader, "lblReturnAddress", "Address", firmWithNumbers},
    {reportHeader, "lblDate", "Date", today},
    {pageHeader, "lblTo", "To", field, "Field1"},
    {pageHeader, "lblFrom", "From", field, "Field2"},
    {pageHeader, "lblRecipientFax", "Fax", field, "Field4"},
    {pageHeader, "lblSubject", "Subject", field, "Field6"},
    {detail, "lblBody", "Text", plainText, "Memo"},
};

constexpr DocumentPart letterParts[] = {
    {reportHeader, "lblReturnAddress", "Address", firm},
    {reportHeader, "lblDate", "Date", today},
    {detail, "lblBody", "Text", plainText, "Memo"},
};

constexpr DocumentKind fax{
    .name = "drFax",
    .word = "Fax",
    .saveProcedure = "saveFax",
    .templateType = "FAXTEMPLATE",
    .composer = "frmSendNotificationWizardFax",
    .deletesAnyId = false,
    .resetsPointer = false,
    .parts = faxParts,
};

constexpr DocumentKind letter{
    .name = "drLetter",
    .word = "Letter",
    .saveProcedure = "saveLetter",
    .templateType = "LETTERTEMPLATE",
    .composer = "frmSendNotificationWizardLetter",
    .deletesAnyId = true,
    .resetsPointer = true,
    .parts = letterParts,
};

template <class Document>
void show(Id notificationID, Id companyID, Id contactID) {
  Document().Initialize(notificationID, false, companyID, contactID);
}

struct ChannelDocument {
  notifyType channel;
  void (*show)(Id notificationID, Id companyID, Id contactID);
};
constexpr ChannelDocument channelDocuments[] = {{nt_Fax, show<drFax>}, {nt_Letter, show<drLetter>}};

const ChannelDocument* documentOf(Id channel) {
  const auto found = std::ranges::find(channelDocuments, channel, &ChannelDocument::channel);
  return found == std::end(channelDocuments) ? nullptr : found;
}

}  // namespace

bool hasDocument(Id channel) {
  return documentOf(channel) != nullptr;
}

void showDocument(Step& step, Id channel, Id notificationID, Id companyID, Id contactID) {
  const ChannelDocument* document = documentOf(channel);
  if (!document) return;
  const Id company = isListedCompany(step, companyID) ? companyID : noId;
  const Id contact = company == noId && isListedContact(step, contactID) ? contactID : noId;
  document->show(notificationID, company, contact);
}

drFax::drFax() : DocumentReport(fax) {}
drLetter::drLetter() : DocumentReport(letter) {}

}  // namespace autonotify
