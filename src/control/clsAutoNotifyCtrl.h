#pragma once

#include <cstdint>
#include <string>

#include "contract/DatabaseReference.h"
#include "contract/LocaleReference.h"
#include "contract/MsgboxClass.h"
#include "contract/WorkingFolderReference.h"
#include "contract/clientDropDownCtrlReference.h"
#include "contract/enumerations.h"
#include "contract/errorClass.h"
#include "control/component.h"

namespace autonotify {

/// The kind of diary item where there is none.
inline constexpr auto noDayTimerType = static_cast<CurrentDayTimerType>(noId);

/// What a clsAutoNotifyCtrl may tell its host.
class clsAutoNotifyCtrlEvents {
 public:
  virtual ~clsAutoNotifyCtrlEvents() = default;
  /// Declared for hosts that have a handler for it; nothing in the library raises it.
  virtual void ExitProgram() = 0;
};

/// The one object through which a host reaches the notification library.
///
/// Create it, assign errorClass first, then the other five references, then call operations in any
/// order. All calls come on the host's interface thread. No operation throws PlatformError: a
/// failure is settled at the error dialog, and an operation that was left gives its default (False,
/// 0, -1 or empty text).
///
/// The references belong to the process, not to the object: they are not owned and must live until
/// the library is unloaded.
class clsAutoNotifyCtrl : public ComponentObject {
 public:
  // Properties.

  /// Plain storage for the host; operations that open a window overwrite it.
  virtual bool get_cancelFlag() const = 0;
  virtual void put_cancelFlag(bool value) = 0;
  /// The first assignment in the process wins; later ones are ignored. It is handed on to
  /// GeneralUtilities and ValidationUtilities.
  virtual void put_errorClass(errorClass* value) = 0;
  /// The first assignment wins.
  virtual void put_MsgboxClass(MsgboxClass* value) = 0;
  /// The first assignment wins.
  virtual void put_DatabaseReference(DatabaseReference* value) = 0;
  virtual DatabaseReference* get_DatabaseReference() const = 0;
  /// The first assignment wins.
  virtual void put_WorkingFolderReference(WorkingFolderReference* value) = 0;
  /// The first assignment wins.
  virtual void put_LocaleReference(LocaleReference* value) = 0;
  /// Each assignment replaces the reference held before.
  virtual void put_clientDropDownCtrlReference(clientDropDownCtrlReference* value) = 0;

  /// Where events go; not owned, null for nowhere.
  virtual void adviseEvents(clsAutoNotifyCtrlEvents* sink) = 0;

  // The state of a schedule entry's notifications.

  /// True when a row stands for the client (a `Schedule.ClientNum`), whatever its state.
  virtual bool cls_doesClientHaveAssociatedUnsentNotifications(Id clientID) = 0;
  /// Cancels every row of the client, also those already sent.
  virtual void cls_cancelAllUnsentNotificationsForClientID(Id clientID) = 0;
  /// The first row of the schedule entry and channel, or -1.
  virtual Id cls_getNotificationID(Id itemNum, notifyType remittType) = 0;
  /// True when the channel's bit is set and its row exists; clears a bit without a row.
  virtual bool cls_getNotificationStatus(Id ScheduleIDNum, notifyType remittType) = 0;
  /// Moves the row's date, in any state.
  virtual void cls_ChangeNotificationNotifiedDate(Id notifyNum, DateTime newDate) = 0;
  /// Sets or clears the channel's bit of the schedule entry. False when there is no such entry.
  virtual bool cls_changeNotificationStatus(notifyType remittType, changeStatus statusChange,
                                            Id ScheduleIDNum) = 0;
  /// True when an unsent row is dated today or earlier.
  virtual bool cls_needToSendAutoNotificationsToday() = 0;
  virtual bool cls_IsEmailSelected(std::uint8_t notification) = 0;
  virtual bool cls_IsFaxSelected(std::uint8_t notification) = 0;
  virtual bool cls_IsLetterSelected(std::uint8_t notification) = 0;
  virtual bool cls_IsPhoneSelected(std::uint8_t notification) = 0;

  // Adding and editing, by channel. An add gives the new row's id, or -1; it leaves
  // `Schedule.notifyType` to the caller. An edit leaves a field alone when its argument is empty;
  // the letter's text alone is always written.

  virtual Id cls_addNewEmailNotificationFromScheduleIDNum(Id ScheduleIDNum) = 0;
  virtual Id cls_addNewEmailNotificationFromScheduleNameAndDueDate(
      Id scheduleID, Id taskID, Id CompanyIDNum, Id ContactIDNum, const std::string& scheduleName,
      DateTime dueDate, const std::string& templateComment) = 0;
  virtual void cls_editEmailNotification(Id notificationNum, const std::string& ToStr = {},
                                         const std::string& CcStr = {},
                                         const std::string& BccStr = {},
                                         const std::string& subjectStr = {},
                                         const std::string& memoStr = {}) = 0;
  virtual Id cls_addNewFaxNotificationFromScheduleIDNum(Id ScheduleIDNum) = 0;
  virtual Id cls_addNewFaxNotificationFromScheduleNameAndDueDate(
      Id scheduleID, Id taskID, Id CompanyIDNum, Id ContactIDNum, const std::string& scheduleName,
      DateTime dueDate, const std::string& templateComment) = 0;
  virtual void cls_editFaxNotification(Id notificationNum, const std::string& ToStr = {},
                                       const std::string& FromStr = {},
                                       const std::string& SenderFaxStr = {},
                                       const std::string& ReceiverFaxStr = {},
                                       const std::string& PagesStr = {},
                                       const std::string& subjectStr = {},
                                       const std::string& memoStr = {}) = 0;
  virtual Id cls_addNewLetterNotificationFromScheduleIDNum(Id ScheduleIDNum) = 0;
  virtual Id cls_addNewLetterNotificationFromScheduleNameAndDueDate(
      Id scheduleID, Id taskID, Id CompanyIDNum, Id ContactIDNum, const std::string& scheduleName,
      DateTime dueDate, const std::string& templateComment) = 0;
  virtual void cls_editLetterNotification(Id notificationNum, const std::string& memoStr) = 0;
  virtual Id cls_addNewPhoneNotificationFromScheduleNameAndDueDate(
      Id scheduleID, Id taskID, Id CompanyIDNum, Id ContactIDNum, const std::string& scheduleName,
      DateTime dueDate, const std::string& templateComment) = 0;
  virtual Id cls_addNewPhoneNotificationFromScheduleIDNum(Id ScheduleIDNum) = 0;
  virtual void cls_editPhoneNotification(Id notificationNum, const std::string& ToStr = {},
                                         const std::string& PhoneNumberStr = {},
                                         const std::string& TimesStr = {},
                                         const std::string& memoStr = {}) = 0;

  // Copying and deleting.

  virtual void cls_copyOldNotificationInfoToNewNotification(Id newNotificationNum,
                                                            Id oldNotificationNum) = 0;
  virtual void cls_copyOldNotificationInfoToNewNotificationByScheduleIDNum(Id newNotificationNum,
                                                                           Id oldScheduleIDNum) = 0;
  /// The channel's bit of the schedule entry stays; the caller clears it.
  virtual void cls_deleteNotification(Id NotifyID) = 0;

  // Diary items: the notifications of appointments, time entries (Dockets) and tasks. A task stands
  // for its schedule entry: what is done here for a task is done for the entry. Any other kind ends
  // at the error dialog.

  /// Deletes the item's row of the channel and clears the channel's bit; a task's bit stays.
  virtual void cls_deleteApptNotification(CurrentDayTimerType dayTimerType, notifyType remittType,
                                          Id itemNum) = 0;
  /// True when the channel's bit is set and its row exists; clears a bit without a row.
  virtual bool cls_getApptNotificationStatus(CurrentDayTimerType dayTimerType, Id itemNum,
                                             notifyType remittType) = 0;
  /// The first row of the item and channel, or -1.
  virtual Id cls_getApptNotificationID(CurrentDayTimerType dayTimerType, Id itemNum,
                                       notifyType remittType) = 0;
  /// The zero date when there is none.
  virtual DateTime cls_getApptNotificationDate(Id notificationNum) = 0;
  /// Writes the sentences about the item over the row's text. The kind has 32 bits here alone.
  virtual void cls_resetApptNotificationBody(std::int32_t dayTimerType, Id notificationNum,
                                             Id itemNum) = 0;
  /// Sets or clears the channel's bit of the item. False when there is no such item.
  virtual bool cls_changeApptNotificationStatus(CurrentDayTimerType dayTimerType,
                                                notifyType remittType, changeStatus statusChange,
                                                Id itemNum) = 0;
  /// Takes over the channel fields of the old item's row, except a subject.
  virtual void cls_copyOldApptNotificationInfoToNewApptNotificationByTaskIDNum(
      CurrentDayTimerType dayTimerType, Id newNotificationNum, Id oldTaskIDNum) = 0;
  // An add writes the row `notificationNum` anew when it is above 0, and a new row otherwise; it
  // gives the row's id, or -1. Clients not given are looked up among the appointments: name those
  // of a time entry.
  virtual Id cls_addNewApptEmailNotification(CurrentDayTimerType dayTimerType, Id itemNum,
                                             DateTime reminderDate, Id notificationNum = noId,
                                             Id companyNum = noId, Id contactNum = noId) = 0;
  virtual void cls_editApptEmailNotification(CurrentDayTimerType dayTimerType, Id notificationNum,
                                             const std::string& ToStr = {},
                                             const std::string& CcStr = {},
                                             const std::string& BccStr = {},
                                             const std::string& subjectStr = {},
                                             const std::string& memoStr = {}) = 0;
  virtual Id cls_addNewApptFaxNotification(CurrentDayTimerType dayTimerType, Id itemNum,
                                           DateTime reminderDate, Id notificationNum = noId,
                                           Id companyNum = noId, Id contactNum = noId) = 0;
  virtual void cls_editApptFaxNotification(
      CurrentDayTimerType dayTimerType, Id notificationNum, const std::string& ToStr = {},
      const std::string& FromStr = {}, const std::string& SenderFaxStr = {},
      const std::string& ReceiverFaxStr = {}, const std::string& PagesStr = {},
      const std::string& subjectStr = {}, const std::string& memoStr = {}) = 0;
  virtual Id cls_addNewApptLetterNotification(CurrentDayTimerType dayTimerType, Id itemNum,
                                              DateTime reminderDate, Id notificationNum = noId,
                                              Id companyNum = noId, Id contactNum = noId) = 0;
  virtual void cls_editApptLetterNotification(CurrentDayTimerType dayTimerType, Id notificationNum,
                                              const std::string& memoStr) = 0;
  virtual Id cls_addNewApptPhoneNotification(CurrentDayTimerType dayTimerType, Id itemNum,
                                             DateTime reminderDate, Id notificationNum = noId,
                                             Id companyNum = noId, Id contactNum = noId) = 0;
  virtual void cls_editApptPhoneNotification(CurrentDayTimerType dayTimerType, Id notificationNum,
                                             const std::string& ToStr = {},
                                             const std::string& PhoneNumberStr = {},
                                             const std::string& TimesStr = {},
                                             const std::string& memoStr = {}) = 0;

  // Dates and texts.

  /// Days of the kind of schedule entry: before the due date positive for display, negative for
  /// calculation.
  virtual std::int16_t cls_getNotificationPeriod(Id totalNum, Id ScheduleNum,
                                                 bool getValueForUserDisplay = false) = 0;
  /// Moves the notifications of an entry whose due date or kind has changed.
  virtual void cls_refreshNotificationDate(Id ScheduleIDNum) = 0;
  /// The merged text of the entry's template; RTF when the template is RTF.
  virtual std::string cls_generateClientAutoNotifyComment(Id scheduleID) = 0;

  // Windows. Each operation shows one through the host's FormHost, returns when the person is done,
  // and leaves the window's outcome in cancelFlag, unless it says otherwise.

  // The composers: what the notification is about, its row, and the schedule entry, -1 for none.
  // Without a row (an id below 1) the email, fax and letter composers add one of an email to the
  // entry; the email composer arms nothing new without an entry.
  /// Arms a new row for its date; a Cancel deletes the row.
  virtual void cls_openSendNotificationWizardEmailForm_InitializeNewAutoNotify(
      CurrentDayTimerType dayTimerType, notificationTypes currentNotificationType, Id NotifyID,
      Id scheduleID = noId) = 0;
  /// Sends the row at once; it is deleted when the window is done.
  virtual void cls_openSendNotificationWizardEmailForm_InitializeAutoNotifyNow(
      CurrentDayTimerType dayTimerType, notificationTypes currentNotificationType, Id NotifyID,
      Id scheduleID = noId) = 0;
  /// As that of the email.
  virtual void cls_openSendNotificationWizardFaxForm_InitializeNewAutoNotify(
      CurrentDayTimerType dayTimerType, notificationTypes currentNotificationType, Id NotifyID,
      Id scheduleID = noId) = 0;
  /// Shows the row's document, which is printed from there and filed; the row is deleted then.
  virtual void cls_openSendNotificationWizardFaxForm_InitializeAutoNotifyNow(
      CurrentDayTimerType dayTimerType, notificationTypes currentNotificationType, Id NotifyID,
      Id scheduleID = noId) = 0;
  /// The same for a fax that no item stands behind, to a company or else a contact, -1 for none.
  virtual void cls_openSendNotificationWizardFaxForm_InitializeBlankSend(
      notificationTypes currentNotificationType, Id companyID = noId, Id contactID = noId,
      CurrentDayTimerType dayTimerType = noDayTimerType) = 0;
  // The letter's are as those of the fax.
  virtual void cls_openSendNotificationWizardLetterForm_InitializeNewAutoNotify(
      CurrentDayTimerType dayTimerType, notificationTypes currentNotificationType, Id NotifyID,
      Id scheduleID = noId) = 0;
  virtual void cls_openSendNotificationWizardLetterForm_InitializeAutoNotifyNow(
      CurrentDayTimerType dayTimerType, notificationTypes currentNotificationType, Id NotifyID,
      Id scheduleID = noId) = 0;
  virtual void cls_openSendNotificationWizardLetterForm_InitializeBlankSend(
      notificationTypes currentNotificationType, Id companyID = noId, Id contactID = noId,
      CurrentDayTimerType dayTimerType = noDayTimerType) = 0;
  /// Reminds staff to call on its date; a Cancel deletes the row.
  virtual void cls_openSendNotificationWizardPhoneForm_InitializeNewAutoNotify(
      CurrentDayTimerType dayTimerType, notificationTypes currentNotificationType, Id NotifyID,
      Id scheduleID = noId) = 0;
  /// A call to make now; its row is deleted when the window is done.
  virtual void cls_openSendNotificationWizardPhoneForm_InitializeAutoNotifyNow(
      CurrentDayTimerType dayTimerType, notificationTypes currentNotificationType, Id NotifyID,
      Id scheduleID = noId) = 0;

  // The wizard: which client (enumAutoNotifyClientType) hears of which schedule entry. For an entry
  // that does not exist nothing is shown, and the pointer stays busy.
  /// Turns channels on and off for the notification date; each tick takes effect at once.
  virtual void cls_openSendNotificationWizardForm_InitializeAutoNotify(std::int16_t clientTypeVar,
                                                                       Id scheduleID) = 0;
  /// Leads to the composer of one channel, for a message at once.
  virtual void cls_openSendNotificationWizardForm_InitializeAutoNotifyNow(
      std::int16_t clientTypeVar, Id scheduleID) = 0;
  /// Leads to the composer of email, fax or letter, for a message at once about a diary item. The
  /// schedule id is not used. cancelFlag keeps its value.
  virtual void cls_openSendNotificationWizardApptNotifyNowForm(
      CurrentDayTimerType currentDayTimerTypeView, Id apptID,
      notifyType notificationType = nt_Email, Id scheduleID = noId) = 0;

  // The editor of templates. cancelFlag keeps its value.
  /// On the kind with this id; below 0, on the one that stands in for a kind that is none.
  virtual void cls_openTaskAutoNotificationForm(Id scheduleTypeID = noId) = 0;
  /// On the kind of a schedule entry.
  virtual void cls_openTaskAutoNotificationForm_WithTotalNumAndScheduleNum(
      Id totalNum = noId, Id ScheduleNum = noId) = 0;

  /// The list of notifications, which opens on what is due. The kind is not used. cancelFlag keeps
  /// its value.
  virtual void cls_openSendAutoNotifyListForm(Id scheduleTypeID = noId) = 0;
};

}  // namespace autonotify
