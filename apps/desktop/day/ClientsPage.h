#pragma once

#include <QWidget>
#include <optional>

#include "host/desk/work/client_card.h"
#include "host/desk/work/notification_list.h"
#include "host/desk/work/people_list.h"
#include "models/RecordTable.h"

class QAction;
class QLabel;
class QSortFilterProxyModel;
class QTableView;

namespace autonotify::desktop {

/// The firm's clients, and below them all that the chosen one was told and will be.
class ClientsPage : public QWidget {
  Q_OBJECT

 public:
  explicit ClientsPage(QWidget* parent);

  /// Reads anew what is shown, and keeps to the client. `desk` must outlive its use here.
  void readFrom(host::Desk& desk);
  void clear();
  void setFilter(const QString& text);
  void goToFirstRow();
  /// Goes to the client. Of a contact that is none the notifications are shown alone.
  void showClient(const host::Client& client);
  /// None where no row is chosen.
  std::optional<host::Client> chosenClient() const;
  /// Offers the command in the menu of the right mouse button.
  void addCommand(QAction* command);

  /// What could not be read.
  const host::UnreadableRows& unreadable() const { return unreadable_; }

 signals:
  /// Another client is chosen, or none.
  void changed();
  /// The person wants to see the tasks of the client of that name.
  void tasksWanted(const QString& client);
  /// The database did not answer; the words are for people.
  void failed(const QString& message);

 private:
  QTableView* newTable(const char* name, const QString& accessibleName, QAbstractItemModel& model);
  QWidget* makeHistory();
  /// Told where no client fits the search.
  void addNote();
  /// What can be done with the chosen client, and with what it was told, in the menus of the right
  /// mouse button.
  void addCommands();
  void addTo(QTableView& table, const QString& text, void (ClientsPage::*act)());
  void showTasks();
  void copyPhone();
  void copyEmail();
  void copyAddress();
  void copyText();
  void readClients();
  /// Of the chosen client.
  void showHistory();
  const host::ClientLine* chosen() const;
  const host::NotificationLine* chosenTold() const;
  void showChosen();
  QString nameOf(const host::Client& client) const;

  host::Desk* desk_ = nullptr;
  host::UnreadableRows unreadable_;
  /// Whose notifications are shown.
  std::optional<host::Client> shownClient_;
  RecordTable<host::ClientLine> clients_;
  RecordTable<host::NotificationLine> told_;
  QSortFilterProxyModel* foundClients_;
  QSortFilterProxyModel* sortedTold_;
  QTableView* clientTable_;
  QTableView* toldTable_ = nullptr;
  QLabel* title_ = nullptr;
  QLabel* summary_ = nullptr;
};

}  // namespace autonotify::desktop
