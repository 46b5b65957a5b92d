#pragma once

#include <QString>

#include "host/desk/rows/Notification.h"
#include "host/desk/work/working_day.h"

namespace autonotify::desktop {

/// What there is to be done about a notification that waits.
enum class RowAct { send, sendFax, print, call, addAddress, finishCancel };

RowAct actOf(const host::DayLine& line);
/// As its button says.
QString textOf(RowAct act);

QString channelText(int channel);
QString stateText(host::DayState state);
/// "pending", "sent", and the number of a status that nobody knows.
QString textOfState(const host::Notification& row);
/// "is pending", "was sent": for sentences about it.
QString wordsOfState(host::NotificationState state);

}  // namespace autonotify::desktop
