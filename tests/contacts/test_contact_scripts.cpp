#include "contacts/clsClientAddrBkCatTxt.h"
#include "contacts/modAddressFormatting.h"
#include "contacts/modContactSummaries.h"
#include "contacts/modDefaultContact.h"
#include "platform/controls/RichTextBox.h"
#include "platform/rich_text.h"
#include "support/told_acts.h"

namespace autonotify::test {
namespace {

using std::string;

constexpr const char* scripts = "contact_scripts.txt";

/// Line ends are told as bars.
string inBars(const string& text) {
  return replaceAll(text, "\r\n", "|");
}

HeadingParts heading(const string& day, bool isGreeted) {
  return {parseDateTime(day), isGreeted};
}

class ContactScripts : public Scripted<HostTest> {
 protected:
  ContactScripts() {
    acts.merge(Acts{
        {"check", act(checkForDefaultContact)},
        {"set default", act(setContactAsDefault)},
        {"set none", act(setNoContactAsDefault)},
        {"summary of a company", act(saveCompanyContactRTF)},
        {"summaries of a contact", act(saveContactBusinessRTFForAllCompanies)},
        {"summary of a contact", act(saveContactBusinessRTF)},
        {"notes", act([this] {
           return plainTextOf(toText(valueOf("CompaniesNotes", "ContactNotes", "CompanyNum=1")));
         })},
        {"categories", act([](Id company, bool main) { return categories(company, main); })}});
    addAddressActs();
    addBoxActs();
  }

 private:
  static string categories(Id company, bool showsMain) {
    clsClientAddrBkCatTxt text;
    text.put_CompanyIDNum(company);
    text.ShowMainAddressBookCategory = showsMain;
    text.generateCategoryText();
    const string first = text.CategoryText;
    text.generateCategoryText();
    EXPECT_EQ(text.CategoryText, first) << "made anew each time";
    return inBars(first);
  }
  /// The parts of an address are its lines, the phones and the email.
  void addAddressActs() {
    acts.merge(Acts{
        {"of a company", act([](Id company, Id firm, bool lines, bool phones, bool email) {
           bool isNamed = true;
           const string block =
               createCompanyAddress(company, firm, {lines, phones, email}, isNamed, false);
           return inBars(block) + (isNamed ? "" : "; nobody");
         })},
        {"at work",
         act([](Id contact, Id staff, Id company, bool lines, bool phones, bool email, bool name) {
           const AddressParts parts{lines, phones, email};
           return inBars(
               createBusinessContactAddress({contact, staff}, company, parts, name, false));
         })},
        {"at home", act([](Id contact, Id staff, bool lines, bool others, bool asRTF) {
           const AddressParts parts{lines, others, others};
           return inBars(createPersonalContactAddress({contact, staff}, parts, asRTF));
         })},
        {"heading", act([](Id company, string day, bool isGreeted, bool asRTF) {
           return inBars(
               createInsertBusinessAddress(company, {parseDateTime(day), isGreeted, asRTF}));
         })},
        {"heading at home", act([](Id contact, bool isGreeted) {
           return inBars(createInsertContactPersonalAddress(contact, {{}, isGreeted}));
         })}});
  }
  void addBoxActs() {
    acts.merge(
        Acts{{"box", act([this](string rtf) { box_.setTextRTF(rtf), kept_ = box_.textRTF(); })},
             {"insert", act([this](Id company, string day) {
                insertBusinessAddress(box_, company, heading(day, true));
              })},
             {"remove", act([this](Id company, string day) {
                removeBusinessAddress(box_, company, heading(day, true));
              })},
             {"insert at home",
              act([this](Id contact) { insertContactPersonalAddress(box_, contact, {}); })},
             {"remove at home",
              act([this](Id contact) { removeContactPersonalAddress(box_, contact, {}); })},
             {"text", act([this] { return inBars(box_.text()); })},
             {"is as it was", act([this] { return box_.textRTF() == kept_; })}});
  }

  RichTextBox box_;
  string kept_;
};

TEST_P(ContactScripts, GiveWhatTheyTell) {
  follow(scripts);
}
INSTANTIATE_TEST_SUITE_P(Contacts, ContactScripts,
                         testing::ValuesIn(rowsOf(scripts, "scripts", 1)));

}  // namespace
}  // namespace autonotify::test
