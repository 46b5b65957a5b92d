#include "outcome_texts.h"

#include <QObject>

#include "qt_text.h"

namespace autonotify::desktop {

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

}  // namespace autonotify::desktop
