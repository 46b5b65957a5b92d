#include "day/row_acts.h"

#include <QObject>
#include <array>

#include "host/desk/rows/channel_names.h"

namespace autonotify::desktop {
namespace {

struct ChannelAct {
  notifyType channel;
  RowAct act;
  const char* words;
};
constexpr ChannelAct channelActs[] = {
    {nt_Email, RowAct::send, QT_TRANSLATE_NOOP("QObject", "Email")},
    {nt_Fax, RowAct::sendFax, QT_TRANSLATE_NOOP("QObject", "Fax")},
    {nt_Letter, RowAct::print, QT_TRANSLATE_NOOP("QObject", "Letter")},
    {nt_Phone, RowAct::call, QT_TRANSLATE_NOOP("QObject", "Phone")},
};

/// In the order of RowAct.
constexpr std::array<const char*, 6> actTexts{
    QT_TRANSLATE_NOOP("QObject", "Send Now"), QT_TRANSLATE_NOOP("QObject", "Send Fax"),
    QT_TRANSLATE_NOOP("QObject", "Print"),    QT_TRANSLATE_NOOP("QObject", "Call"),
    QT_TRANSLATE_NOOP("QObject", "Fix..."),   QT_TRANSLATE_NOOP("QObject", "Cancel")};

/// In the order of DayState.
constexpr std::array<const char*, 5> stateTexts{
    QT_TRANSLATE_NOOP("QObject", "Ready"), QT_TRANSLATE_NOOP("QObject", "No address"),
    QT_TRANSLATE_NOOP("QObject", "Call again"), QT_TRANSLATE_NOOP("QObject", "Scheduled"),
    QT_TRANSLATE_NOOP("QObject", "Interrupted")};

struct StateWords {
  const char* name;
  const char* words;
};
/// In the order of NotificationState.
constexpr std::array<StateWords, 6> notificationStates{{
    {QT_TRANSLATE_NOOP("QObject", "pending"), QT_TRANSLATE_NOOP("QObject", "is pending")},
    {QT_TRANSLATE_NOOP("QObject", "sent"), QT_TRANSLATE_NOOP("QObject", "was sent")},
    {QT_TRANSLATE_NOOP("QObject", "cancelled"), QT_TRANSLATE_NOOP("QObject", "is cancelled")},
    {QT_TRANSLATE_NOOP("QObject", "interrupted while being sent"),
     QT_TRANSLATE_NOOP("QObject", "was interrupted while being sent")},
    {QT_TRANSLATE_NOOP("QObject", "interrupted while being cancelled"),
     QT_TRANSLATE_NOOP("QObject", "was interrupted while being cancelled")},
    {QT_TRANSLATE_NOOP("QObject", "being written"),
     QT_TRANSLATE_NOOP("QObject", "is still being written")},
}};

const StateWords& wordsOf(host::NotificationState state) {
  return notificationStates.at(static_cast<std::size_t>(state));
}

}  // namespace

RowAct actOf(const host::DayLine& line) {
  if (line.state == host::DayState::interrupted) return RowAct::finishCancel;
  if (line.state == host::DayState::noAddress) return RowAct::addAddress;
  const ChannelAct* row = host::findChannel(channelActs, line.row.channel);
  return row ? row->act : RowAct::addAddress;
}

QString textOf(RowAct act) {
  return QObject::tr(actTexts.at(static_cast<std::size_t>(act)));
}

QString channelText(int channel) {
  const ChannelAct* row = host::findChannel(channelActs, channel);
  return row ? QObject::tr(row->words) : QString();
}

QString stateText(host::DayState state) {
  return QObject::tr(stateTexts.at(static_cast<std::size_t>(state)));
}

QString textOfState(const host::Notification& row) {
  const host::NotificationState state = stateOf(row);
  const QString name = QObject::tr(wordsOf(state).name);
  if (host::stateText(row) == host::stateName(state)) return name;
  return QObject::tr("%1 (unknown status %2)").arg(name).arg(row.sentStatus);
}

QString wordsOfState(host::NotificationState state) {
  return QObject::tr(wordsOf(state).words);
}

}  // namespace autonotify::desktop
