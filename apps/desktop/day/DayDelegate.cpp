#include "day/DayDelegate.h"

#include <QApplication>
#include <QIcon>
#include <QLocale>
#include <QPainter>
#include <algorithm>

#include "binding/DateBinding.h"
#include "colors.h"
#include "day/DayFilter.h"
#include "day/DayModel.h"
#include "day/inked_icons.h"
#include "day/row_acts.h"

namespace autonotify::desktop {
namespace {

constexpr int roomInCell = 3;
constexpr int roomInChip = 8;
constexpr int roomBetweenWords = 8;
constexpr int roomAboveRow = 6;

struct DayRow {
  const host::DayLine& line;
  DayTone tone;
  int column;
};

bool isTrouble(host::DayState state) {
  return state != host::DayState::ready && state != host::DayState::scheduled;
}

QColor toneColor(DayTone tone, const QPalette& palette) {
  if (tone == DayTone::later) return palette.color(QPalette::Text);
  return tone == DayTone::overdue ? overdueColor(palette.color(QPalette::Base))
                                  : troubleColor(palette);
}

const QStyle& styleOf(const QStyleOptionViewItem& option) {
  return option.widget ? *option.widget->style() : *QApplication::style();
}

/// Draws the words from the left of `room`, and leaves what lies behind them.
void paintWords(QPainter& painter, QRect& room, const QString& words, const QColor& ink,
                bool isBold = false) {
  QFont font = painter.font();
  font.setBold(isBold);
  painter.save();
  painter.setFont(font);
  painter.setPen(ink);
  const QFontMetrics metrics(font);
  const QString cut = metrics.elidedText(words, Qt::ElideRight, std::max(room.width(), 0));
  painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter, cut);
  painter.restore();
  room.setLeft(room.left() + metrics.horizontalAdvance(cut) + roomBetweenWords);
}

void paintChip(QPainter& painter, const QStyleOptionViewItem& option, host::DayState state) {
  const QPalette& palette = option.palette;
  const QColor base = palette.color(QPalette::Base);
  const bool isReady = state == host::DayState::ready;
  const bool isSelected = option.state & QStyle::State_Selected;
  const QColor ground = isTrouble(state)        ? troubleGround(palette)
                        : isReady && isSelected ? base
                        : isReady               ? softAccentOn(base, palette)
                                                : palette.color(QPalette::Window);
  const QColor ink = isTrouble(state) ? troubleColor(palette)
                     : isReady        ? accentInk(palette)
                                      : palette.color(QPalette::PlaceholderText);
  const bool hasIcon = state == host::DayState::noAddress;
  const int iconWidth = hasIcon ? option.fontMetrics.height() + roomInCell : 0;
  const QString words = stateText(state);
  QRect chip = option.rect.adjusted(0, roomInCell, 0, -roomInCell - 1);
  chip.setWidth(option.fontMetrics.horizontalAdvance(words) + iconWidth + 2 * roomInChip);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ground);
  painter.drawRoundedRect(chip, chip.height() / 2.0, chip.height() / 2.0);
  chip.adjust(roomInChip, 0, -roomInChip + 1, 0);
  if (hasIcon) {
    const QRect icon = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignLeft | Qt::AlignVCenter,
                                           QSize(iconWidth - roomInCell, iconWidth), chip);
    paintInked(painter, QIcon::fromTheme("dialog-warning"), icon, ink);
    chip.setLeft(chip.left() + iconWidth);
  }
  painter.setPen(ink);
  painter.drawText(chip, Qt::AlignLeft | Qt::AlignVCenter, words);
}

void paintActButton(QPainter& painter, const QStyleOptionViewItem& option, const QString& words) {
  QStyleOptionButton button;
  button.QStyleOption::operator=(option);
  button.rect = option.rect.adjusted(roomInCell, roomInCell - 1, -roomInCell, -roomInCell);
  button.text = words;
  button.state = QStyle::State_Enabled | QStyle::State_Raised;
  styleOf(option).drawControl(QStyle::CE_PushButton, &button, &painter, option.widget);
}

void paintLine(QPainter& painter, const QStyleOptionViewItem& option, const DayRow& row) {
  const QString words = option.text;
  const QPalette& palette = option.palette;
  QRect room = option.rect.adjusted(roomInCell, 0, -roomInCell, 0);
  switch (row.column) {
    case DayModel::channel: {
      const int size = option.decorationSize.height();
      const QRect place =
          QStyle::alignedRect(option.direction, Qt::AlignCenter, {size, size}, room);
      return paintInked(painter, channelIcon(row.line.row.channel), place,
                        palette.color(QPalette::Text));
    }
    case DayModel::state:
      return paintChip(painter, option, row.line.state);
    case DayModel::act:
      return paintActButton(painter, option, words);
    case DayModel::notifyOn:
      paintWords(painter, room, words, toneColor(row.tone, palette));
      if (row.tone == DayTone::later)
        paintWords(painter, room, QLocale().toString(qtDate(row.line.row.date), "ddd"),
                   palette.color(QPalette::PlaceholderText));
      return;
    default:
      return paintWords(painter, room, words, palette.color(QPalette::Text));
  }
}

const DayModel& modelOf(const DayFilter& rows) {
  return static_cast<const DayModel&>(*rows.sourceModel());
}

}  // namespace

void DayDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
  QStyleOptionViewItem cell(option);
  initStyleOption(&cell, index);
  painter->save();
  painter->setFont(cell.font);
  const QModelIndex source = rows_.mapToSource(index);
  if (const host::DayLine* line = modelOf(rows_).lineAt(source)) {
    if (cell.state & QStyle::State_Selected)
      painter->fillRect(cell.rect, softAccentOn(cell.palette.color(QPalette::Base), cell.palette));
    paintLine(*painter, cell, {*line, modelOf(rows_).groupAt(source).tone, index.column()});
  } else {
    paintGroup(*painter, cell, index);
  }
  painter->restore();
}

void DayDelegate::paintGroup(QPainter& painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
  const DayGroupShown& group = modelOf(rows_).groupAt(rows_.mapToSource(index));
  const std::size_t count =
      rows_.leavesOut() ? static_cast<std::size_t>(rows_.rowCount(index)) : group.count;
  const QPalette& palette = option.palette;
  QRect room = option.rect.adjusted(roomInCell, 0, -roomInCell, 0);
  paintWords(painter, room, group.name, toneColor(group.tone, palette), true);
  if (count > 0)
    paintWords(painter, room, QLocale().toString(count), palette.color(QPalette::Text), true);
  const QString whenEmpty =
      group.count > 0 ? QObject::tr("Nothing found here") : group.noteWhenEmpty;
  paintWords(painter, room, count > 0 ? group.note : whenEmpty,
             palette.color(QPalette::PlaceholderText));
}

QSize DayDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
  return {0, option.fontMetrics.height() + 2 * roomAboveRow};
}

int DayDelegate::buttonColumnWidth(const QFontMetrics& font) {
  int widest = 0;
  for (int act = 0; act <= static_cast<int>(RowAct::finishCancel); ++act)
    widest = std::max(widest, font.horizontalAdvance(textOf(static_cast<RowAct>(act))));
  return widest + 4 * roomBetweenWords;
}

int DayDelegate::chipColumnWidth(const QFontMetrics& font) {
  int widest = 0;
  for (int state = 0; state <= static_cast<int>(host::DayState::interrupted); ++state)
    widest =
        std::max(widest, font.horizontalAdvance(stateText(static_cast<host::DayState>(state))));
  return widest + font.height() + 3 * roomInChip;
}

}  // namespace autonotify::desktop
