#include "commands/contacts.h"

#include <fmt/format.h>

#include <algorithm>
#include <span>

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
/// Without the firm.
constexpr std::span realClients = std::span(clientWords).first<2>();

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

void addClient(CLI::App& command, Arguments& arguments, std::span<const ClientWord> words) {
  addChoice(command, "CLIENT", "KIND", words, "", [&arguments](const ClientWord& row) {
    arguments.clientKind = row.type;
  })->required();
}

const ClientWord& clientWord(enumAutoNotifyClientType type) {
  return *std::ranges::find(clientWords, type, &ClientWord::type);
}

/// Throws Refusal when there is no such client.
void requireClient(Session& session, const ClientWord& client, Id id) {
  if (!client.statement) return;
  const std::string sql = fmt::format(fmt::runtime(client.statement), id);
  const bool isThere = firstRow(session.database(), sql, [](const Row&) {});
  if (!isThere) throw Refusal(fmt::format("there is no {} {}", client.word, id));
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
  addClient(command, arguments, realClients);
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
  const ClientWord& client = clientWord(arguments.clientKind);
  requireClient(session, client, id);
  if (arguments.client)
    requireClient(session, clientWord(enumAutoNotifyCompany), *arguments.client);
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
  addClient(command, arguments, clientWords);
  addNumber(command, "ID", "number of the company or contact", arguments.clientId);
  addChoice(command, "--kind", "KIND", kindWords, "", [&arguments](const KindWord& row) {
    arguments.recipientKind = row.kind;
  })->required();
}

Reply runRecipients(Session& session, const Arguments& arguments) {
  const ClientWord& client = clientWord(arguments.clientKind);
  const KindWord& kind = *std::ranges::find(kindWords, arguments.recipientKind, &KindWord::kind);
  const Id id = arguments.clientId.value_or(noId);
  if (client.statement && !arguments.clientId)
    throw Refusal(fmt::format("name the {} by its number", client.word), exitUsage);
  if (!client.statement && kind.kind != RecipientKind::fax)
    throw Refusal("the firm has a list of fax numbers only", exitUsage);
  requireClient(session, client, id);
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
  requireClient(session, clientWord(enumAutoNotifyCompany), company);
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
