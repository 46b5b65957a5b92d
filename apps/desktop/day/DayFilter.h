#pragma once

#include <QSortFilterProxyModel>

namespace autonotify::desktop {

/// Rows of the day that hold a text, sorted within their groups. The groups stay as they are.
class DayFilter : public QSortFilterProxyModel {
  Q_OBJECT

 public:
  explicit DayFilter(QObject* parent);

  void setText(const QString& text);
  bool leavesOut() const { return !text_.isEmpty(); }
  QVariant data(const QModelIndex& index, int role) const override;

 protected:
  bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
  bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

 private:
  QString text_;
};

}  // namespace autonotify::desktop
