#pragma once

#include <QSortFilterProxyModel>

namespace autonotify::desktop {

/// Rows of the day that hold a text and go by some channels, sorted within their groups. The groups
/// stay as they are.
class DayFilter : public QSortFilterProxyModel {
  Q_OBJECT

 public:
  explicit DayFilter(QObject* parent);

  void setText(const QString& text);
  /// A bit set.
  void setChannels(int channels);
  bool leavesOut() const { return !text_.isEmpty() || channels_ != allOfThem; }

 protected:
  bool filterAcceptsRow(int row, const QModelIndex& parent) const override;
  bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

 private:
  static constexpr int allOfThem = -1;

  QString text_;
  int channels_ = allOfThem;
};

}  // namespace autonotify::desktop
