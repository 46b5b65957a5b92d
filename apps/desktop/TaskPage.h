#pragma once

#include <QWidget>

#include "models/TaskTableModel.h"

class QAction;
class QLineEdit;
class QPushButton;
class QTableView;
class QTimer;

namespace autonotify::desktop {

/// A firm's open tasks in a table, with a field that finds some of them and a badge that tells how
/// many notifications are due today; pressed, it shows only their tasks.
class TaskPage : public QWidget {
  Q_OBJECT

 public:
  explicit TaskPage(QWidget* parent);

  /// Null shows nothing. `desk` must outlive its use here.
  void setDesk(host::Desk* desk) { tasks_->setDesk(desk); }
  /// Reads anew what is shown.
  void reload();
  void showDue(std::size_t notifications);
  void focusFilter();

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
  void makeFilter();
  void makeBadge();
  void makeTable();

  TaskTableModel* tasks_;
  QLineEdit* filter_;
  QPushButton* dueBadge_;
  QTableView* table_;
};

}  // namespace autonotify::desktop
