#pragma once

#include <QStyledItemDelegate>

namespace autonotify::desktop {

class DayFilter;

/// Paints the rows of the day: headings of groups, days that stand out, the state as a chip and
/// what there is to be done as a button, without a widget for any of them.
class DayDelegate : public QStyledItemDelegate {
 public:
  /// `rows` outlives the delegate.
  DayDelegate(const DayFilter& rows, QObject* parent) : QStyledItemDelegate(parent), rows_(rows) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

  /// Room for the button and around it, and for a chip, at this font.
  static int buttonColumnWidth(const QFontMetrics& font);
  static int chipColumnWidth(const QFontMetrics& font);

 private:
  void paintGroup(QPainter& painter, const QStyleOptionViewItem& option,
                  const QModelIndex& index) const;

  const DayFilter& rows_;
};

}  // namespace autonotify::desktop
