#include "host/desk/work/notify_client.h"

#include "host/desk/work/claiming.h"
#include "platform/PlatformError.h"

namespace autonotify::host {
namespace {

using OpenWizard = void (clsAutoNotifyCtrl::*)(std::int16_t, Id);

Outcome<Composed> openWizard(Desk& desk, OpenWizard open, Id task) {
  const auto claimed = claimTask(desk, task);
  if (!claimed) return claimed.refused();
  const auto type = claimed->row.clientNum >= 0 ? enumAutoNotifyCompany : enumAutoNotifyContact;
  (desk.control().*open)(static_cast<std::int16_t>(type), task);
  return composedBy(desk.control());
}

using OpenBlank = void (clsAutoNotifyCtrl::*)(notificationTypes, Id, Id, CurrentDayTimerType);

Outcome<Composed> openBlank(Desk& desk, OpenBlank open, Id id) {
  const auto task = requireTask(desk, id);
  if (!task) return task.refused();
  try {
    desk.requireDocuments();
  } catch (const PlatformError& error) {
    return Refused{Refused::Why::failed, {}, error.description()};
  }
  const bool isCompany = task->clientNum >= 0;
  const Id company = isCompany ? desk.clients().getCompanyIDFromClientID(task->clientNum) : noId;
  const Id contact = isCompany ? noId : task->contactId;
  (desk.control().*open)(remittanceNotification, company, contact, noDayTimerType);
  return composedBy(desk.control());
}

}  // namespace

Outcome<Composed> notifyNow(Desk& desk, Id task) {
  return openWizard(
      desk, &clsAutoNotifyCtrl::cls_openSendNotificationWizardForm_InitializeAutoNotifyNow, task);
}

Outcome<Composed> notifyAutomatically(Desk& desk, Id task) {
  return openWizard(
      desk, &clsAutoNotifyCtrl::cls_openSendNotificationWizardForm_InitializeAutoNotify, task);
}

Outcome<Composed> writeBlankFax(Desk& desk, Id task) {
  return openBlank(
      desk, &clsAutoNotifyCtrl::cls_openSendNotificationWizardFaxForm_InitializeBlankSend, task);
}

Outcome<Composed> writeBlankLetter(Desk& desk, Id task) {
  return openBlank(
      desk, &clsAutoNotifyCtrl::cls_openSendNotificationWizardLetterForm_InitializeBlankSend, task);
}

}  // namespace autonotify::host
