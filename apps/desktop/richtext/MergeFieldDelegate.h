#pragma once

#include <QIcon>
#include <QSet>
#include <QString>
#include <QStyledItemDelegate>

namespace autonotify::desktop {

/// Draws a list of merge fields: an icon tells the dates from all else. A heading has none.
class MergeFieldDelegate : public QStyledItemDelegate {
 public:
  MergeFieldDelegate(QSet<QString> dates, QObject* parent);
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

 private:
  QSet<QString> dates_;
  QIcon date_;
  QIcon other_;
};

}  // namespace autonotify::desktop
