#include "contacts/address_records.h"
#include "contacts/modDefaultContact.h"
#include "contract/rich_texts.h"
#include "contract/rows.h"
#include "contract/tags.h"
#include "platform/controls/RichTextBox.h"
#include "platform/format.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"modAddressFormatting", name>;

constexpr AddressParts addressAlone{.address = true};
constexpr const char* twoLineEnds = "\r\n\r\n";

void startHeading(std::string& heading, const std::optional<DateTime>& date) {
  heading = " ";
  if (date) heading += formatDateTime(*date, "mmmm d, yyyy") + twoLineEnds;
}

void appendSalutation(Step& step, std::string& heading, Id contactId) {
  const std::string name = readDisplayName(step, contactId).value_or("");
  if (!name.empty()) heading += "Dear " + name + "," + twoLineEnds;
}

void insertHeading(Step& step, RichTextBox& box, const std::string& heading) {
  if (box.text().empty()) step.run([&] { box.setText(" "); });
  insertTextAt(step, &box, heading, 0);
}

void removeHeading(Step& step, RichTextBox& box, const std::string& heading) {
  if (box.text().empty()) return;
  step.run([&] { box.removeRichText(convertToRTF(heading)); });
}

}  // namespace

std::string createInsertBusinessAddress(Id companyId, const HeadingParts& parts) {
  const auto compose = [&](Step& step, std::string& result) {
    if (companyId < 0 || !isDatabaseOpen(step)) return;
    startHeading(result, parts.date);
    bool person = true;
    result += createCompanyAddress(companyId, noId, addressAlone, person, parts.asRTF);
    result += twoLineEnds;
    if (!parts.salutation) return;
    appendSalutation(step, result, checkForDefaultContact(companyId, noId));
  };
  return procedure(tagOf<"createInsertBusinessAddress">, std::string{}, compose);
}

std::string createInsertContactPersonalAddress(Id contactId, const HeadingParts& parts) {
  const auto compose = [&](Step& step, std::string& result) {
    if (contactId < 0 || !isDatabaseOpen(step)) return;
    startHeading(result, parts.date);
    result += createPersonalContactAddress({contactId, noId}, addressAlone, false);
    result += twoLineEnds;
    if (parts.salutation) appendSalutation(step, result, contactId);
  };
  return procedure(tagOf<"createInsertContactPersonalAddress">, std::string{}, compose);
}

void insertBusinessAddress(RichTextBox& box, Id companyId, const HeadingParts& parts) {
  procedure(tagOf<"insertBusinessAddress">, [&](Step& step) {
    insertHeading(step, box, createInsertBusinessAddress(companyId, parts));
  });
}

void removeBusinessAddress(RichTextBox& box, Id companyId, const HeadingParts& parts) {
  procedure(tagOf<"removeBusinessAddress">, [&](Step& step) {
    removeHeading(step, box, createInsertBusinessAddress(companyId, parts));
  });
}

void insertContactPersonalAddress(RichTextBox& box, Id contactId, const HeadingParts& parts) {
  procedure(tagOf<"insertContactPersonalAddress">, [&](Step& step) {
    insertHeading(step, box, createInsertContactPersonalAddress(contactId, parts));
  });
}

void removeContactPersonalAddress(RichTextBox& box, Id contactId, const HeadingParts& parts) {
  procedure(tagOf<"removeContactPersonalAddress">, [&](Step& step) {
    removeHeading(step, box, createInsertContactPersonalAddress(contactId, parts));
  });
}

}  // namespace autonotify
