#pragma once

#include <QWidget>

#include "models/TaskTableModel.h"

class QAction;
class QCheckBox;
class QTableView;

namespace autonotify::desktop {

/// A firm's open tasks in a table, with a box that leaves only those whose notifications are due.
class TaskPage : public QWidget {
  Q_OBJECT

 public:
  explicit TaskPage(QWidget* parent);

  /// Null shows nothing. `desk` must outlive its use here.
  void setDesk(host::Desk* desk) { tasks_->setDesk(desk); }
  /// Reads anew what is shown, and keeps to the row.
  void readFrom(host::Desk& desk);
  /// Leaves the tasks whose client or name holds the text.
  void setFilter(const QString& text);
  void goToFirstRow();

  /// Offers the command in the menu that comes up at a task.
  void addCommand(QAction* command, bool isBelowLine);

  /// The task that is chosen; null for none. Good until the page changes.
  const host::TaskLine* chosen() const;
  /// What the list met so far and cannot show.
  const host::UnreadableRows& unreadable() const { return tasks_->unreadable(); }
  /// False when the firm has no open task at all.
  bool hasTasks() const;

 signals:
  /// The chosen task, or what is shown of it, has changed.
  void changed();
  /// More tasks were read.
  void read();
  /// A person wants to do something about the chosen task.
  void activated();
  /// The database did not answer; the words are for people.
  void failed(const QString& message);

 private:
  void makeDue();
  void makeTable();

  TaskTableModel* tasks_;
  QString filter_;
  QCheckBox* dueOnly_;
  QTableView* table_;
};

}  // namespace autonotify::desktop
