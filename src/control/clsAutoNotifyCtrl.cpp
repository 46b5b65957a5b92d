#include "control/clsAutoNotifyCtrl.h"

#include "channels/modApptNotifications.h"
#include "channels/modChannelNotifications.h"
#include "contract/procedure.h"
#include "contract/references.h"
#include "control/component_objects.h"
#include "control/open_window.h"
#include "scheduling/modNotificationComments.h"
#include "scheduling/modNotificationDates.h"
#include "store/modNotificationLinks.h"
#include "store/modNotifyClients.h"
#include "wizards/frmSendNotificationWizardEmail.h"

namespace autonotify {
namespace {

/// An operation of the control: the procedure in a frame of the operation's own.
template <class Result, class... Parameters, class... Arguments>
Result forward(const char* operation, Result (*target)(Parameters...),
               const Arguments&... arguments) {
  const std::string tag = std::string("Morvane.exe-clsAutoNotifyCtrl-") + operation;
  if constexpr (std::is_void_v<Result>) {
    procedure(tag, [&](Step&) { target(arguments...); });
  } else {
    return procedure(tag, Result{}, [&](Step&, Result& result) { result = target(arguments...); });
  }
}

/// Properties have no error protocol: a failure in one cannot be reported.
template <class Statement>
void quietly(Statement&& statement) {
  try {
    statement();
  } catch (const PlatformError&) {
  }
}

template <class Reference>
void assignOnce(Reference*& held, Reference* value) {
  if (!held) held = value;
}

class AutoNotifyCtrl final : public clsAutoNotifyCtrl {
 public:
  AutoNotifyCtrl() {
    auto newFileUtility = createHostObject<FileUtility>();
    auto newGeneralUtilities = createHostObject<GeneralUtilities>();
    auto newValidationUtilities = createHostObject<ValidationUtilities>();
    references().fileUtility = std::move(newFileUtility);
    references().generalUtilities = std::move(newGeneralUtilities);
    references().validationUtilities = std::move(newValidationUtilities);
  }

  ~AutoNotifyCtrl() override {
    references().fileUtility.reset();
    references().generalUtilities.reset();
    references().validationUtilities.reset();
  }

  // Properties.

  bool get_cancelFlag() const override { return cancelFlag_; }
  void put_cancelFlag(bool value) override { cancelFlag_ = value; }

  void put_errorClass(errorClass* value) override {
    References& held = references();
    if (held.errors) return;
    held.errors = value;
    quietly([&] { generalUtilities().put_errorClass(value); });
    quietly([&] { validation().put_errorClass(value); });
  }
  void put_MsgboxClass(MsgboxClass* value) override { assignOnce(references().msgboxClass, value); }
  void put_DatabaseReference(DatabaseReference* value) override {
    assignOnce(references().databaseReference, value);
  }
  DatabaseReference* get_DatabaseReference() const override {
    return references().databaseReference;
  }
  void put_WorkingFolderReference(WorkingFolderReference* value) override {
    assignOnce(references().workingFolderReference, value);
  }
  void put_LocaleReference(LocaleReference* value) override {
    assignOnce(references().localeReference, value);
  }
  void put_clientDropDownCtrlReference(clientDropDownCtrlReference* value) override {
    references().clientDropDown = value;
  }
  void adviseEvents(clsAutoNotifyCtrlEvents* sink) override { events_ = sink; }

  // The state of a schedule entry's notifications.

  bool cls_doesClientHaveAssociatedUnsentNotifications(Id clientID) override {
    return forward("cls_doesClientHaveAssociatedUnsentNotifications",
                   doesClientHaveAssociatedUnsentNotifications, clientID);
  }
  void cls_cancelAllUnsentNotificationsForClientID(Id clientID) override {
    forward("cls_cancelAllUnsentNotificationsForClientID", cancelAllUnsentNotificationsForClientID,
            clientID);
  }
  Id cls_getNotificationID(Id itemNum, notifyType remittType) override {
    return forward("cls_getNotificationID", getNotificationID, itemNum, remittType);
  }
  bool cls_getNotificationStatus(Id ScheduleIDNum, notifyType remittType) override {
    return forward("cls_getNotificationStatus", getNotificationStatus, ScheduleIDNum, remittType);
  }
  void cls_ChangeNotificationNotifiedDate(Id notifyNum, DateTime newDate) override {
    forward("cls_ChangeNotificationNotifiedDate", changeNotificationNotifiedDate, notifyNum,
            newDate);
  }
  bool cls_changeNotificationStatus(notifyType remittType, changeStatus statusChange,
                                    Id ScheduleIDNum) override {
    return forward("cls_changeNotificationStatus", changeNotificationStatus, remittType,
                   statusChange, ScheduleIDNum);
  }
  bool cls_needToSendAutoNotificationsToday() override {
    return forward("cls_needToSendAutoNotificationsToday", needToSendAutoNotificationsToday);
  }
  bool cls_IsEmailSelected(std::uint8_t notification) override {
    return forward("cls_IsEmailSelected", IsEmailSelected, notification);
  }
  bool cls_IsFaxSelected(std::uint8_t notification) override {
    return forward("cls_IsFaxSelected", IsFaxSelected, notification);
  }
  bool cls_IsLetterSelected(std::uint8_t notification) override {
    return forward("cls_IsLetterSelected", IsLetterSelected, notification);
  }
  bool cls_IsPhoneSelected(std::uint8_t notification) override {
    return forward("cls_IsPhoneSelected", IsPhoneSelected, notification);
  }

  // Adding and editing, by channel.

  Id cls_addNewEmailNotificationFromScheduleIDNum(Id ScheduleIDNum) override {
    return forward("cls_addNewEmailNotificationFromScheduleIDNum",
                   addNewEmailNotificationFromScheduleIDNum, ScheduleIDNum);
  }
  Id cls_addNewEmailNotificationFromScheduleNameAndDueDate(
      Id scheduleID, Id taskID, Id CompanyIDNum, Id ContactIDNum, const std::string& scheduleName,
      DateTime dueDate, const std::string& templateComment) override {
    return forward("cls_addNewEmailNotificationFromScheduleNameAndDueDate",
                   addNewEmailNotificationFromScheduleNameAndDueDate, scheduleID, taskID,
                   CompanyIDNum, ContactIDNum, scheduleName, dueDate, templateComment);
  }
  void cls_editEmailNotification(Id notificationNum, const std::string& ToStr,
                                 const std::string& CcStr, const std::string& BccStr,
                                 const std::string& subjectStr,
                                 const std::string& memoStr) override {
    forward("cls_editEmailNotification", editEmailNotification, notificationNum, ToStr, CcStr,
            BccStr, subjectStr, memoStr);
  }
  Id cls_addNewFaxNotificationFromScheduleIDNum(Id ScheduleIDNum) override {
    return forward("cls_addNewFaxNotificationFromScheduleIDNum",
                   addNewFaxNotificationFromScheduleIDNum, ScheduleIDNum);
  }
  Id cls_addNewFaxNotificationFromScheduleNameAndDueDate(
      Id scheduleID, Id taskID, Id CompanyIDNum, Id ContactIDNum, const std::string& scheduleName,
      DateTime dueDate, const std::string& templateComment) override {
    return forward("cls_addNewFaxNotificationFromScheduleNameAndDueDate",
                   addNewFaxNotificationFromScheduleNameAndDueDate, scheduleID, taskID,
                   CompanyIDNum, ContactIDNum, scheduleName, dueDate, templateComment);
  }
  void cls_editFaxNotification(Id notificationNum, const std::string& ToStr,
                               const std::string& FromStr, const std::string& SenderFaxStr,
                               const std::string& ReceiverFaxStr, const std::string& PagesStr,
                               const std::string& subjectStr, const std::string& memoStr) override {
    forward("cls_editFaxNotification", editFaxNotification, notificationNum, ToStr, FromStr,
            SenderFaxStr, ReceiverFaxStr, PagesStr, subjectStr, memoStr);
  }
  Id cls_addNewLetterNotificationFromScheduleIDNum(Id ScheduleIDNum) override {
    return forward("cls_addNewLetterNotificationFromScheduleIDNum",
                   addNewLetterNotificationFromScheduleIDNum, ScheduleIDNum);
  }
  Id cls_addNewLetterNotificationFromScheduleNameAndDueDate(
      Id scheduleID, Id taskID, Id CompanyIDNum, Id ContactIDNum, const std::string& scheduleName,
      DateTime dueDate, const std::string& templateComment) override {
    return forward("cls_addNewLetterNotificationFromScheduleNameAndDueDate",
                   addNewLetterNotificationFromScheduleNameAndDueDate, scheduleID, taskID,
                   CompanyIDNum, ContactIDNum, scheduleName, dueDate, templateComment);
  }
  void cls_editLetterNotification(Id notificationNum, const std::string& memoStr) override {
    forward("cls_editLetterNotification", editLetterNotification, notificationNum, memoStr);
  }
  Id cls_addNewPhoneNotificationFromScheduleNameAndDueDate(
      Id scheduleID, Id taskID, Id CompanyIDNum, Id ContactIDNum, const std::string& scheduleName,
      DateTime dueDate, const std::string& templateComment) override {
    return forward("cls_addNewPhoneNotificationFromScheduleNameAndDueDate",
                   addNewPhoneNotificationFromScheduleNameAndDueDate, scheduleID, taskID,
                   CompanyIDNum, ContactIDNum, scheduleName, dueDate, templateComment);
  }
  Id cls_addNewPhoneNotificationFromScheduleIDNum(Id ScheduleIDNum) override {
    return forward("cls_addNewPhoneNotificationFromScheduleIDNum",
                   addNewPhoneNotificationFromScheduleIDNum, ScheduleIDNum);
  }
  void cls_editPhoneNotification(Id notificationNum, const std::string& ToStr,
                                 const std::string& PhoneNumberStr, const std::string& TimesStr,
                                 const std::string& memoStr) override {
    forward("cls_editPhoneNotification", editPhoneNotification, notificationNum, ToStr,
            PhoneNumberStr, TimesStr, memoStr);
  }

  // Copying and deleting.

  void cls_copyOldNotificationInfoToNewNotification(Id newNotificationNum,
                                                    Id oldNotificationNum) override {
    forward("cls_copyOldNotificationInfoToNewNotification",
            copyOldNotificationInfoToNewNotification, newNotificationNum, oldNotificationNum);
  }
  void cls_copyOldNotificationInfoToNewNotificationByScheduleIDNum(Id newNotificationNum,
                                                                   Id oldScheduleIDNum) override {
    forward("cls_copyOldNotificationInfoToNewNotificationByScheduleIDNum",
            copyOldNotificationInfoToNewNotificationByScheduleIDNum, newNotificationNum,
            oldScheduleIDNum);
  }
  void cls_deleteNotification(Id NotifyID) override {
    forward("cls_deleteNotification", deleteNotification, NotifyID);
  }

  // Diary items.

  void cls_deleteApptNotification(CurrentDayTimerType dayTimerType, notifyType remittType,
                                  Id itemNum) override {
    forward("cls_deleteApptNotification", deleteApptNotification, dayTimerType, remittType,
            itemNum);
  }
  bool cls_getApptNotificationStatus(CurrentDayTimerType dayTimerType, Id itemNum,
                                     notifyType remittType) override {
    return forward("cls_getApptNotificationStatus", getApptNotificationStatus, dayTimerType,
                   itemNum, remittType);
  }
  Id cls_getApptNotificationID(CurrentDayTimerType dayTimerType, Id itemNum,
                               notifyType remittType) override {
    return forward("cls_getApptNotificationID", getApptNotificationID, dayTimerType, itemNum,
                   remittType);
  }
  DateTime cls_getApptNotificationDate(Id notificationNum) override {
    return forward("cls_getApptNotificationDate", getApptNotificationDate, notificationNum);
  }
  void cls_resetApptNotificationBody(std::int32_t dayTimerType, Id notificationNum,
                                     Id itemNum) override {
    forward("cls_resetApptNotificationBody", resetApptNotificationBody, dayTimerType,
            notificationNum, itemNum);
  }
  bool cls_changeApptNotificationStatus(CurrentDayTimerType dayTimerType, notifyType remittType,
                                        changeStatus statusChange, Id itemNum) override {
    return forward("cls_changeApptNotificationStatus", changeApptNotificationStatus, dayTimerType,
                   remittType, statusChange, itemNum);
  }
  void cls_copyOldApptNotificationInfoToNewApptNotificationByTaskIDNum(
      CurrentDayTimerType dayTimerType, Id newNotificationNum, Id oldTaskIDNum) override {
    forward("cls_copyOldApptNotificationInfoToNewApptNotificationByTaskIDNum",
            copyOldApptNotificationInfoToNewApptNotificationByTaskIDNum, dayTimerType,
            newNotificationNum, oldTaskIDNum);
  }
  Id cls_addNewApptEmailNotification(CurrentDayTimerType dayTimerType, Id itemNum,
                                     DateTime reminderDate, Id notificationNum, Id companyNum,
                                     Id contactNum) override {
    return forward("cls_addNewApptEmailNotification", addNewApptEmailNotification, dayTimerType,
                   itemNum, reminderDate, notificationNum, companyNum, contactNum);
  }
  void cls_editApptEmailNotification(CurrentDayTimerType dayTimerType, Id notificationNum,
                                     const std::string& ToStr, const std::string& CcStr,
                                     const std::string& BccStr, const std::string& subjectStr,
                                     const std::string& memoStr) override {
    forward("cls_editApptEmailNotification", editApptEmailNotification, dayTimerType,
            notificationNum, ToStr, CcStr, BccStr, subjectStr, memoStr);
  }
  Id cls_addNewApptFaxNotification(CurrentDayTimerType dayTimerType, Id itemNum,
                                   DateTime reminderDate, Id notificationNum, Id companyNum,
                                   Id contactNum) override {
    return forward("cls_addNewApptFaxNotification", addNewApptFaxNotification, dayTimerType,
                   itemNum, reminderDate, notificationNum, companyNum, contactNum);
  }
  void cls_editApptFaxNotification(CurrentDayTimerType dayTimerType, Id notificationNum,
                                   const std::string& ToStr, const std::string& FromStr,
                                   const std::string& SenderFaxStr,
                                   const std::string& ReceiverFaxStr, const std::string& PagesStr,
                                   const std::string& subjectStr,
                                   const std::string& memoStr) override {
    forward("cls_editApptFaxNotification", editApptFaxNotification, dayTimerType, notificationNum,
            ToStr, FromStr, SenderFaxStr, ReceiverFaxStr, PagesStr, subjectStr, memoStr);
  }
  Id cls_addNewApptLetterNotification(CurrentDayTimerType dayTimerType, Id itemNum,
                                      DateTime reminderDate, Id notificationNum, Id companyNum,
                                      Id contactNum) override {
    return forward("cls_addNewApptLetterNotification", addNewApptLetterNotification, dayTimerType,
                   itemNum, reminderDate, notificationNum, companyNum, contactNum);
  }
  void cls_editApptLetterNotification(CurrentDayTimerType dayTimerType, Id notificationNum,
                                      const std::string& memoStr) override {
    forward("cls_editApptLetterNotification", editApptLetterNotification, dayTimerType,
            notificationNum, memoStr);
  }
  Id cls_addNewApptPhoneNotification(CurrentDayTimerType dayTimerType, Id itemNum,
                                     DateTime reminderDate, Id notificationNum, Id companyNum,
                                     Id contactNum) override {
    return forward("cls_addNewApptPhoneNotification", addNewApptPhoneNotification, dayTimerType,
                   itemNum, reminderDate, notificationNum, companyNum, contactNum);
  }
  void cls_editApptPhoneNotification(CurrentDayTimerType dayTimerType, Id notificationNum,
                                     const std::string& ToStr, const std::string& PhoneNumberStr,
                                     const std::string& TimesStr,
                                     const std::string& memoStr) override {
    forward("cls_editApptPhoneNotification", editApptPhoneNotification, dayTimerType,
            notificationNum, ToStr, PhoneNumberStr, TimesStr, memoStr);
  }

  // Dates and texts.

  std::int16_t cls_getNotificationPeriod(Id totalNum, Id ScheduleNum,
                                         bool getValueForUserDisplay) override {
    return forward("cls_getNotificationPeriod", getNotificationPeriod, totalNum, ScheduleNum,
                   getValueForUserDisplay);
  }
  void cls_refreshNotificationDate(Id ScheduleIDNum) override {
    forward("cls_refreshNotificationDate", refreshNotificationDate, ScheduleIDNum);
  }
  std::string cls_generateClientAutoNotifyComment(Id scheduleID) override {
    return forward("cls_generateClientAutoNotifyComment", generateClientAutoNotifyComment,
                   scheduleID);
  }

  // Windows.

  void cls_openSendNotificationWizardEmailForm_InitializeNewAutoNotify(
      CurrentDayTimerType dayTimerType, notificationTypes currentNotificationType, Id NotifyID,
      Id scheduleID) override {
    openWindow<frmSendNotificationWizardEmail>(
        "cls_openSendNotificationWizardEmailForm_InitializeNewAutoNotify", cancelFlag_,
        [&](auto& window) {
          window.InitializeNewAutoNotify(currentNotificationType, NotifyID, dayTimerType,
                                         scheduleID);
        });
  }
  void cls_openSendNotificationWizardEmailForm_InitializeAutoNotifyNow(
      CurrentDayTimerType dayTimerType, notificationTypes currentNotificationType, Id NotifyID,
      Id scheduleID) override {
    openWindow<frmSendNotificationWizardEmail>(
        "cls_openSendNotificationWizardEmailForm_InitializeAutoNotifyNow", cancelFlag_,
        [&](auto& window) {
          window.InitializeNotifyNow(currentNotificationType, NotifyID, dayTimerType, scheduleID);
        });
  }

 private:
  LibraryUse use_;
  bool cancelFlag_ = false;
  clsAutoNotifyCtrlEvents* events_ = nullptr;
};

}  // namespace

std::unique_ptr<ComponentObject> makeAutoNotifyCtrl() {
  return std::make_unique<AutoNotifyCtrl>();
}

}  // namespace autonotify
