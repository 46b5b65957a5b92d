#include "richtext/MergeFieldDelegate.h"

#include <QApplication>
#include <QStyle>

namespace autonotify::desktop {

MergeFieldDelegate::MergeFieldDelegate(QSet<QString> dates, QObject* parent)
    : QStyledItemDelegate(parent),
      dates_(std::move(dates)),
      date_(QIcon::fromTheme("view-calendar-day")),
      other_(QIcon::fromTheme("insert-text")) {}

void MergeFieldDelegate::initStyleOption(QStyleOptionViewItem* option,
                                         const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  // A heading cannot be chosen, but is to be read.
  option->state |= QStyle::State_Enabled;
  if (!(index.flags() & Qt::ItemIsEnabled)) return;
  const int size = QApplication::style()->pixelMetric(QStyle::PM_SmallIconSize);
  option->decorationSize = {size, size};
  option->features |= QStyleOptionViewItem::HasDecoration;
  option->icon = dates_.contains(option->text) ? date_ : other_;
}

}  // namespace autonotify::desktop
