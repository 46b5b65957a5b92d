#include "host/desk/work/notify_client.h"

#include "host/desk/unfinished_rows.h"
#include "host/desk/work/claiming.h"
#include "platform/PlatformError.h"

namespace autonotify::host {
namespace {

using Control = clsAutoNotifyCtrl;

template <auto open>
Outcome<Composed> inWizard(Desk& desk, Id id) {
  const auto task = claimTask(desk, id);
  if (!task) return task.refused();
  const auto type = task->row.clientNum >= 0 ? enumAutoNotifyCompany : enumAutoNotifyContact;
  const UnfinishedRows rows(desk);
  return openWindow(desk, open, static_cast<std::int16_t>(type), id);
}

template <auto open>
Outcome<Composed> blank(Desk& desk, const Client& client) {
  if (const auto known = requireClient(desk, client); !known) return known.refused();
  try {
    desk.requireDocuments();
  } catch (const PlatformError& error) {
    return Refused{Refused::Why::failed, {}, error.description()};
  }
  const bool isCompany = client.type == enumAutoNotifyCompany;
  const std::size_t filed = desk.filedCount();
  UnfinishedRows rows(desk);
  const Composed composed =
      openWindow(desk, open, remittanceNotification, isCompany ? client.id : noId,
                 isCompany ? noId : client.id, noDayTimerType);
  if (desk.filedCount() > filed) rows.markSent();
  return composed;
}

}  // namespace

const NotifyClient notifyNow =
    inWizard<&Control::cls_openSendNotificationWizardForm_InitializeAutoNotifyNow>;
const NotifyClient notifyAutomatically =
    inWizard<&Control::cls_openSendNotificationWizardForm_InitializeAutoNotify>;
const WriteToClient writeBlankFax =
    blank<&Control::cls_openSendNotificationWizardFaxForm_InitializeBlankSend>;
const WriteToClient writeBlankLetter =
    blank<&Control::cls_openSendNotificationWizardLetterForm_InitializeBlankSend>;

}  // namespace autonotify::host
