#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "contract/contact_lists.h"
#include "contract/enumerations.h"
#include "contract/merge_fields.h"
#include "host/exchange/import_files.h"
#include "platform/DateTime.h"
#include "platform/Value.h"

namespace autonotify::host {
struct NotificationOrder;
struct NotificationStanding;
}  // namespace autonotify::host

namespace autonotify::console {

struct CommandAction;
struct HelpForm;

/// Options that stand before the command.
struct GlobalOptions {
  std::string database = "hvnotify.db";
  /// The date that the run pretends to be; the machine's when unset.
  std::optional<DateTime> today;
  std::optional<Id> user;
  /// Empty: the folder beside the database file.
  std::string outbox;
  /// The same for documents.
  std::string documents;
  std::string firmCode;
  /// Empty: emails stay in the outbox.
  std::string mailServer;
  std::string mailPasswordFile;
  /// Seconds to wait for a mail server that is silent.
  std::optional<int> mailTimeout;
  bool plainMail = false;
  bool json = false;
  /// Ask nobody, even on a terminal.
  bool batch = false;
};

/// Arguments of all commands; each command reads its own.
struct Arguments {
  Id task = noId;
  std::vector<Id> tasks;
  Id notification = noId;
  std::vector<Id> notifications;
  std::optional<CurrentDayTimerType> itemKind;
  Id item = noId;
  std::vector<notifyType> channels;
  std::optional<std::int16_t> year;
  /// Kinds of tasks, by their `totalNum`.
  std::vector<Id> families;
  std::optional<Id> client;
  std::optional<Id> contact;
  std::optional<DateTime> since;
  std::optional<DateTime> until;
  std::optional<DateTime> date;
  const host::NotificationStanding* standing = nullptr;
  std::string assigned;
  const host::NotificationOrder* order = nullptr;
  bool descending = false;
  std::optional<int> limit;
  bool csv = false;
  /// A part of one.
  std::string name;
  /// enumAutoNotifyNone: the firm itself.
  enumAutoNotifyClientType clientKind = enumAutoNotifyNone;
  std::optional<Id> clientId;
  RecipientKind recipientKind = RecipientKind::email;
  bool home = false;
  bool phones = false;
  bool email = false;
  /// A kind of tasks, by its number or name.
  std::string scheduleType;
  const CommandAction* action = nullptr;
  /// A command by name, and one below it.
  std::vector<std::string> words;
  const HelpForm* helpForm = nullptr;
  std::string former;
  bool anyway = false;
  bool keepEdited = false;
  MergeUse mergeUse = MergeUse::task;
  std::string file;
  std::vector<std::string> files;
  host::ImportOptions importing;
  const host::EntryKind* entryKind = nullptr;
  std::string from;
  std::string to;
  bool anew = false;
  std::string role;
  bool due = false;
  bool mine = false;
  bool myClients = false;
  bool dryRun = false;
  bool markOnly = false;
  bool mark = false;
  std::string pdf;
  bool again = false;
  std::string testTo;
  bool plain = false;
  bool rtf = false;
  bool force = false;
  bool made = false;
  bool noAnswer = false;
  std::string note;
  bool demo = false;
  int clients = 500;
  int pastNotifications = 0;
  std::uint64_t seed = 1;
  std::string country = "ca";
  std::string province;
  std::string firmName = "Our Firm";
  std::string userName = "Administrator";
  /// By position among host::firmDetails().
  std::vector<std::optional<std::string>> firmDetails;
};

}  // namespace autonotify::console
