#include "host/desk/work/compose_email.h"

#include "host/desk/work/claiming.h"

namespace autonotify::host {
namespace {

/// The task's email that waits for its date; noId when none does. Throws UnreadableRow when that
/// cannot be told.
Id findWaitingEmail(Desk& desk, Id task) {
  Id found = noId;
  const ReadableRows<Notification> rows = readNotificationsOf(desk, task);
  if (!rows.unreadable.empty()) throw *rows.unreadable.begin();
  for (const Notification& row : rows.rows) {
    if (row.channel == nt_Email && stateOf(row) == NotificationState::pending) found = row.id;
  }
  return found;
}

using OpenComposer = void (clsAutoNotifyCtrl::*)(CurrentDayTimerType, notificationTypes, Id, Id);

Composed openComposer(Desk& desk, OpenComposer open, Id task) {
  return openWindow(desk, open, Tasks, remittanceNotification, noId, task);
}

}  // namespace

// The email is a row of the database while it is written: nobody else may send that.
Outcome<Composed> composeEmail(Desk& desk, Id task) {
  const auto claim = claimItem(desk, WorkItem::task, task);
  if (!claim) return claim.refused();
  return openComposer(
      desk, &clsAutoNotifyCtrl::cls_openSendNotificationWizardEmailForm_InitializeAutoNotifyNow,
      task);
}

Outcome<Composed> scheduleEmail(Desk& desk, Id task) {
  const auto claim = claimItem(desk, WorkItem::task, task);
  if (!claim) return claim.refused();
  if (findWaitingEmail(desk, task) != noId) return Composed::waitsAlready;
  const Composed composed = openComposer(
      desk, &clsAutoNotifyCtrl::cls_openSendNotificationWizardEmailForm_InitializeNewAutoNotify,
      task);
  const bool isLost = composed == Composed::done && findWaitingEmail(desk, task) == noId;
  return isLost ? Composed::lost : composed;
}

Outcome<Composed> editEmail(Desk& desk, Id task) {
  const Id email = findWaitingEmail(desk, task);
  if (email == noId) return Composed::noneWaits;
  const auto claimed = claimNotification(desk, email);
  if (!claimed) return claimed.refused();
  // Whoever had the claim before may have sent it.
  if (stateOf(claimed->row) != NotificationState::pending) return Composed::noneWaits;
  if (!desk.tools().editEmailNotification(email)) return Composed::cancelled;
  return findNotification(desk, email) ? Composed::done : Composed::lost;
}

}  // namespace autonotify::host
