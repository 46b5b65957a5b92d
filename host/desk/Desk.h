#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "control/clsAutoNotifyCtrl.h"
#include "control/clsFrmSentNotifyBulk.h"
#include "control/clsNotificationTools.h"
#include "host/clients/ClientDirectory.h"
#include "host/database/dialect/DatabaseError.h"
#include "host/desk/claims.h"
#include "host/dialogs/RecordingErrorClass.h"
#include "host/documents/PrintingFormHost.h"
#include "host/loader/ComponentLibrary.h"
#include "host/mail/OutboxEmailSender.h"
#include "host/services/ClassRegistry.h"
#include "host/services/HostLocale.h"
#include "host/services/HostWorkingFolder.h"
#include "host/services/clocks.h"

namespace autonotify::host {

/// How a person of this program names a folder: stands behind the words that miss it, such as
/// " (--outbox)".
struct FolderHints {
  std::string outbox = {};
  std::string documents = {};
};

struct DeskOptions {
  /// The path of the database file, or the URL of one on a server (see openDatabase).
  std::string database;
  /// The date that the desk pretends to be on; the machine's when unset.
  std::optional<DateTime> today = std::nullopt;
  /// A member of staff; the first one when unset.
  std::optional<Id> user = std::nullopt;
  /// A folder for emails, which must be there; empty: one beside the database file itself, not
  /// beside a link to it, made when needed. A database on a server has none beside it.
  std::string outbox = {};
  /// A folder for the documents of clients, which must be there; empty: as with the outbox.
  std::string documents = {};
  FolderHints hints = {};
  /// The installation's firm code.
  std::string firmCode = {};
  /// Who takes the emails from the outbox; unset: some other mail system.
  std::optional<SmtpServer> mailServer = std::nullopt;
  /// Emails go as plain text alone.
  bool plainMail = false;
};

/// The words of a failure without what is of use to programmers only, such as its statement.
std::string firstLine(const std::string& description);

/// A document in its client's folder.
struct FiledDocument {
  std::string path;
  /// There was one of its name and day already: one of another notification, or of the same one in
  /// an earlier run.
  bool isBesideAnother = false;
};

/// How the person at the desk is met. None is owned; all outlive the desk.
struct DeskDialogs {
  RecordingErrorClass& errors;
  MsgboxClass& messages;
  FormHost& forms;
  /// The same once more where reports are printed rather than shown, else null.
  PrintingFormHost* printer = nullptr;
};

/// The desk cannot be taken: a sentence for the person who wanted it.
class DeskFault : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// A member of staff at work: an open database, the host's services and the component on both.
class Desk {
 public:
  /// Throws DatabaseError when the database cannot be used, DeskFault when there is no such user or
  /// the component cannot be loaded.
  Desk(const DeskOptions& options, const DeskDialogs& dialogs);
  ~Desk();
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;

  RecordsetDatabase& database() { return *database_; }
  /// See RecordsetDatabase.
  void setGate(std::function<void()> gate) { database_->setGate(std::move(gate)); }
  void setWatch(WriteWatch watch) { database_->setWatch(std::move(watch)); }
  FormHost& formHost() { return dialogs_.forms; }
  /// The windows of the component that are loaded at present.
  std::vector<Form*> openForms() { return dialogs_.forms.openForms(); }
  /// Whoever composes, arms or disarms for a task or an item of the diary claims that first; who
  /// sends or changes a notification claims it too (claimNotification), and reads its state then.
  /// Carrying a template into all that is unsent claims nothing: what it writes is not told from a
  /// person's change.
  Claims& claims() {
    database_->readAnew();
    return *claims_;
  }
  clientDropDownCtrlReference& clients() { return *clients_; }
  clsAutoNotifyCtrl& control() { return *control_; }
  clsNotificationTools& tools() { return *tools_; }
  std::unique_ptr<clsFrmSentNotifyBulk> newBulkScheduler();
  /// The classes that the component may create; a program may replace them.
  ClassRegistry& classes() { return registry_; }
  HostLocale& locale() { return locale_; }
  DateShiftedClock& clock() { return clock_; }
  DateTime today() { return clock().today(); }

  /// Runs `call` and gives the errors that the component met meanwhile, as one line; empty when all
  /// went well, if need be at another try.
  template <class Call>
  std::string errorsOf(Call&& call) {
    dialogs_.errors.takeRecorded();
    call();
    return errorLine(dialogs_.errors.takeRecorded());
  }

  /// Runs `write(row)` for each of the rows as one write of the database: see
  /// RecordsetDatabase::writeTogether. False when it or the component met errors, about which
  /// nobody is asked; nothing has changed then.
  template <class Rows, class Write>
  bool writeTogether(const Rows& rows, Write&& write) {
    const Unattended unattended(dialogs_.errors);
    try {
      database_->writeTogether([&] {
        for (const auto& row : rows)
          if (!errorsOf([&] { write(row); }).empty()) throw Undone();
      });
      return true;
    } catch (const Undone&) {
    } catch (const DatabaseError&) {
    }
    return false;
  }

  /// The name of a notification's message for all time, unlike that of any other database's.
  std::string messageIdentity(Id notification) const;
  /// Makes the folder beside the database, and takes out what interrupted programs left half
  /// written. One that was named must be there: a folder made in its place could hide that a disk
  /// is not mounted. Throws PlatformError when none was named for a database on a server, or when
  /// there is another one beside the link to the database.
  void makeOutbox();
  /// The folder for the documents of clients; the one beside the database is made. Throws
  /// PlatformError when none was named for a database on a server, or the folder cannot be used.
  std::string requireDocuments();
  /// The documents that were filed since the last time.
  std::vector<FiledDocument> takeFiled() { return std::exchange(filed_, {}); }
  std::size_t filedCount() const { return filed_.size(); }
  /// The emails that went out at once since the last time.
  std::vector<Id> takeSent() { return std::exchange(sent_, {}); }
  void noteSent(Id notification) { sent_.push_back(notification); }
  /// Whether emails have a place to go out from.
  bool hasOutbox() const { return !outbox_.empty(); }
  /// Whether emails go on to a mail server.
  bool hasMailServer() const { return mailServer_.has_value(); }
  /// Null where a person is shown what is to be printed.
  PrintingFormHost* printer() { return dialogs_.printer; }
  /// A sender with all references set, for one message.
  std::unique_ptr<OutboxEmailSender> newEmailSender();

 private:
  /// Ends what is written together.
  struct Undone {};
  class Unattended {
   public:
    explicit Unattended(RecordingErrorClass& errors) : errors_(errors) {
      errors_.setUnattended(true);
    }
    ~Unattended() { errors_.setUnattended(false); }
    Unattended(const Unattended&) = delete;
    Unattended& operator=(const Unattended&) = delete;

   private:
    RecordingErrorClass& errors_;
  };

  static std::string errorLine(std::vector<RecordedError> errors);
  void readFirm(const DeskOptions& options);
  void readUser(const DeskOptions& options);
  void registerClasses();
  void loadComponent();

  DeskDialogs dialogs_;
  SystemClock systemClock_;
  DateShiftedClock clock_;
  std::unique_ptr<RecordsetDatabase> database_;
  std::unique_ptr<Claims> claims_;
  HostLocale locale_;
  HostWorkingFolder workingFolder_;
  std::unique_ptr<ClientDirectory> clients_;
  ClassRegistry registry_;
  std::optional<SmtpServer> mailServer_;
  bool plainMail_;
  /// Beside the database, not named by an option.
  bool hasOwnOutbox_;
  std::string outbox_;
  /// The same by the name that was given for the database.
  std::string linkedOutbox_;
  bool isOutboxTidy_ = false;
  /// Beside the database, not named by an option.
  bool hasOwnDocuments_;
  std::string documents_;
  FolderHints hints_;
  std::vector<FiledDocument> filed_;
  std::vector<Id> sent_;
  /// The last name that was given to a document because its own was taken.
  std::string nameBeside_;
  std::string databaseIdentity_;
  std::unique_ptr<ComponentLibrary> library_;
  std::unique_ptr<clsAutoNotifyCtrl> control_;
  std::unique_ptr<clsNotificationTools> tools_;
};

/// While it lives the client lookup keeps whole tables.
class LookupBatch {
 public:
  explicit LookupBatch(Desk& desk) : desk_(desk) { desk_.clients().setClientLookupBatch(true); }
  ~LookupBatch() { desk_.clients().setClientLookupBatch(false); }
  LookupBatch(const LookupBatch&) = delete;
  LookupBatch& operator=(const LookupBatch&) = delete;

 private:
  Desk& desk_;
};

/// One for the clients of so many rows, or null where reading whole tables takes longer than
/// looking each of them up.
std::unique_ptr<LookupBatch> lookupBatchFor(Desk& desk, std::size_t rows);

}  // namespace autonotify::host
