#include "day/DayPage.h"

#include <QAbstractButton>
#include <QAction>
#include <QButtonGroup>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QStackedLayout>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "binding/DateBinding.h"
#include "colors.h"
#include "day/ClientCardView.h"
#include "day/DayFilter.h"
#include "day/DayModel.h"
#include "day/DayView.h"
#include "day/ElidedLabel.h"
#include "day/WeeksCard.h"
#include "day/day_formats.h"
#include "day/day_groups.h"
#include "qt_text.h"

namespace autonotify::desktop {
namespace {

/// Of each group, at first and then with each wish for more.
constexpr std::size_t mostOfDayGroup = 1000;
constexpr std::size_t timesMore = 10;
constexpr int marginOfDay = 16;
constexpr int bigIcon = 48;
constexpr int sideWidth = 304;
/// In a narrower page the rows have all the room.
constexpr int leastWidthWithSide = 900;

struct ShareButton {
  const char* name;
  const char* text;
  host::DayShare share;
};
constexpr ShareButton shareButtons[] = {
    {"everyone", QT_TRANSLATE_NOOP("autonotify::desktop::DayPage", "Everyone"),
     host::DayShare::everyone},
    {"mine", QT_TRANSLATE_NOOP("autonotify::desktop::DayPage", "Mine"), host::DayShare::mine},
    {"myClients", QT_TRANSLATE_NOOP("autonotify::desktop::DayPage", "My clients"),
     host::DayShare::myClients},
};

/// The chosen one stands out in a dark palette too.
void colourShare(QAbstractButton& button) {
  QPalette palette;
  if (button.isChecked()) {
    palette.setColor(QPalette::Button, softAccentOn(palette.color(QPalette::Window), palette));
    palette.setColor(QPalette::ButtonText, accentInk(palette));
  }
  button.setPalette(palette);
}

template <class LabelType = QLabel>
LabelType* plainLabel(QWidget* parent, const char* name) {
  auto* label = new LabelType(parent);
  label->setObjectName(name);
  label->setTextFormat(Qt::PlainText);
  return label;
}

}  // namespace

DayPage::DayPage(QWidget* parent)
    : QWidget(parent),
      mostLines_(mostOfDayGroup),
      channels_(host::allChannels),
      heading_(tr("Today")),
      model_(new DayModel(this)),
      rows_(new DayFilter(this)) {
  rows_->setSourceModel(model_);
  view_ = new DayView(*rows_, this);
  view_->setObjectName("day");
  view_->setAccessibleName(tr("Notifications that wait"));
  setFocusProxy(view_);
  view_->setContextMenuPolicy(Qt::ActionsContextMenu);
  auto* panes = new QHBoxLayout(this);
  panes->setContentsMargins(marginOfDay, marginOfDay / 2, marginOfDay, marginOfDay);
  panes->setSpacing(marginOfDay);
  auto* layout = new QVBoxLayout;
  panes->addLayout(layout, 1);
  makeSide();
  panes->addWidget(side_);
  layout->addWidget(makeHead());
  auto* centre = new QWidget(this);
  centre_ = new QStackedLayout(centre);
  centre_->addWidget(view_);
  centre_->addWidget(makeNothing());
  layout->addWidget(centre, 1);
  layout->addWidget(makeMore());
  connect(view_, &DayView::pressed, this, &DayPage::acted);
  connect(view_->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] {
    showCard();
    emit changed();
  });
  showHead();
}

void DayPage::makeSide() {
  side_ = new QWidget(this);
  side_->setFixedWidth(sideWidth);
  auto* layout = new QVBoxLayout(side_);
  layout->setContentsMargins({});
  layout->setSpacing(marginOfDay);
  card_ = new ClientCardView(side_);
  layout->addWidget(card_, 1);
  connect(card_, &ClientCardView::editWanted, this, &DayPage::editWanted);
  connect(card_, &ClientCardView::historyWanted, this, &DayPage::historyWanted);
}

/// The side goes where it has no room.
QSize DayPage::minimumSizeHint() const {
  const QSize least = QWidget::minimumSizeHint();
  return side_->isVisibleTo(this) ? least - QSize(sideWidth + marginOfDay, 0) : least;
}

void DayPage::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  side_->setVisible(width() >= leastWidthWithSide);
}

/// Esc leaves a week for the day.
void DayPage::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape || !week_) return QWidget::keyPressEvent(event);
  showChannels(channels_, heading_);
}

void DayPage::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::PaletteChange) return;
  for (QAbstractButton* share : shares_->buttons()) colourShare(*share);
}

void DayPage::showWeeks() {
  if (!desk_) return;
  if (!weeks_) {
    weeks_ = new WeeksCard(side_);
    static_cast<QVBoxLayout*>(side_->layout())->insertWidget(0, weeks_, 1);
    connect(weeks_, &WeeksCard::weekChosen, this, &DayPage::showWeek);
  }
  weeks_->showDay(day_);
}

void DayPage::showCard() {
  try {
    card_->showClient(desk_, chosen());
  } catch (const PlatformError& error) {
    emit failed(faultOf(error.description()));
  }
}

QWidget* DayPage::makeHead() {
  auto* head = new QWidget(this);
  auto* layout = new QHBoxLayout(head);
  layout->setContentsMargins({});
  auto* words = new QVBoxLayout;
  title_ = plainLabel(head, "dayTitle");
  QFont large = title_->font();
  large.setPointSizeF(large.pointSizeF() * 1.5);
  large.setWeight(QFont::DemiBold);
  title_->setFont(large);
  summary_ = plainLabel<ElidedLabel>(head, "daySummary");
  summary_->setForegroundRole(QPalette::PlaceholderText);
  words->addWidget(title_);
  words->addWidget(summary_);
  layout->addLayout(words, 1);
  layout->addWidget(makeShares());
  return head;
}

QWidget* DayPage::makeShares() {
  auto* bar = new QWidget(this);
  auto* layout = new QHBoxLayout(bar);
  layout->setContentsMargins({});
  layout->setSpacing(0);
  shares_ = new QButtonGroup(bar);
  for (const ShareButton& share : shareButtons) {
    auto* button = new QPushButton(tr(share.text), bar);
    button->setObjectName(share.name);
    button->setCheckable(true);
    button->setChecked(share.share == share_);
    connect(button, &QPushButton::toggled, this, [button] { colourShare(*button); });
    colourShare(*button);
    shares_->addButton(button, static_cast<int>(share.share));
    layout->addWidget(button);
  }
  connect(shares_, &QButtonGroup::idClicked, this, [this](int share) {
    share_ = static_cast<host::DayShare>(share);
    reload();
  });
  return bar;
}

QWidget* DayPage::makeNothing() {
  auto* page = new QWidget(this);
  auto* layout = new QVBoxLayout(page);
  auto* icon = new QLabel(page);
  icon->setPixmap(QIcon::fromTheme("task-complete").pixmap(bigIcon));
  auto* words = plainLabel(page, "nothingToSend");
  words->setText(tr("Nothing to send today"));
  nextOne_ = plainLabel(page, "nextToSend");
  nextOne_->setForegroundRole(QPalette::PlaceholderText);
  layout->addStretch();
  for (QLabel* label : {icon, words, nextOne_}) layout->addWidget(label, 0, Qt::AlignCenter);
  layout->addStretch();
  return page;
}

QWidget* DayPage::makeMore() {
  more_ = new QWidget(this);
  auto* layout = new QHBoxLayout(more_);
  layout->setContentsMargins({});
  leftOut_ = plainLabel<ElidedLabel>(more_, "rowsLeftOut");
  auto* button = new QPushButton(tr("Show more"), more_);
  button->setObjectName("showMore");
  connect(button, &QPushButton::clicked, this, &DayPage::showMore);
  layout->addWidget(leftOut_, 1);
  layout->addWidget(button);
  more_->hide();
  return more_;
}

void DayPage::showMore() {
  mostLines_ *= timesMore;
  reload();
}

void DayPage::setDesk(host::Desk* desk) {
  desk_ = desk;
  mostLines_ = mostOfDayGroup;
  day_ = {};
  isRead_ = false;
  week_.reset();
  model_->show({}, {});
  showCard();
  showHead();
}

QDate DayPage::today() const {
  return desk_ ? qtDate(desk_->today()) : QDate::currentDate();
}

void DayPage::reload() {
  if (!desk_) return;
  const host::DayLine* line = chosen();
  const Id notification = line ? line->row.id : noId;
  const QModelIndex current = view_->currentIndex();
  const QPoint place(current.parent().row(), current.row());
  try {
    readAll();
  } catch (const PlatformError& error) {
    return emit failed(faultOf(error.description()));
  }
  choose(notification, place);
  showCard();
  QTimer::singleShot(0, this, &DayPage::showWeeks);
  emit read();
  emit changed();
}

void DayPage::readAll() {
  day_ = host::readWorkingDay(*desk_, share_, mostLines_, channels_);
  isRead_ = true;
  showRows();
}

void DayPage::showRows() {
  if (!desk_) return;
  std::vector<DayGroupShown> groups;
  if (week_) {
    const DateTime last = week_->addDays(6);
    auto rows = host::readDays(*desk_, share_, std::max(*week_, desk_->today()), last, mostLines_,
                               channels_);
    day_.unreadable.name(rows.unreadable);
    groups.push_back(weekGroup(*week_, day_, channels_, std::move(rows.rows)));
  } else {
    groups = dayGroups(day_, channels_, today());
  }
  const bool isEmpty = isRead_ && !week_ && std::ranges::all_of(groups, [](const auto& group) {
                         return group.count == 0;
                       });
  const std::size_t leftOut = countLeftOut(groups);
  more_->setVisible(leftOut > 0);
  leftOut_->setText(tr("%L1 more wait that are neither shown nor searched here.").arg(leftOut));
  model_->show(std::move(groups), today());
  centre_->setCurrentIndex(isEmpty ? 1 : 0);
  nextOne_->setText(nextWeekText(day_));
  showHead();
}

void DayPage::showHead() {
  title_->setText(week_ ? tr("Week of %1").arg(dayAndMonth(qtDate(*week_))) : heading_);
  const QString date = QLocale().toString(today(), QLocale::LongFormat);
  summary_->setText(desk_ ? summaryText(date, day_, channels_) : QString());
}

void DayPage::showChannels(int channels, const QString& heading) {
  channels_ = channels;
  heading_ = heading;
  week_.reset();
  isRead_ ? reload() : showRows();
}

void DayPage::showWeek(DateTime monday) {
  week_ = monday;
  reload();
}

void DayPage::setFilter(const QString& text) {
  rows_->setText(text);
  view_->expandAll();
}

void DayPage::goToFirstRow() {
  view_->goToFirstRow();
}

void DayPage::addCommand(QAction* command, bool isBelowLine) {
  if (isBelowLine) {
    auto* line = new QAction(view_);
    line->setSeparator(true);
    view_->addAction(line);
  }
  view_->addAction(command);
}

const host::DayLine* DayPage::chosen() const {
  return model_->lineAt(rows_->mapToSource(view_->currentIndex()));
}

void DayPage::choose(Id notification, QPoint place) {
  QModelIndex found;
  for (int group = 0; group < rows_->rowCount(); ++group) {
    const QModelIndex parent = rows_->index(group, 0);
    for (int row = 0; row < rows_->rowCount(parent) && !found.isValid(); ++row) {
      const QModelIndex index = rows_->index(row, 0, parent);
      if (model_->lineAt(rows_->mapToSource(index))->row.id == notification) found = index;
    }
  }
  if (!found.isValid() && place.x() >= 0) {
    const QModelIndex parent = rows_->index(place.x(), 0);
    found = rows_->index(std::min(place.y(), rows_->rowCount(parent) - 1), 0, parent);
  }
  for (int group = 0; group < rows_->rowCount() && !found.isValid(); ++group)
    found = rows_->index(0, 0, rows_->index(group, 0));
  if (found.isValid()) view_->setCurrentIndex(found);
}

}  // namespace autonotify::desktop
