#include "commands/contacts.h"

#include <fmt/format.h>

#include <algorithm>
#include <span>

#include "commands/arguments.h"
#include "host/desk/work/client_contacts.h"
#include "host/desk/work/recipient_names.h"
#include "outcome_words.h"
#include "platform/text.h"

namespace autonotify::console {
namespace {

/// Whom a command is about, by the word that it is typed with.
struct ClientWord {
  const char* word;
  enumAutoNotifyClientType type;
};
constexpr ClientWord clientWords[] = {
    {"company", enumAutoNotifyCompany},
    {"contact", enumAutoNotifyContact},
    {"firm", enumAutoNotifyNone},
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

Reply describeDefault(host::Desk& desk, Id company) {
  const auto found = doneOrRefuse(host::findDefaultContact(desk, company));
  const bool isThere = found.contact >= 0;
  Reply reply;
  reply.text = isThere
                   ? fmt::format("{}: contact {}, {}\n", found.company, found.contact, found.name)
                   : fmt::format("{}: no default contact\n", found.company);
  reply.data = {{"company", company},
                {"contact", isThere ? Json(found.contact) : Json()},
                {"name", isThere ? Json(found.name) : Json()}};
  return reply;
}

/// "jo@x.example  Jo Smith (our firm)"; a list of names tells nobody besides.
std::string recipientText(const host::NamedAddress& named) {
  if (named.name.empty()) return named.address;
  return fmt::format("{}  {}{}", named.address, named.name, named.isOfFirm ? " (our firm)" : "");
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

Reply runAddress(host::Desk& desk, const Arguments& arguments) {
  const host::Client client = doneOrRefuse(
      host::requireClient(desk, {arguments.clientKind, arguments.clientId.value_or(noId)}));
  const Id company = arguments.client.value_or(noId);
  if (arguments.client) doneOrRefuse(host::requireClient(desk, {enumAutoNotifyCompany, company}));
  if (arguments.home && client.type == enumAutoNotifyCompany)
    throw Refusal("a company has no home: leave out --home");
  const std::string block =
      doneOrRefuse(host::composeAddress(desk, {client.type, client.id, company, arguments.home,
                                               arguments.rtf, arguments.phones, arguments.email}));
  if (block.empty()) throw Refusal(subjectOf(client) + " has no address");
  Reply reply;
  reply.text = replaceAll(block, "\r\n", "\n");
  if (!reply.text.ends_with('\n')) reply.text += '\n';
  reply.data = {{clientWord(client.type).word, client.id}, {"address", block}};
  return reply;
}

void describeRecipients(CLI::App& command, Arguments& arguments) {
  addClient(command, arguments, clientWords);
  addNumber(command, "ID", "number of the company or contact", arguments.clientId);
  addChoice(command, "--kind", "KIND", kindWords, "", [&arguments](const KindWord& row) {
    arguments.recipientKind = row.kind;
  })->required();
}

Reply runRecipients(host::Desk& desk, const Arguments& arguments) {
  const bool isFirm = arguments.clientKind == enumAutoNotifyNone;
  const KindWord& kind = *std::ranges::find(kindWords, arguments.recipientKind, &KindWord::kind);
  if (!isFirm && !arguments.clientId)
    throw Refusal(fmt::format("name the {} by its number", clientWord(arguments.clientKind).word),
                  exitUsage);
  if (isFirm && kind.kind != RecipientKind::fax)
    throw Refusal("the firm has a list of fax numbers only", exitUsage);
  const host::Client client = doneOrRefuse(
      host::requireClient(desk, {arguments.clientKind, arguments.clientId.value_or(noId)}));
  const RecipientOffer offer = doneOrRefuse(host::listRecipients(desk, client, kind.kind));
  if (offer.texts.empty())
    throw Refusal(fmt::format("no {} of {} is known", kind.meaning, subjectOf(client)));
  Reply reply;
  reply.data = Json::array();
  int place = 0;
  for (const host::NamedAddress& each : host::nameAddresses(desk, offer.texts)) {
    const bool isLikeliest = place++ == offer.likeliest;
    reply.text += fmt::format("{} {}\n", isLikeliest ? '*' : ' ', recipientText(each));
    reply.data.push_back({{"text", each.address},
                          {"default", isLikeliest},
                          {"name", textJson(each.name)},
                          {"firm", each.isOfFirm}});
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

Reply runContactDefault(host::Desk& desk, const Arguments& arguments) {
  const Id company = *arguments.clientId;
  if (arguments.contact &&
      !doneOrRefuse(host::setDefaultContact(desk, company, *arguments.contact)))
    throw Refusal(
        fmt::format("contact {} does not belong to company {}", *arguments.contact, company));
  return describeDefault(desk, company);
}

}  // namespace autonotify::console
