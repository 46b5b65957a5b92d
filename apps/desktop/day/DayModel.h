#pragma once

#include <QAbstractItemModel>
#include <QDate>
#include <vector>

#include "host/desk/work/working_day.h"

namespace autonotify::desktop {

/// How the days of a group are told from others.
enum class DayTone { overdue, today, later };

/// Notifications of some days, under a heading.
struct DayGroupShown {
  QString name;
  /// Beside the name; the other where the group is empty.
  QString note;
  QString noteWhenEmpty;
  DayTone tone = DayTone::later;
  /// With those that are not among the lines.
  std::size_t count = 0;
  std::vector<host::DayLine> lines;
};

/// Notifications that wait, by groups of days.
class DayModel : public QAbstractItemModel {
  Q_OBJECT

 public:
  enum Column { client, task, due, notifyOn, channel, state, act, columns };
  enum Role { sortRole = Qt::UserRole };

  using QAbstractItemModel::QAbstractItemModel;

  void show(std::vector<DayGroupShown> groups, QDate today);
  const DayGroupShown& groupAt(const QModelIndex& index) const;
  /// Null for a group.
  const host::DayLine* lineAt(const QModelIndex& index) const;

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& index) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  QVariant lineData(const host::DayLine& line, DayTone tone, int column, int role) const;
  QString dayText(DateTime day) const;
  QString accessibleText(const host::DayLine& line, DayTone tone) const;

  std::vector<DayGroupShown> groups_;
  QDate today_;
};

}  // namespace autonotify::desktop
