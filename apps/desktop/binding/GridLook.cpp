#include "binding/GridLook.h"

#include <QStringList>
#include <QVariant>

namespace autonotify::desktop {
namespace {

int columnIn(const QWidget& table, const char* property) {
  const QVariant column = table.property(property);
  return column.isValid() ? column.toInt() : -1;
}

}  // namespace

GridLook::GridLook(const QWidget& table)
    : dueColumn(columnIn(table, "dueColumn")),
      doneColumn(columnIn(table, "doneColumn")),
      stretches(table.property("stretches").toBool()),
      takesFocus(table.property("takesFocus").toBool()),
      emptyText(table.property("emptyText").toString()) {
  for (const QString& column :
       table.property("nameColumns").toString().split(' ', Qt::SkipEmptyParts))
    nameColumns.append(column.toInt());
}

}  // namespace autonotify::desktop
