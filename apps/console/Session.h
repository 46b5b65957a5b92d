#pragma once

#include <memory>
#include <string>

#include "Arguments.h"
#include "control/clsAutoNotifyCtrl.h"
#include "control/clsNotificationTools.h"
#include "host/loader/ComponentLibrary.h"
#include "host/mail/OutboxEmailSender.h"
#include "host/services/ClassRegistry.h"
#include "host/services/ClientDirectory.h"
#include "host/services/HeadlessFormHost.h"
#include "host/services/HostLocale.h"
#include "host/services/HostWorkingFolder.h"
#include "host/services/TerminalErrorClass.h"
#include "host/services/TerminalMsgbox.h"
#include "host/services/clocks.h"

namespace autonotify::console {

/// An open database with the component at work on it.
///
/// Throws Refusal when the database cannot be used or the component cannot be loaded.
class Session {
 public:
  explicit Session(const GlobalOptions& options);
  ~Session();

  DatabaseReference& database() { return *database_; }
  clientDropDownCtrlReference& clients() { return *clients_; }
  clsAutoNotifyCtrl& control() { return *control_; }
  clsNotificationTools& tools() { return *tools_; }
  host::HostLocale& locale() { return locale_; }
  Clock& clock() { return *clock_; }
  DateTime today() { return clock_->today(); }

  /// The name of a notification's message for all time, unlike that of any other database's.
  std::string messageIdentity(Id notification) const;
  /// Makes the folder beside the database. One that was named must be there: a folder made in its
  /// place could hide that a disk is not mounted.
  void makeOutbox();
  /// A sender with all references set, for one message.
  std::unique_ptr<host::OutboxEmailSender> newEmailSender();

  /// Runs `call` and gives the errors that the component met meanwhile, as one line; empty when all
  /// went well.
  template <class Call>
  std::string errorsOf(Call&& call) {
    errors_.takeRecorded();
    call();
    return errorLine(errors_.takeRecorded());
  }

 private:
  static std::string errorLine(const std::vector<host::RecordedError>& errors);
  void readFirm(const GlobalOptions& options);
  void readUser(const GlobalOptions& options);
  void loadComponent();

  host::SystemClock systemClock_;
  std::unique_ptr<Clock> clock_;
  std::unique_ptr<DatabaseReference> database_;
  host::Terminal terminal_;
  host::TerminalErrorClass errors_;
  host::TerminalMsgbox messages_;
  host::HostLocale locale_;
  host::HostWorkingFolder workingFolder_;
  std::unique_ptr<host::ClientDirectory> clients_;
  host::ClassRegistry registry_;
  host::HeadlessFormHost forms_;
  /// Beside the database, not named by an option.
  bool hasOwnOutbox_;
  std::string outbox_;
  std::string databaseIdentity_;
  std::unique_ptr<host::ComponentLibrary> library_;
  std::unique_ptr<clsAutoNotifyCtrl> control_;
  std::unique_ptr<clsNotificationTools> tools_;
};

}  // namespace autonotify::console
