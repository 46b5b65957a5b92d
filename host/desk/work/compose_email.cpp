#include "host/desk/work/compose_email.h"

#include "host/desk/unfinished_rows.h"
#include "host/desk/work/claiming.h"

namespace autonotify::host {
namespace {

using OpenComposer = void (clsAutoNotifyCtrl::*)(CurrentDayTimerType, notificationTypes, Id, Id);

Composed openComposer(Desk& desk, OpenComposer open, Id task) {
  return openWindow(desk, open, Tasks, remittanceNotification, noId, task);
}

}  // namespace

std::optional<Notification> findWaitingEmail(Desk& desk, Id task) {
  std::optional<Notification> found;
  const ReadableRows<Notification> rows = readNotificationsOf(desk, task);
  if (!rows.unreadable.empty()) throw *rows.unreadable.begin();
  for (const Notification& row : rows.rows) {
    if (row.channel == nt_Email && stateOf(row) == NotificationState::pending) found = row;
  }
  return found;
}

Outcome<Composed> composeEmail(Desk& desk, Id task) {
  const auto claim = claimItem(desk, WorkItem::task, task);
  if (!claim) return claim.refused();
  const UnfinishedRows rows(desk);
  return openComposer(
      desk, &clsAutoNotifyCtrl::cls_openSendNotificationWizardEmailForm_InitializeAutoNotifyNow,
      task);
}

Outcome<Composed> scheduleEmail(Desk& desk, Id task) {
  const auto claim = claimItem(desk, WorkItem::task, task);
  if (!claim) return claim.refused();
  const UnfinishedRows rows(desk);
  if (findWaitingEmail(desk, task)) return Composed::waitsAlready;
  const Composed composed = openComposer(
      desk, &clsAutoNotifyCtrl::cls_openSendNotificationWizardEmailForm_InitializeNewAutoNotify,
      task);
  if (composed != Composed::done || findWaitingEmail(desk, task)) return composed;
  return rows.areLeft() ? Composed::cancelled : Composed::lost;
}

Outcome<Composed> editEmail(Desk& desk, Id task) {
  const auto waiting = findWaitingEmail(desk, task);
  if (!waiting) return Composed::noneWaits;
  const Id email = waiting->id;
  const auto claimed = claimNotification(desk, email);
  if (!claimed) return claimed.refused();
  // Whoever had the claim before may have sent it.
  if (stateOf(claimed->row) != NotificationState::pending) return Composed::noneWaits;
  if (!desk.tools().editEmailNotification(email)) return Composed::cancelled;
  return findNotification(desk, email) ? Composed::done : Composed::lost;
}

}  // namespace autonotify::host
