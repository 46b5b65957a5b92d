#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <map>

class QWidget;

namespace autonotify::desktop {

/// Whom an address of a list belongs to.
struct RecipientName {
  QString name;
  /// A member of staff, or the firm itself.
  bool isOfFirm = false;
};

/// Asked for the names behind addresses; those that are not known are left out.
using AskRecipients = std::function<std::map<QString, RecipientName>(const QStringList& addresses)>;

/// Shows beside each address whose it is, in the lists of the layout's boxes with the property
/// "listsRecipients". Those of the firm are told apart from the client's.
void nameRecipients(QWidget& layout, const AskRecipients& ask);

}  // namespace autonotify::desktop
