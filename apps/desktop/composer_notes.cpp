#include "composer_notes.h"

#include <QObject>
#include <QStringList>
#include <algorithm>

#include "binding/DateBinding.h"
#include "day/day_formats.h"
#include "host/desk/rows/channel_names.h"
#include "mail_choice.h"
#include "qt_text.h"
#include "task_notes.h"

namespace autonotify::desktop {
namespace {

struct FinishWords {
  notifyType channel;
  bool namesRecipient;
  /// "%1" stands for whom it goes to, "%2" for the day.
  const char* atOnce;
  const char* waiting;
};
constexpr FinishWords finishWords[] = {
    {nt_Email, true, QT_TRANSLATE_NOOP("QObject", "Sends it now to %1"),
     QT_TRANSLATE_NOOP("QObject", "Saves it, to be sent to %1 on %2")},
    {nt_Fax, true, QT_TRANSLATE_NOOP("QObject", "Shows the pages of the fax to %1"),
     QT_TRANSLATE_NOOP("QObject", "Saves it, to be faxed to %1 on %2")},
    {nt_Letter, false, QT_TRANSLATE_NOOP("QObject", "Shows the letter as it is printed"),
     QT_TRANSLATE_NOOP("QObject", "Saves it, to be printed on %2")},
    // The buttons themselves say how a call went.
    {nt_Phone, true, "", QT_TRANSLATE_NOOP("QObject", "Saves it, to call %1 on %2")},
};
constexpr const char* toProgram =
    QT_TRANSLATE_NOOP("QObject", "Opens it in your email program, addressed to %1");

/// Of the tasks that a question is about.
constexpr qsizetype mostPastDates = 10;

const char* wordsOf(const host::ComposerOutlook& outlook, const FinishWords& words) {
  if (!outlook.isAtOnce) return words.waiting;
  return outlook.channel == nt_Email && chosenMail().toProgram ? toProgram : words.atOnce;
}

QString recipientsText(const std::vector<std::string>& to) {
  if (to.empty()) return {};
  const QString first = shown(to.front());
  return to.size() == 1 ? first : QObject::tr("%1 and %L2 more").arg(first).arg(to.size() - 1);
}

WindowNote finishNote(const host::ComposerOutlook& outlook) {
  const FinishWords& row = *host::findChannel(finishWords, outlook.channel);
  const char* words = wordsOf(outlook, row);
  if (!*words) return {};
  if (row.namesRecipient && outlook.to.empty())
    return {QObject::tr("Nobody is named yet to whom it goes"), true};
  if (!outlook.isAtOnce && outlook.date.isZero())
    return {QObject::tr("No date is written yet"), true};
  return {filled(QObject::tr(words), recipientsText(outlook.to), longDate(qtDate(outlook.date)))};
}

QString dateDoubt(const host::ComposerOutlook& outlook, const ComposerDays& days) {
  if (outlook.isAtOnce || outlook.date.isZero()) return {};
  if (outlook.date < days.today) return QObject::tr("This day has passed.");
  if (days.due.isZero() || outlook.date <= days.due) return {};
  return QObject::tr("This is after the due date, %1.").arg(longDate(qtDate(days.due)));
}

/// What is armed already was past before.
bool turnsPast(host::Desk& desk, const host::YearTask& task) {
  return std::ranges::any_of(task.channels, [&](const host::ChannelOutcome& each) {
    return !each.row && isPast(desk, task, each);
  });
}

}  // namespace

WindowNotes composerNotes(const host::ComposerOutlook& outlook, const ComposerDays& days) {
  return {{"staticFollowFinish", finishNote(outlook)},
          {"staticFollowDate", {dateDoubt(outlook, days), true}}};
}

QString dateQuestion(const host::ComposerOutlook& outlook, const ComposerDays& days) {
  const QString doubt = dateDoubt(outlook, days);
  if (doubt.isEmpty()) return {};
  return QObject::tr("Notification date %1: %2  Do you want to go on?")
      .arg(longDate(qtDate(outlook.date)), doubt);
}

QString yearQuestion(host::Desk& desk, const std::vector<host::YearTask>& preview) {
  QStringList past;
  for (const host::YearTask& task : preview)
    if (turnsPast(desk, task))
      past += QObject::tr("%1: to be armed for %2")
                  .arg(shown(task.task.name), longDate(qtDate(task.date)));
  if (past.isEmpty()) return {};
  const QString told = QObject::tr("The dates of %Ln tasks are past: they are due at once.", "",
                                   static_cast<int>(past.size()));
  if (past.size() > mostPastDates) past = past.mid(0, mostPastDates) << QString(QChar(0x2026));
  return QStringList{told, past.join('\n'), QObject::tr("Do you want to go on?")}.join("\n\n");
}

}  // namespace autonotify::desktop
