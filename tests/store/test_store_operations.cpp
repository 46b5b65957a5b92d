#include <array>

#include "channels/modApptNotifications.h"
#include "channels/modChannelNotifications.h"
#include "contract/enumerations.h"
#include "platform/text.h"
#include "store/modNotificationLinks.h"
#include "store/modNotifyClients.h"
#include "support/fault_walk.h"
#include "support/golden_file.h"
#include "support/told_rows.h"

namespace autonotify::test {
namespace {

// The procedures of the store and the channels on one office.

constexpr DateTime day = DateTime::of(2026, 4, 30);
constexpr DateTime reminder = DateTime::of(2026, 4, 9, 14, 30);

constexpr Id company = 1, contact = 2, nobody = 4711;
constexpr Id ofCompany = 1, ofContact = 2, ofNobody = 3, archived = 900;
constexpr Id bareTask = 1, task = 2, appointment = 1, docket = 2;
constexpr Id faxRow = 2, otherEmail = 3, appointmentRow = 4, docketRow = 5, lastRow = 11;
constexpr auto noKind = static_cast<CurrentDayTimerType>(4);

void fillOffice(TableRows rows) {
  addAllTold(rows, "store_office.txt", "office");
}

template <class... Fields>
std::string joined(const Fields&... fields) {
  std::string all;
  ((all += toText(fields) + ", "), ...);
  return all.substr(0, all.size() - 2);
}

/// Arguments and results as the expected calls spell them.
struct Text {
  std::string text;
  Text(const CompanyAndContactID& of) : text(toText(of.companyId) + "/" + toText(of.contactId)) {}
  Text(const std::optional<DateTime>& of) : text(of ? toText(*of) : "") {}
  Text(const EmailTexts& of) : text(joined(of.to, of.cc, of.bcc, of.subject, of.memo)) {}
  Text(const FaxTexts& of)
      : text(joined(of.to, of.from, of.senderFax, of.receiverFax, of.pages, of.subject, of.memo)) {}
  Text(const PhoneTexts& of) : text(joined(of.to, of.number, of.times, of.memo)) {}
  Text(const KnownEntry& of)
      : text(joined(of.scheduleID, of.client.companyId, of.client.contactId, of.scheduleName,
                    of.dueDate, of.templateComment)) {}
  Text(const ItemReminder& of)
      : text(joined(int{of.kind}, of.itemId, of.reminderDate, of.notificationId,
                    of.client.companyId, of.client.contactId)) {}
  template <class Simple>
  Text(const Simple& of) {
    if constexpr (std::is_enum_v<Simple>)
      text = toText(int{of});
    else
      text = toText(of);
  }
};

/// Each named by its arguments.
using Operations = std::vector<WalkedOperation>;

template <class Result, class... Parameters, class... Given>
WalkedOperation call(Result (*procedure)(Parameters...), Given... given) {
  std::string arguments;
  ((arguments += (arguments.empty() ? "" : ", ") + Text(std::decay_t<Parameters>(given)).text),
   ...);
  return {arguments, [=](TestHost&) {
            if constexpr (std::is_void_v<Result>) {
              procedure(given...);
              return std::string{};
            } else {
              return Text(procedure(given...)).text;
            }
          }};
}

/// The adds for schedule entries, which add a row even when the person leaves their date.
Operations entryAdds() {
  Operations all;
  for (const auto add :
       {addNewEmailNotificationFromScheduleIDNum, addNewFaxNotificationFromScheduleIDNum,
        addNewLetterNotificationFromScheduleIDNum, addNewPhoneNotificationFromScheduleIDNum})
    for (const Id entry : {ofCompany, ofContact}) all.push_back(call(add, entry));
  for (const auto add : {addNewEmailNotificationFromScheduleNameAndDueDate,
                         addNewFaxNotificationFromScheduleNameAndDueDate,
                         addNewLetterNotificationFromScheduleNameAndDueDate,
                         addNewPhoneNotificationFromScheduleNameAndDueDate})
    all.push_back(call(add, KnownEntry{ofCompany, {company, 44}, "GST Return", day, "Hello"}));
  return all;
}

/// What takes the kind of a diary item.
void addItemOperations(Operations& all, CurrentDayTimerType kind, Id item, Id row) {
  for (const auto add : {addNewApptEmailNotification, addNewApptFaxNotification,
                         addNewApptLetterNotification, addNewApptPhoneNotification})
    all.push_back(call(add, ItemReminder{kind, item, reminder, noId, {company, noId}}));
  all.insert(
      all.end(),
      {call(addNewApptFaxNotification, ItemReminder{kind, item, reminder, row, {nobody, contact}}),
       call(addNewApptLetterNotification, ItemReminder{kind, item, reminder, nobody}),
       call(getApptNotificationID, kind, item, nt_Fax),
       call(getApptNotificationID, kind, noId, nt_Fax),
       call(getAppointmentIDFromNotificationID, kind, row),
       call(getApptNotificationStatus, kind, item, nt_Email),
       call(changeApptNotificationStatus, kind, nt_Phone, nt_AddStatus, item),
       call(changeApptNotificationStatus, kind, nt_Fax, nt_RemoveStatus, item),
       call(deleteApptNotification, kind, nt_Email, item),
       call(copyOldApptNotificationInfoToNewApptNotificationByTaskIDNum, kind, otherEmail, item),
       call(copyOldApptNotificationInfoToNewApptNotificationByTaskIDNum, kind, faxRow, item),
       call(getAppointmentBodyText, kind, item), call(resetApptNotificationBody, kind, row, item)});
}

void addRowOperations(Operations& all, Id row) {
  all.insert(
      all.end(),
      {call(getApptNotificationDate, row),
       call(editEmailNotification, row, EmailTexts{"a", "b", "c", "d", "e"}),
       call(editFaxNotification, row, FaxTexts{"a", "b", "c", "d", "e", "f", "g"}),
       call(editLetterNotification, row, ""),
       call(editPhoneNotification, row, PhoneTexts{"a", "b", "c", "d"}),
       call(editApptEmailNotification, Tasks, row, EmailTexts{"", "", "c", "", "e"}),
       call(editApptFaxNotification, Tasks, row, FaxTexts{"a", "", "", "d", "", "f", ""}),
       call(editApptLetterNotification, Tasks, row, ""),
       call(editApptPhoneNotification, Tasks, row, PhoneTexts{"", "b", "", ""}),
       call(changeNotificationToSent, row, reminder, false),
       call(changeNotificationToSent, row, std::nullopt, false), call(cancelNotification, row),
       call(changeNotificationNotifiedDate, row, reminder), call(deleteNotification, row),
       call(copyOldNotificationInfoToNewNotificationByScheduleIDNum, row, ofCompany)});
}

void addEntryOperations(Operations& all, Id entry) {
  all.insert(
      all.end(),
      {call(getCompanyIDFromScheduleID, entry), call(getCompanyNameFromScheduleID, entry),
       call(getNotificationID, entry, nt_Email), call(getNotificationStatus, entry, nt_Fax),
       call(getNotificationStatus, entry, nt_Letter), call(getNotificationStatus, entry, nt_Phone),
       call(getNotificationStatus, entry, static_cast<notifyType>(3)),
       call(changeNotificationStatus, nt_Phone, nt_AddStatus, entry),
       call(changeNotificationStatus, nt_Fax, nt_RemoveStatus, entry),
       call(doesClientHaveAssociatedUnsentNotifications, entry),
       call(cancelAllUnsentNotificationsForClientID, entry)});
  for (const auto lookup :
       {getScheduleIDFromTaskID, getTaskIDFromScheduleID, getClientDataIDFromScheduleID,
        getScheduleNumFromScheduleID, getTotalNumFromScheduleID, getContactIDFromScheduleID})
    all.push_back(call(lookup, entry));
  all.push_back(call(getScheduleNameFromScheduleID, entry));
}

/// What takes the ids of all items: those from the `first`th on are given.
void addLinkOperations(Operations& all, std::size_t first) {
  std::array<Id, 4> ids{ofCompany, task, appointment, docket};
  std::fill_n(ids.begin(), first, noId);
  const auto& [entry, ofTask, ofAppointment, ofDocket] = ids;
  all.push_back(
      call(getCompanyAndContactIDFromNotificationID, entry, ofTask, ofAppointment, ofDocket));
  all.push_back(call(getNotificationEmployeeAssignedFromNotificationIDs, entry, ofTask,
                     ofAppointment, ofDocket, noId));
}

Operations storeOperations() {
  Operations all;
  addItemOperations(all, Appointments, appointment, appointmentRow);
  addItemOperations(all, Dockets, docket, docketRow);
  for (const Id row : {appointmentRow, nobody}) addRowOperations(all, row);
  for (const Id entry : {ofCompany, archived, noId}) addEntryOperations(all, entry);
  for (const auto subject : {getAppointmentSubjectFromAppointmentID, getTaskSubjectFromTaskID,
                             getDocketSubjectFromDocketID})
    all.push_back(call(subject, 1));
  all.push_back(call(getCompanyIDFromAppointmentID, appointment));
  all.push_back(call(getContactIDFromAppointmentID, appointment));
  for (Id row = faxRow; row <= lastRow; ++row) {
    all.push_back(call(getCompanyIDFromAutoNotificationID, row));
    all.push_back(call(getContactIDFromAutoNotificationID, row));
    all.push_back(call(getClientTypeFromNotificationID, row));
  }
  for (std::size_t first = 0; first <= 4; ++first) addLinkOperations(all, first);
  const auto assigned = getNotificationEmployeeAssignedFromNotificationIDs;
  for (const Id entry : {ofContact, noId})
    all.push_back(call(assigned, entry, bareTask, noId, noId, noId));
  all.push_back(call(getNumberOfUnsentNotifications));
  return all;
}

/// Operations whose statements the database refuses.
Operations refusedOperations() {
  return {
      call(copyOldNotificationInfoToNewNotification, appointmentRow, otherEmail),
      call(addNewEmailNotificationFromScheduleIDNum, ofNobody),
      call(addNewPhoneNotificationFromScheduleIDNum, ofNobody),
      call(addNewApptFaxNotification, ItemReminder{noKind, 7, reminder, noId, {company, contact}}),
      call(getApptNotificationID, noKind, 7, nt_Fax),
      call(getAppointmentIDFromNotificationID, Appointments + (1 << 16), appointmentRow),
      call(getApptNotificationStatus, noKind, 7, nt_Email),
      call(changeApptNotificationStatus, Dockets + (1 << 16), nt_Phone, nt_AddStatus, 7),
      call(deleteApptNotification, noKind, nt_Email, 7),
      call(getAppointmentBodyText, noKind, 7),
      call(resetApptNotificationBody, Dockets + (1 << 16), appointmentRow, docket)};
}

/// Writes down the procedures of the store and the channels that run, each with what it opens and
/// writes; one called by another that does neither is left out. The person goes on past failures.
class CallRecorder : public ScriptedErrorClass {
 public:
  explicit CallRecorder(HostCalls& calls) : calls_(calls) {
    calls_.record(true);
    answerRest(error_choice::next, 100);
  }
  void enterProcedure(std::string_view tag) override {
    writeCalls();
    ScriptedErrorClass::enterProcedure(tag);
    names_.push_back(std::string(tag.substr(tag.find('-') + 1)));
    if (depth() == 1) writeNames();
  }
  void leaveProcedure() override {
    writeCalls();
    names_.pop_back();
    written_ = std::min(written_, names_.size());
    ScriptedErrorClass::leaveProcedure();
  }
  void recordError(const PlatformError& error) override {
    writeCalls();
    write("error " + toText(error.number()));
    ScriptedErrorClass::recordError(error);
  }
  const std::string& text() const { return text_; }

 private:
  static bool startsWithOneOf(const std::string& text, std::initializer_list<const char*> starts) {
    return std::ranges::any_of(starts, [&](const char* start) { return text.starts_with(start); });
  }
  void writeCalls() {
    for (; seen_ < calls_.log().size(); ++seen_) {
      const std::string& line = calls_.log()[seen_];
      if (startsWithOneOf(line, {"openRecordset", "setFieldValue", "updateFieldValue",
                                 "saveNewRecord", "deleteRecord", "gotoBookmark"}))
        write(line);
    }
  }
  void write(const std::string& line) {
    if (!startsWithOneOf(names_.back(),
                         {"modAppt", "modChannel", "modNotificationLinks", "modNotifyClients"}))
      return;
    writeNames();
    text_ += std::string(2 * names_.size(), ' ') + line + "\n";
  }
  void writeNames() {
    for (; written_ < names_.size(); ++written_)
      text_ += std::string(2 * written_, ' ') + names_[written_] + "\n";
  }

  HostCalls& calls_;
  std::vector<std::string> names_;
  std::size_t written_ = 0, seen_ = 0;
  std::string text_;
};

/// The operation's procedure with its arguments, what it called, and its results.
std::string calledBy(const WalkedOperation& operation) {
  AttachedHost host(fillOffice);
  CallRecorder recorder(host.calls);
  references().errors = &recorder;
  const std::string result = operation.run(host);
  std::string text = recorder.text();
  text.insert(text.find('\n'), "(" + operation.name + ")");
  const std::string held = resultWhenLeft(operation.run, fillOffice, host.calls.count());
  return text + "= " + result + (held == result ? "" : ", left at last: " + held);
}

TEST(StoreOperations, CallTheHostAsItKnowsThem) {
  std::string text;
  for (const auto& operations : {entryAdds(), refusedOperations(), storeOperations()}) {
    for (const WalkedOperation& operation : operations) {
      const std::string closed = resultWhenClosed(operation.run, fillOffice);
      text += replaceAll(calledBy(operation) + ", closed: " + closed + "\n\n", "\r\n", "\\n");
    }
  }
  expectGolden(AUTONOTIFY_TEST_FOLDER "operations.txt", text);
}

/// The operations in parts, each a test of its own, so that they may run side by side.
constexpr int parts = 8;
class StoreFaults : public testing::TestWithParam<int> {};

std::string written(TestHost& host) {
  return host.dumpWritten() + host.dump("SELECT notifyType, ClientNotifiedFlag FROM Appointments") +
         host.dump("SELECT notifyType, ClientNotifiedFlag FROM Dockets");
}

TEST_P(StoreFaults, LeaveNothingHalfDone) {
  const Operations all = storeOperations();
  for (std::size_t i = GetParam(); i < all.size(); i += parts) {
    SCOPED_TRACE("(" + all[i].name + ") of the " + std::to_string(i) + "th");
    walkFaults({.run = all[i].run, .defaultResult = resultWhenClosed(all[i].run, fillOffice)},
               {fillOffice, written});
  }
}

INSTANTIATE_TEST_SUITE_P(Parts, StoreFaults, testing::Range(0, parts));

}  // namespace
}  // namespace autonotify::test
