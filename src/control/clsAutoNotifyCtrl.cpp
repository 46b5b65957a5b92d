#include "control/clsAutoNotifyCtrl.h"

#include "channels/modApptNotifications.h"
#include "channels/modChannelNotifications.h"
#include "contract/procedure.h"
#include "contract/references.h"
#include "contract/tags.h"
#include "control/component_objects.h"
#include "control/open_window.h"
#include "editor/frmTaskAutoNotification.h"
#include "list/frmAutoNotifyList.h"
#include "list/search_panel.h"
#include "scheduling/modNotificationComments.h"
#include "scheduling/modNotificationDates.h"
#include "store/modNotificationLinks.h"
#include "store/modNotifyClients.h"
#include "wizards/frmSendNotificationWizard.h"
#include "wizards/frmSendNotificationWizardApptNotifyNow.h"
#include "wizards/frmSendNotificationWizardEmail.h"
#include "wizards/frmSendNotificationWizardFax.h"
#include "wizards/frmSendNotificationWizardLetter.h"
#include "wizards/frmSendNotificationWizardPhone.h"

namespace autonotify {
namespace {

/// The procedure in a frame of the operation's own.
template <FixedText operation, class Result, class... Parameters, class... Arguments>
Result forward(Result (*target)(Parameters...), const Arguments&... arguments) {
  constexpr std::string_view tag = procedureTag<"clsAutoNotifyCtrl", operation>;
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
    quietly(giveBackSearchPanel);
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
    quietly(giveBackSearchPanel);
    references().clientDropDown = value;
  }
  void adviseEvents(clsAutoNotifyCtrlEvents* sink) override { events_ = sink; }

  // The operations that forward, named after their procedures with "cls_" in front:
  // FORWARD(result, procedure, (parameters), arguments).

#define FORWARD(Result, name, parameters, ...)                     \
  Result cls_##name parameters override {                          \
    return forward<"cls_" #name>(name __VA_OPT__(, ) __VA_ARGS__); \
  }
  using Text = const std::string&;
  using Kind = CurrentDayTimerType;

  // The state of a schedule entry's notifications.
  FORWARD(bool, doesClientHaveAssociatedUnsentNotifications, (Id client), client)
  FORWARD(void, cancelAllUnsentNotificationsForClientID, (Id client), client)
  FORWARD(Id, getNotificationID, (Id entry, notifyType channel), entry, channel)
  FORWARD(bool, getNotificationStatus, (Id entry, notifyType channel), entry, channel)
  FORWARD(bool, changeNotificationStatus, (notifyType channel, changeStatus change, Id entry),
          channel, change, entry)
  FORWARD(bool, needToSendAutoNotificationsToday, ())
  FORWARD(bool, IsEmailSelected, (std::uint8_t bits), bits)
  FORWARD(bool, IsFaxSelected, (std::uint8_t bits), bits)
  FORWARD(bool, IsLetterSelected, (std::uint8_t bits), bits)
  FORWARD(bool, IsPhoneSelected, (std::uint8_t bits), bits)
  void cls_ChangeNotificationNotifiedDate(Id row, DateTime date) override {
    forward<"cls_ChangeNotificationNotifiedDate">(changeNotificationNotifiedDate, row, date);
  }

  // Adding and editing, by channel.
  FORWARD(Id, addNewEmailNotificationFromScheduleIDNum, (Id entry), entry)
  FORWARD(Id, addNewEmailNotificationFromScheduleNameAndDueDate,
          (Id entry, Id, Id company, Id contact, Text name, DateTime due, Text comment),
          KnownEntry{entry, {company, contact}, name, due, comment})
  FORWARD(Id, addNewFaxNotificationFromScheduleIDNum, (Id entry), entry)
  FORWARD(Id, addNewFaxNotificationFromScheduleNameAndDueDate,
          (Id entry, Id, Id company, Id contact, Text name, DateTime due, Text comment),
          KnownEntry{entry, {company, contact}, name, due, comment})
  FORWARD(Id, addNewLetterNotificationFromScheduleIDNum, (Id entry), entry)
  FORWARD(Id, addNewLetterNotificationFromScheduleNameAndDueDate,
          (Id entry, Id, Id company, Id contact, Text name, DateTime due, Text comment),
          KnownEntry{entry, {company, contact}, name, due, comment})
  FORWARD(Id, addNewPhoneNotificationFromScheduleIDNum, (Id entry), entry)
  FORWARD(Id, addNewPhoneNotificationFromScheduleNameAndDueDate,
          (Id entry, Id, Id company, Id contact, Text name, DateTime due, Text comment),
          KnownEntry{entry, {company, contact}, name, due, comment})
  FORWARD(void, editEmailNotification,
          (Id row, Text to, Text cc, Text bcc, Text subject, Text memo), row,
          EmailTexts{to, cc, bcc, subject, memo})
  FORWARD(void, editFaxNotification,
          (Id row, Text to, Text from, Text sender, Text receiver, Text pages, Text subject,
           Text memo),
          row, FaxTexts{to, from, sender, receiver, pages, subject, memo})
  FORWARD(void, editLetterNotification, (Id row, Text memo), row, memo)
  FORWARD(void, editPhoneNotification, (Id row, Text to, Text number, Text times, Text memo), row,
          PhoneTexts{to, number, times, memo})

  // Copying and deleting.
  FORWARD(void, copyOldNotificationInfoToNewNotification, (Id newRow, Id oldRow), newRow, oldRow)
  FORWARD(void, copyOldNotificationInfoToNewNotificationByScheduleIDNum, (Id newRow, Id oldEntry),
          newRow, oldEntry)
  void cls_deleteNotification(Id row) override {
    forward<"cls_deleteNotification">(deleteNotification, row);
  }

  // Diary items.
  FORWARD(void, deleteApptNotification, (Kind kind, notifyType channel, Id item), kind, channel,
          item)
  FORWARD(bool, getApptNotificationStatus, (Kind kind, Id item, notifyType channel), kind, item,
          channel)
  FORWARD(Id, getApptNotificationID, (Kind kind, Id item, notifyType channel), kind, item, channel)
  FORWARD(DateTime, getApptNotificationDate, (Id row), row)
  FORWARD(void, resetApptNotificationBody, (std::int32_t kind, Id row, Id item), kind, row, item)
  FORWARD(bool, changeApptNotificationStatus,
          (Kind kind, notifyType channel, changeStatus change, Id item), kind, channel, change,
          item)
  FORWARD(void, copyOldApptNotificationInfoToNewApptNotificationByTaskIDNum,
          (Kind kind, Id newRow, Id oldItem), kind, newRow, oldItem)
  FORWARD(Id, addNewApptEmailNotification,
          (Kind kind, Id item, DateTime date, Id row, Id company, Id contact),
          ItemReminder{kind, item, date, row, {company, contact}})
  FORWARD(Id, addNewApptFaxNotification,
          (Kind kind, Id item, DateTime date, Id row, Id company, Id contact),
          ItemReminder{kind, item, date, row, {company, contact}})
  FORWARD(Id, addNewApptLetterNotification,
          (Kind kind, Id item, DateTime date, Id row, Id company, Id contact),
          ItemReminder{kind, item, date, row, {company, contact}})
  FORWARD(Id, addNewApptPhoneNotification,
          (Kind kind, Id item, DateTime date, Id row, Id company, Id contact),
          ItemReminder{kind, item, date, row, {company, contact}})
  FORWARD(void, editApptEmailNotification,
          (Kind kind, Id row, Text to, Text cc, Text bcc, Text subject, Text memo), kind, row,
          EmailTexts{to, cc, bcc, subject, memo})
  FORWARD(void, editApptFaxNotification,
          (Kind kind, Id row, Text to, Text from, Text sender, Text receiver, Text pages,
           Text subject, Text memo),
          kind, row, FaxTexts{to, from, sender, receiver, pages, subject, memo})
  FORWARD(void, editApptLetterNotification, (Kind kind, Id row, Text memo), kind, row, memo)
  FORWARD(void, editApptPhoneNotification,
          (Kind kind, Id row, Text to, Text number, Text times, Text memo), kind, row,
          PhoneTexts{to, number, times, memo})

  // Dates and texts.
  FORWARD(std::int16_t, getNotificationPeriod, (Id total, Id schedule, bool forDisplay), total,
          schedule, forDisplay)
  FORWARD(void, refreshNotificationDate, (Id entry), entry)
  FORWARD(std::string, generateClientAutoNotifyComment, (Id entry), entry)
#undef FORWARD

  // The operations that open a window, named after it and its initializer:
  // OPENS(window, operation, (parameters), initializer, arguments). They take over its cancelFlag.

#define OPENS(Window, operation, parameters, initialize, ...)    \
  void cls_open##operation parameters override {                 \
    openWindow<Window, "cls_open" #operation>([&](auto& panel) { \
      panel.initialize(__VA_ARGS__);                             \
      cancelFlag_ = panel.cancelFlag();                          \
    });                                                          \
  }
#define COMPOSES(channel)                                                                          \
  OPENS(frmSendNotificationWizard##channel,                                                        \
        SendNotificationWizard##channel##Form_InitializeNewAutoNotify,                             \
        (Kind kind, notificationTypes type, Id row, Id entry), InitializeNewAutoNotify, type, row, \
        kind, entry)                                                                               \
  OPENS(frmSendNotificationWizard##channel,                                                        \
        SendNotificationWizard##channel##Form_InitializeAutoNotifyNow,                             \
        (Kind kind, notificationTypes type, Id row, Id entry), InitializeNotifyNow, type, row,     \
        kind, entry)
#define COMPOSES_BLANK(channel)                                                                 \
  OPENS(frmSendNotificationWizard##channel,                                                     \
        SendNotificationWizard##channel##Form_InitializeBlankSend,                              \
        (notificationTypes type, Id company, Id contact, Kind kind), InitializeBlankSend, type, \
        company, contact, kind)
  COMPOSES(Email)
  COMPOSES(Fax)
  COMPOSES(Letter)
  COMPOSES(Phone)
  COMPOSES_BLANK(Fax)
  COMPOSES_BLANK(Letter)
#undef COMPOSES_BLANK
#undef COMPOSES
  OPENS(frmSendNotificationWizard, SendNotificationWizardForm_InitializeAutoNotify,
        (std::int16_t client, Id entry), InitializeAutoNotify,
        static_cast<enumAutoNotifyClientType>(client), entry)
  OPENS(frmSendNotificationWizard, SendNotificationWizardForm_InitializeAutoNotifyNow,
        (std::int16_t client, Id entry), InitializeNotifyNow,
        static_cast<enumAutoNotifyClientType>(client), entry)
#undef OPENS

  // The operations that leave cancelFlag alone.
  void cls_openSendNotificationWizardApptNotifyNowForm(Kind kind, Id item, notifyType channel,
                                                       Id) override {
    openWindow<frmSendNotificationWizardApptNotifyNow,
               "cls_openSendNotificationWizardApptNotifyNowForm">(
        [&](auto& panel) { panel.InitializeNotifyNow(kind, item, channel); });
  }
  void cls_openTaskAutoNotificationForm(Id kind) override {
    openWindow<frmTaskAutoNotification, "cls_openTaskAutoNotificationForm">(
        [&](auto& panel) { panel.Initialize(kind); });
  }
  void cls_openTaskAutoNotificationForm_WithTotalNumAndScheduleNum(Id total, Id schedule) override {
    openWindow<frmTaskAutoNotification,
               "cls_openTaskAutoNotificationForm_WithTotalNumAndScheduleNum">(
        [&](auto& panel) { panel.InitializeWithTotalNumAndScheduleNum(total, schedule); });
  }
  void cls_openSendAutoNotifyListForm(Id) override {
    openWindow<frmAutoNotifyList, "cls_openSendAutoNotifyListForm">(
        [](auto& panel) { panel.Initialize(); });
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
