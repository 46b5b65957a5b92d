#include "day/Navigation.h"

#include <QIcon>
#include <QLocale>
#include <QPainter>
#include <QStyledItemDelegate>
#include <array>

#include "colors.h"
#include "day/inked_icons.h"

namespace autonotify::desktop {
namespace {

constexpr int badgeRole = Qt::UserRole;
constexpr int placeRole = Qt::UserRole + 1;
constexpr int roomAtSides = 8;
constexpr int navigationIcon = 16;
constexpr int roomInEntry = 8;

struct PlaceRow {
  const char* heading;
  const char* text;
  const char* icon;
};
/// In the order of Navigation::Place; a heading stands above its entry.
constexpr std::array<PlaceRow, Navigation::places> placeRows{{
    {"", QT_TRANSLATE_NOOP("autonotify::desktop::Navigation", "Today"), "go-jump-today"},
    {"", QT_TRANSLATE_NOOP("autonotify::desktop::Navigation", "Tasks"), "view-calendar-tasks"},
    {"", QT_TRANSLATE_NOOP("autonotify::desktop::Navigation", "Notifications list"),
     "view-list-details"},
    {QT_TRANSLATE_NOOP("autonotify::desktop::Navigation", "Worklists"),
     QT_TRANSLATE_NOOP("autonotify::desktop::Navigation", "Letters"), "channel-letter"},
    {"", QT_TRANSLATE_NOOP("autonotify::desktop::Navigation", "Faxes"), "channel-fax"},
    {"", QT_TRANSLATE_NOOP("autonotify::desktop::Navigation", "Calls"), "call-start"},
    {QT_TRANSLATE_NOOP("autonotify::desktop::Navigation", "Firm"),
     QT_TRANSLATE_NOOP("autonotify::desktop::Navigation", "Clients"), "view-pim-contacts"},
    {"", QT_TRANSLATE_NOOP("autonotify::desktop::Navigation", "Templates"),
     "document-new-from-template"},
}};

class NavigationDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
    return {0, option.fontMetrics.height() + 2 * roomInEntry};
  }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyleOptionViewItem entry(option);
    initStyleOption(&entry, index);
    painter->save();
    QRect room = entry.rect.adjusted(roomAtSides, 0, -roomAtSides, 0);
    if (index.flags() & Qt::ItemIsSelectable) {
      paintEntry(*painter, entry, index, room);
    } else {
      painter->setPen(entry.palette.color(QPalette::PlaceholderText));
      painter->drawText(room, Qt::AlignLeft | Qt::AlignVCenter, entry.text);
    }
    painter->restore();
  }

 private:
  static void paintEntry(QPainter& painter, const QStyleOptionViewItem& entry,
                         const QModelIndex& index, QRect room) {
    const bool isChosen = entry.state & QStyle::State_Selected;
    const QPalette& palette = entry.palette;
    QColor ink = isChosen ? accentInk(palette) : palette.color(QPalette::WindowText);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isChosen) {
      const bool hasFocus = entry.state & QStyle::State_HasFocus;
      painter.setPen(hasFocus ? QPen(palette.color(QPalette::Highlight), 2) : Qt::NoPen);
      painter.setBrush(softAccentOn(palette.color(QPalette::Window), palette));
      painter.drawRoundedRect(entry.rect.adjusted(1, 1, -1, -1), 4, 4);
    }
    QFont font = entry.font;
    font.setBold(isChosen);
    painter.setFont(font);
    const QRect icon = QStyle::alignedRect(entry.direction, Qt::AlignLeft | Qt::AlignVCenter,
                                           {navigationIcon, navigationIcon}, room);
    paintInked(painter, entry.icon, icon, ink);
    painter.setPen(ink);
    painter.drawText(room.adjusted(navigationIcon + roomAtSides, 0, 0, 0),
                     Qt::AlignLeft | Qt::AlignVCenter, entry.text);
    painter.drawText(room, Qt::AlignRight | Qt::AlignVCenter, index.data(badgeRole).toString());
  }
};

}  // namespace

Navigation::Navigation(QWidget* parent) : QListWidget(parent) {
  setObjectName("navigation");
  setAccessibleName(tr("Pages"));
  setFrameShape(NoFrame);
  setItemDelegate(new NavigationDelegate(this));
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  viewport()->setBackgroundRole(QPalette::Window);
  for (int place = 0; place < places; ++place) {
    const PlaceRow& row = placeRows.at(static_cast<std::size_t>(place));
    if (*row.heading) (new QListWidgetItem(tr(row.heading), this))->setFlags(Qt::NoItemFlags);
    auto* item = new QListWidgetItem(QIcon::fromTheme(row.icon), tr(row.text), this);
    item->setData(placeRole, place);
    item->setToolTip(QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + place))
                         .toString(QKeySequence::NativeText));
    setBadge(static_cast<Place>(place), std::nullopt);
  }
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
  connect(this, &QListWidget::itemClicked, this, [this](QListWidgetItem* item) {
    emit chosen(static_cast<Place>(item->data(placeRole).toInt()));
  });
  connect(this, &QListWidget::itemActivated, this, [this](QListWidgetItem* item) {
    emit chosen(static_cast<Place>(item->data(placeRole).toInt()));
  });
}

QListWidgetItem* Navigation::itemOf(Place place) const {
  for (int row = 0; row < count(); ++row)
    if (item(row)->data(placeRole) == static_cast<int>(place)) return item(row);
  return nullptr;
}

void Navigation::mark(Place place) {
  setCurrentItem(itemOf(place));
}

void Navigation::setBadge(Place place, std::optional<std::size_t> count) {
  QListWidgetItem& item = *itemOf(place);
  const QString badge = count ? QLocale().toString(*count) : QString();
  item.setData(badgeRole, badge);
  item.setData(Qt::AccessibleTextRole,
               badge.isEmpty() ? item.text() : QString("%1, %2").arg(item.text(), badge));
}

QString Navigation::textOf(Place place) {
  return tr(placeRows.at(static_cast<std::size_t>(place)).text);
}

/// Room for the longest entry and its badge.
QSize Navigation::sizeHint() const {
  int widest = 0;
  for (int row = 0; row < count(); ++row)
    widest = std::max(widest, fontMetrics().horizontalAdvance(item(row)->text() + " 00,000"));
  return {widest + navigationIcon + 4 * roomAtSides, QListWidget::sizeHint().height()};
}

}  // namespace autonotify::desktop
