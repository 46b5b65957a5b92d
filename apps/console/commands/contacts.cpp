#include "commands/contacts.h"

#include <fmt/format.h>

#include <algorithm>

#include "commands/arguments.h"
#include "notifications.h"
#include "platform/text.h"

namespace autonotify::console {
namespace {

/// Whom a command is about, by the word that it is typed with, and the row to look for.
struct ClientWord {
  const char* word;
  enumAutoNotifyClientType type;
  const char* statement;
};
constexpr ClientWord clientWords[] = {
    {"company", enumAutoNotifyCompany,
     "SELECT Companies.CompanyID FROM Companies WHERE Companies.CompanyID={};"},
    {"contact", enumAutoNotifyContact,
     "SELECT Contacts.ContactID FROM Contacts WHERE Contacts.ContactID={};"},
    {"firm", enumAutoNotifyNone, nullptr},
};

struct KindWord {
  const char* word;
  RecipientKind kind;
  const char* meaning;
};
constexpr KindWord kindWords[] = {
    {"email", RecipientKind::email, "email address"},
    {"fax", RecipientKind::fax, "fax number"},
    {"phone", RecipientKind::phone, "phone number"},
    {"name", RecipientKind::name, "name"},
};

/// The row of a table with this word; null when there is none.
template <class Rows>
auto findWord(const Rows& rows, const std::string& word) -> decltype(&rows[0]) {
  const auto found =
      std::ranges::find_if(rows, [&](const auto& row) { return equalIgnoreCase(row.word, word); });
  return found == std::end(rows) ? nullptr : &*found;
}

void addClient(CLI::App& command, Arguments& arguments, bool orFirm) {
  const std::string choices = orFirm ? "company, contact or firm" : "company or contact";
  addReader(command, "CLIENT", "KIND", choices,
            [&arguments, orFirm, choices](const std::string& text) {
              const ClientWord* found = findWord(clientWords, text);
              if (!found || (!found->statement && !orFirm)) {
                throw CLI::ValidationError("CLIENT",
                                           fmt::format("\"{}\" is not {}", text, choices));
              }
              arguments.clientKind = found->word;
            })
      ->required();
}

/// Throws Refusal when there is no such client.
const ClientWord& requireClient(Session& session, const std::string& word, Id id) {
  const ClientWord& client = *findWord(clientWords, word);
  if (client.statement) {
    const std::string sql = fmt::format(fmt::runtime(client.statement), id);
    const bool isThere = firstRow(session.database(), sql, [](const Row&) {});
    if (!isThere) throw Refusal(fmt::format("there is no {} {}", word, id));
  }
  return client;
}

Reply describeDefault(Session& session, Id companyId) {
  const std::string company = session.clients().getCompanyDisplayName(companyId);
  Id contact = noId;
  session.callOrRefuse(fmt::format("company {}", companyId),
                       [&] { contact = session.tools().checkForDefaultContact(companyId); });
  Reply reply;
  const std::string name =
      contact < 0 ? std::string() : session.clients().getContactDisplayName(contact);
  reply.text = contact < 0 ? fmt::format("{}: no default contact\n", company)
                           : fmt::format("{}: contact {}, {}\n", company, contact, name);
  reply.data = {{"company", companyId},
                {"contact", contact < 0 ? Json() : Json(contact)},
                {"name", contact < 0 ? Json() : Json(name)}};
  return reply;
}

}  // namespace

void describeAddress(CLI::App& command, Arguments& arguments) {
  addClient(command, arguments, false);
  addNumber(command, "ID", "number of the company or contact", arguments.clientId)->required();
  command.add_flag("--home", arguments.home, "of a contact at home, not at work");
  addNumber(command, "--company", "the company that a contact at work may inherit from",
            arguments.client);
  command.add_flag("--phones", arguments.phones, "with phone and fax numbers");
  command.add_flag("--email", arguments.email, "with the email address");
  command.add_flag("--rtf", arguments.rtf, "with line ends as RTF spells them");
}

Reply runAddress(Session& session, const Arguments& arguments) {
  const Id id = *arguments.clientId;
  const ClientWord& client = requireClient(session, arguments.clientKind, id);
  if (arguments.home && client.type == enumAutoNotifyCompany)
    throw Refusal("a company has no home: leave out --home");
  const std::string subject = fmt::format("{} {}", client.word, id);
  std::string block;
  session.callOrRefuse(subject, [&] {
    block = session.tools().composeAddress({client.type, id, arguments.client.value_or(noId),
                                            arguments.home, arguments.rtf, arguments.phones,
                                            arguments.email});
  });
  if (block.empty()) throw Refusal(subject + " has no address");
  Reply reply;
  reply.text = replaceAll(block, "\r\n", "\n");
  if (!reply.text.ends_with('\n')) reply.text += '\n';
  reply.data = {{client.word, id}, {"address", block}};
  return reply;
}

void describeRecipients(CLI::App& command, Arguments& arguments) {
  addClient(command, arguments, true);
  addNumber(command, "ID", "number of the company or contact", arguments.clientId);
  addReader(command, "--kind", "KIND", "email, fax, phone or name",
            [&arguments](const std::string& text) {
              const KindWord* found = findWord(kindWords, text);
              if (!found) {
                throw CLI::ValidationError(
                    "--kind", fmt::format("\"{}\" is not email, fax, phone or name", text));
              }
              arguments.recipientKind = found->word;
            })
      ->required();
}

Reply runRecipients(Session& session, const Arguments& arguments) {
  const ClientWord& asked = *findWord(clientWords, arguments.clientKind);
  const KindWord& kind = *findWord(kindWords, arguments.recipientKind);
  const Id id = arguments.clientId.value_or(noId);
  if (asked.statement && !arguments.clientId)
    throw Refusal(fmt::format("name the {} by its number", asked.word), exitUsage);
  if (!asked.statement && kind.kind != RecipientKind::fax)
    throw Refusal("the firm has a list of fax numbers only", exitUsage);
  const ClientWord& client = requireClient(session, asked.word, id);
  const std::string subject =
      client.statement ? fmt::format("{} {}", client.word, id) : client.word;
  RecipientOffer offer;
  session.callOrRefuse(subject,
                       [&] { offer = session.tools().listRecipients(client.type, id, kind.kind); });
  if (offer.texts.empty())
    throw Refusal(fmt::format("no {} of {} is known", kind.meaning, subject));
  Reply reply;
  reply.data = Json::array();
  for (int i = 0; i < static_cast<int>(offer.texts.size()); ++i) {
    const std::string& text = offer.texts[static_cast<std::size_t>(i)];
    reply.text += fmt::format("{} {}\n", i == offer.likeliest ? '*' : ' ', text);
    reply.data.push_back({{"text", text}, {"default", i == offer.likeliest}});
  }
  return reply;
}

void describeContactDefault(CLI::App& command, Arguments& arguments) {
  addNumber(command, "COMPANY", "number of the company", arguments.clientId)->required();
  addReader(command, "CONTACT", "NUMBER", "number of the contact to make the default, or none",
            [&arguments](const std::string& text) {
              arguments.contact =
                  equalIgnoreCase(text, "none") ? noId : readNumber<Id>("CONTACT", text, 0);
            });
}

Reply runContactDefault(Session& session, const Arguments& arguments) {
  const Id company = *arguments.clientId;
  requireClient(session, "company", company);
  if (arguments.contact) {
    bool isSet = false;
    session.callOrRefuse(fmt::format("company {}", company), [&] {
      isSet = session.tools().setDefaultContact(company, *arguments.contact);
    });
    if (!isSet) {
      throw Refusal(
          fmt::format("contact {} does not belong to company {}", *arguments.contact, company));
    }
  }
  return describeDefault(session, company);
}

}  // namespace autonotify::console
