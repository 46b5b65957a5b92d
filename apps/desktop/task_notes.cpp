#include "task_notes.h"

#include <QObject>
#include <QStringList>

#include "binding/DateBinding.h"
#include "day/day_formats.h"
#include "host/desk/rows/channel_names.h"
#include "host/desk/rows/item_names.h"
#include "host/desk/work/channel_outlook.h"
#include "host/desk/work/client_card.h"
#include "qt_text.h"

namespace autonotify::desktop {
namespace {

struct ChannelWords {
  notifyType channel;
  const char* waits;
  const char* lacksAddress;
};
constexpr ChannelWords channelWords[] = {
    {nt_Email, QT_TRANSLATE_NOOP("QObject", "Goes out on %1"),
     QT_TRANSLATE_NOOP("QObject", "No email address on file")},
    {nt_Fax, QT_TRANSLATE_NOOP("QObject", "Goes out on %1"),
     QT_TRANSLATE_NOOP("QObject", "No fax number on file")},
    {nt_Letter, QT_TRANSLATE_NOOP("QObject", "Goes out on %1"),
     QT_TRANSLATE_NOOP("QObject", "No address on file")},
    {nt_Phone, QT_TRANSLATE_NOOP("QObject", "Call due on %1"),
     QT_TRANSLATE_NOOP("QObject", "No telephone number on file")},
};

QString textOf(const std::optional<host::Notification>& row, const ChannelWords& words) {
  if (!row) return QObject::tr("No notification waits");
  switch (stateOf(*row)) {
    case host::NotificationState::pending:
      return QObject::tr(words.waits).arg(longDate(qtDate(row->date)));
    case host::NotificationState::sent:
      return QObject::tr("Sent");
    case host::NotificationState::cancelled:
      return QObject::tr("Cancelled");
    default:
      return QObject::tr("Interrupted on the way");
  }
}

WindowNote noteOf(const host::ChannelOutlook& outlook) {
  const ChannelWords& words = *host::findChannel(channelWords, outlook.channel);
  return {outlook.hasAddress ? QObject::tr("Not set up") : QObject::tr(words.lacksAddress),
          !outlook.hasAddress, textOf(outlook.row, words)};
}

WindowNotes notesAbout(const QString& subject) {
  return {{"staticNoteClient", {subject}},
          {"staticNoteFiled",
           {QObject::tr("A copy is filed with the client's documents when this window closes")}}};
}

}  // namespace

host::TaskLine subjectLine(host::Desk& desk, const host::Notification& row) {
  host::TaskLine line;
  line.client = host::clientName(desk, row);
  line.task.name = host::itemName(desk, row);
  host::UnreadableRows unnamed;
  unnamed.orName([&] {
    if (const auto task = host::findTask(desk, row.scheduleId)) line.task.dueDate = task->dueDate;
  });
  return line;
}

QString subjectOf(const host::TaskLine& line) {
  QStringList names{shown(line.client), shown(line.task.name)};
  names.removeAll(QString());
  const QString subject = names.join(", ");
  if (line.task.dueDate.isZero()) return subject;
  return QObject::tr("%1, due on %2").arg(subject, longDate(qtDate(line.task.dueDate)));
}

WindowNotes clientNotes(host::Desk&, const host::TaskLine& line) {
  return notesAbout(shown(line.client));
}

WindowNotes clientNotes(host::Desk& desk, const host::Client& client) {
  return notesAbout(shown(host::readClientCard(desk, client).name));
}

WindowNotes taskNotes(host::Desk&, const host::TaskLine& line) {
  return notesAbout(subjectOf(line));
}

WindowNotes channelNotes(host::Desk& desk, const host::TaskLine& line) {
  WindowNotes notes = taskNotes(desk, line);
  const auto outlook = host::readChannelOutlook(desk, line.task.id);
  for (std::size_t i = 0; outlook && i < outlook->size(); ++i) {
    const WindowNote note = noteOf((*outlook)[i]);
    notes[QString("staticNote(%1)").arg(i)] = note;
    if (note.isTrouble) notes[QString("staticNoteNow(%1)").arg(i)] = note;
  }
  return notes;
}

}  // namespace autonotify::desktop
