#pragma once

#include <QAbstractTableModel>
#include <vector>

#include "host/desk/work/task_list.h"

namespace autonotify::desktop {

/// The open tasks of a firm, read a page at a time as they are scrolled to.
class TaskTableModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { client, task, dueDate, notificationDate, channels, state, columns };

  explicit TaskTableModel(QObject* parent = nullptr) : QAbstractTableModel(parent) {}

  /// Null shows nothing. `desk` must outlive its use here.
  void setDesk(host::Desk* desk);
  void setFilter(const QString& text);
  /// Shows only tasks with a notification that is to be sent today.
  void setDueOnly(bool dueOnly);
  /// Reads anew what is shown.
  void reload();

  const host::TaskQuery& query() const { return query_; }
  /// What the list met so far and cannot show.
  const host::UnreadableRows& unreadable() const { return unreadable_; }
  /// Requires a valid index of this model.
  const host::TaskLine& lineAt(const QModelIndex& index) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  bool canFetchMore(const QModelIndex& parent) const override;
  void fetchMore(const QModelIndex& parent) override;
  void sort(int column, Qt::SortOrder order) override;

 signals:
  /// The database did not answer; the words are for people.
  void failed(const QString& message);
  /// More tasks were gone through, whether they are shown or not.
  void read();

 private:
  /// Reads the first lines anew.
  void show(std::size_t most);
  /// The next tasks, `most` at most. None only when there are no more that can be read.
  std::vector<host::TaskLine> readPage(std::size_t most);
  void append(std::vector<host::TaskLine> page);

  host::Desk* desk_ = nullptr;
  host::TaskQuery query_;
  std::vector<host::TaskLine> lines_;
  host::UnreadableRows unreadable_;
  /// How many tasks were gone through, with those that cannot be read.
  std::size_t passed_ = 0;
  bool hasMore_ = false;
};

}  // namespace autonotify::desktop
