#pragma once

#include <QDate>
#include <QWidget>
#include <optional>

#include "host/desk/work/working_day.h"

class QAction;
class QButtonGroup;
class QHBoxLayout;
class QLabel;
class QStackedLayout;

namespace autonotify::desktop {

class ClientCardView;
class DayFilter;
class DayModel;
class DayView;
class WeeksCard;

/// What a firm's clients are to be told today: all of it, or the worklist of a channel. Or else
/// what there is in one of the weeks ahead.
class DayPage : public QWidget {
  Q_OBJECT

 public:
  explicit DayPage(QWidget* parent);

  QSize minimumSizeHint() const override;
  /// Null shows nothing. `desk` must outlive its use here.
  void setDesk(host::Desk* desk);
  /// Reads anew what is shown, and keeps to the row.
  void reload();
  /// With its heading; a bit set.
  void showChannels(int channels, const QString& heading);
  /// The rows of one week ahead.
  void showWeek(DateTime monday);
  void setFilter(const QString& text);
  void goToFirstRow();

  /// Offers the command in the menu that comes up at a row.
  void addCommand(QAction* command, bool isBelowLine);

  /// The row that is chosen; null for none. Good until the page changes.
  const host::DayLine* chosen() const;
  const host::WorkingDay& day() const { return day_; }

 signals:
  /// The chosen row, or what is shown of it, has changed.
  void changed();
  /// The day was read.
  void read();
  /// A person wants done what the chosen row's button says.
  void acted();
  // A person wants to change the chosen row, or to see all that its client was told.
  void editWanted();
  void historyWanted();
  /// The database did not answer; the words are for people.
  void failed(const QString& message);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void makeSide();
  /// Tells of the rows that are not shown, and brings more of them.
  QWidget* makeMore();
  void showMore();
  QWidget* makeHead();
  QWidget* makeShares();
  QWidget* makeNothing();
  void readAll();
  void showRows();
  void showHead();
  void showCard();
  /// The picture is made when the rows have been painted.
  void showWeeks();
  QDate today() const;
  /// To the notification, to the row that stands in its place, or else to the first one.
  void choose(Id notification, QPoint place);

  host::Desk* desk_ = nullptr;
  host::WorkingDay day_;
  bool isRead_ = false;
  host::DayShare share_ = host::DayShare::everyone;
  /// Of each group.
  std::size_t mostLines_;
  std::optional<DateTime> week_;
  int channels_;
  QString heading_;
  DayModel* model_;
  DayFilter* rows_;
  DayView* view_;
  QWidget* side_ = nullptr;
  WeeksCard* weeks_ = nullptr;
  ClientCardView* card_ = nullptr;
  QStackedLayout* centre_ = nullptr;
  QLabel* title_ = nullptr;
  QLabel* summary_ = nullptr;
  QLabel* nextOne_ = nullptr;
  QWidget* more_ = nullptr;
  QLabel* leftOut_ = nullptr;
  QButtonGroup* shares_ = nullptr;
};

}  // namespace autonotify::desktop
