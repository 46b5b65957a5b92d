#include "outcome_texts.h"

#include <QObject>
#include <QStringList>
#include <algorithm>

#include "day/row_acts.h"
#include "qt_text.h"

namespace autonotify::desktop {
namespace {

constexpr int mostNamed = 3;
constexpr int mostDetails = 20;

struct SendWords {
  host::SendResult result;
  bool isFault;
  /// "%1" stands for the client, "%2" for the detail.
  const char* words;
};
constexpr SendWords sendWords[] = {
    {host::SendResult::sent, false, QT_TRANSLATE_NOOP("QObject", "Sent to %1 (%2).")},
    {host::SendResult::foundInOutbox, false,
     QT_TRANSLATE_NOOP("QObject", "It was sent to %1 before, and is marked so now.")},
    {host::SendResult::markedOnly, false, QT_TRANSLATE_NOOP("QObject", "Marked as sent to %1.")},
    {host::SendResult::testSent, false,
     QT_TRANSLATE_NOOP("QObject", "A test of the email to %1 was sent.")},
    {host::SendResult::cancelFinished, false,
     QT_TRANSLATE_NOOP("QObject", "The notification to %1 is cancelled.")},
    {host::SendResult::byHand, true,
     QT_TRANSLATE_NOOP("QObject", "The notification to %1 is no email: refresh the page.")},
    {host::SendResult::alreadySent, true,
     QT_TRANSLATE_NOOP("QObject", "Nothing was sent: the notification to %1 was sent before.")},
    {host::SendResult::alreadyCancelled, true,
     QT_TRANSLATE_NOOP("QObject", "Nothing was sent: the notification to %1 is cancelled.")},
    {host::SendResult::cancelFailed, true,
     QT_TRANSLATE_NOOP("QObject", "The notification to %1 could not be cancelled: %2")},
    {host::SendResult::unfinished, true,
     QT_TRANSLATE_NOOP("QObject",
                       "Nothing was sent: the notification to %1 is still being written.")},
    {host::SendResult::unknownWhetherSent, true,
     QT_TRANSLATE_NOOP("QObject",
                       "Nobody knows whether the email to %1 was sent: ask the client, "
                       "then settle it in the notifications list.")},
    {host::SendResult::uncertain, true,
     QT_TRANSLATE_NOOP("QObject", "It is not certain that the email to %1 was sent: %2")},
    {host::SendResult::noAddress, true,
     QT_TRANSLATE_NOOP("QObject", "Nothing was sent: there is no email address for %1.")},
    {host::SendResult::noText, true,
     QT_TRANSLATE_NOOP("QObject", "Nothing was sent: the email to %1 has no text.")},
    {host::SendResult::failed, true,
     QT_TRANSLATE_NOOP("QObject", "The email to %1 was not sent: %2")},
    {host::SendResult::atWorkElsewhere, true,
     QT_TRANSLATE_NOOP("QObject", "Another desk is at work on it. Try again in a moment.")},
    {host::SendResult::notThere, true,
     QT_TRANSLATE_NOOP("QObject", "The notification was deleted meanwhile. Refresh the page.")},
};

const SendWords& sendWordsOf(host::SendResult result) {
  return *std::ranges::find(sendWords, result, &SendWords::result);
}

QString sentence(const host::SendOutcome& outcome) {
  const QString client = outcome.about ? shown(outcome.about->client) : QString();
  return filled(QObject::tr(sendWordsOf(outcome.result).words), client, shown(outcome.detail));
}

/// The words for the first rows, and how many others there are.
template <class Words>
QString joined(const host::UnreadableRows& rows, int most, const char* separator, Words&& wordsOf) {
  QStringList texts;
  for (const host::UnreadableRow& row : rows) {
    if (texts.size() == most) break;
    texts.append(wordsOf(row));
  }
  const auto others = static_cast<qsizetype>(rows.size()) - texts.size();
  if (others > 0) texts.append(QObject::tr("and %L1 more").arg(others));
  return texts.join(separator);
}

}  // namespace

QString textOf(const host::Refused& refused) {
  switch (refused.why) {
    case host::Refused::Why::notThere:
      return QObject::tr("There is no %1 any more.").arg(shown(refused.subject));
    case host::Refused::Why::atWorkElsewhere:
      return QObject::tr("Another desk is at work on it. Try again in a moment.");
    case host::Refused::Why::failed:
      break;
  }
  return shown(refused.errors);
}

QString textOf(host::Composed composed) {
  switch (composed) {
    case host::Composed::waitsAlready:
      return QObject::tr("The email is scheduled already.");
    case host::Composed::lost:
      return QObject::tr(
          "The email was deleted by someone else meanwhile. What you wrote is lost.");
    default:
      return {};
  }
}

QString textOf(const host::NotedCall& call) {
  if (call.fate == host::CallFate::noted) return {};
  const QString why = call.fate == host::CallFate::noCall ? QObject::tr("is no call")
                                                          : wordsOfState(stateOf(call.row));
  return QObject::tr("Notification %1 %2. Nothing was noted.").arg(call.row.id).arg(why);
}

QString textOf(const host::RefusedRow& row) {
  const QString name = row.client.empty()
                           ? QObject::tr("notification %1").arg(row.id)
                           : QObject::tr("the notification to %1").arg(shown(row.client));
  switch (row.why) {
    case host::RefusedRow::Why::notThere:
      return QObject::tr("There is no notification %1 any more. Refresh the list.").arg(row.id);
    case host::RefusedRow::Why::atWorkElsewhere:
      return QObject::tr("Another desk is at work on %1. Try again in a moment.").arg(name);
    case host::RefusedRow::Why::settled:
      break;
  }
  return QObject::tr("Nothing was done: by now %1 %2.").arg(name, wordsOfState(row.state));
}

QString textOf(host::HandFate fate) {
  if (fate != host::HandFate::settled) return {};
  return QObject::tr("Nothing was done: it was sent or cancelled meanwhile.");
}

QString textOf(const host::SendOutcome& outcome) {
  return sentence(outcome);
}

QString faultOf(const host::SendOutcome& outcome) {
  if (sendWordsOf(outcome.result).isFault) return sentence(outcome);
  const std::string& fault = outcome.markFault.empty() ? outcome.keepFault : outcome.markFault;
  if (fault.empty()) return {};
  return outcome.markFault.empty()
             ? QObject::tr("The email was sent, but %1").arg(shown(fault))
             : QObject::tr("The email was sent, but could not be marked so: %1").arg(shown(fault));
}

QString textOf(const host::UnreadableRows& rows) {
  if (rows.empty()) return {};
  const QString names = joined(rows, mostNamed, ", ", [](const host::UnreadableRow& row) {
    return shown(row.row() + " (" + row.column() + ")");
  });
  return (rows.size() == 1 ? QObject::tr("1 row cannot be read: %1")
                           : QObject::tr("%L1 rows cannot be read: %2").arg(rows.size()))
      .arg(names);
}

QString detailsOf(const host::UnreadableRows& rows) {
  if (rows.empty()) return {};
  return "<qt>" +
         joined(rows, mostDetails, "<br>",
                [](const host::UnreadableRow& row) {
                  return shown(row.description()).toHtmlEscaped();
                }) +
         "</qt>";
}

}  // namespace autonotify::desktop
