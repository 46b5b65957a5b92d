#include "outcome_texts.h"

#include <QObject>
#include <QStringList>

#include "qt_text.h"

namespace autonotify::desktop {
namespace {

constexpr int mostNamed = 3;
constexpr int mostDetails = 20;

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
                                                          : shown(stateWords(stateOf(call.row)));
  return QObject::tr("Notification %1 %2. Nothing was noted.").arg(call.row.id).arg(why);
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
