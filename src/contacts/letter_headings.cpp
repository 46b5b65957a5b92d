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
constexpr std::string_view tag = procedureTag<"modAddressFormatting", name>;

constexpr const char* twoLineEnds = "\r\n\r\n";

void startHeading(std::string& heading, bool includeDate, DateTime date) {
  heading = " ";
  if (includeDate) heading += formatDateTime(date, "mmmm d, yyyy") + twoLineEnds;
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

std::string createInsertBusinessAddress(Id companyID, bool includeDate, DateTime date,
                                        bool includeSalutation, bool asRTF) {
  return procedure(
      tag<"createInsertBusinessAddress">, std::string{}, [&](Step& step, std::string& result) {
        if (companyID < 0 || !isDatabaseOpen(step)) return;
        startHeading(result, includeDate, date);
        bool person = true;
        result += createCompanyAddress(companyID, person, asRTF, noId, true, false, false);
        result += twoLineEnds;
        if (!includeSalutation) return;
        appendSalutation(step, result, checkForDefaultContact(companyID, noId));
      });
}

std::string createInsertContactPersonalAddress(Id contactID, bool includeDate, DateTime date,
                                               bool includeSalutation) {
  return procedure(
      tag<"createInsertContactPersonalAddress">, std::string{}, [&](Step& step, auto& result) {
        if (contactID < 0 || !isDatabaseOpen(step)) return;
        startHeading(result, includeDate, date);
        result += createPersonalContactAddress(contactID, false, noId, true, false, false);
        result += twoLineEnds;
        if (includeSalutation) appendSalutation(step, result, contactID);
      });
}

void insertBusinessAddress(RichTextBox& box, Id companyID, bool includeDate, DateTime date,
                           bool includeSalutation, bool asRTF) {
  procedure(tag<"insertBusinessAddress">, [&](Step& step) {
    insertHeading(
        step, box,
        createInsertBusinessAddress(companyID, includeDate, date, includeSalutation, asRTF));
  });
}

void removeBusinessAddress(RichTextBox& box, Id companyID, bool includeDate, DateTime date,
                           bool includeSalutation, bool asRTF) {
  procedure(tag<"removeBusinessAddress">, [&](Step& step) {
    removeHeading(
        step, box,
        createInsertBusinessAddress(companyID, includeDate, date, includeSalutation, asRTF));
  });
}

void insertContactPersonalAddress(RichTextBox& box, Id contactID, bool includeDate, DateTime date,
                                  bool includeSalutation) {
  procedure(tag<"insertContactPersonalAddress">, [&](Step& step) {
    insertHeading(
        step, box,
        createInsertContactPersonalAddress(contactID, includeDate, date, includeSalutation));
  });
}

void removeContactPersonalAddress(RichTextBox& box, Id contactID, bool includeDate, DateTime date,
                                  bool includeSalutation) {
  procedure(tag<"removeContactPersonalAddress">, [&](Step& step) {
    removeHeading(
        step, box,
        createInsertContactPersonalAddress(contactID, includeDate, date, includeSalutation));
  });
}

}  // namespace autonotify
