#include "binding/GridCellDelegate.h"

#include <QApplication>
#include <QDate>
#include <QLocale>
#include <QPainter>
#include <algorithm>

#include "colors.h"

namespace autonotify::desktop {
namespace {

constexpr int frameWidth = 2;
constexpr int roomBesideText = 3;
constexpr int roomInButton = 4;
/// How the list writes a day.
constexpr const char* dayFormat = "MMM d, yyyy";

/// The ground of the cell, with all that marks its row.
void paintGround(QPainter& painter, const QStyleOptionViewItem& option, const QStyle& style) {
  style.drawPrimitive(QStyle::PE_PanelItemViewItem, &option, &painter, option.widget);
}

void paintText(QPainter& painter, const QStyleOptionViewItem& option, const QStyle& style) {
  paintGround(painter, option, style);
  QStyleOptionViewItem text(option);
  text.rect.adjust(roomBesideText, 0, -roomBesideText, 0);
  text.backgroundBrush = Qt::NoBrush;
  style.drawControl(QStyle::CE_ItemViewItem, &text, &painter, option.widget);
}

void paintButton(QPainter& painter, const QStyleOptionViewItem& option, const QStyle& style) {
  paintGround(painter, option, style);
  if (option.text.isEmpty()) return;
  QStyleOptionButton button;
  button.QStyleOption::operator=(option);
  const int height =
      std::min(option.rect.height() - 4, option.fontMetrics.height() + 2 * roomInButton);
  button.rect = QStyle::alignedRect(option.direction, Qt::AlignCenter,
                                    {option.rect.width() - 4, height}, option.rect);
  button.text = option.text;
  button.state = (option.state & QStyle::State_Enabled) | QStyle::State_Raised;
  style.drawControl(QStyle::CE_PushButton, &button, &painter, option.widget);
}

void paintTick(QPainter& painter, const QStyleOptionViewItem& option, const QStyle& style) {
  paintGround(painter, option, style);
  QStyleOptionViewItem tick(option);
  const QSize size(style.pixelMetric(QStyle::PM_IndicatorWidth, &option, option.widget),
                   style.pixelMetric(QStyle::PM_IndicatorHeight, &option, option.widget));
  tick.rect = QStyle::alignedRect(option.direction, Qt::AlignCenter, size, option.rect);
  const bool isTicked = option.checkState == Qt::Checked;
  tick.state.setFlag(isTicked ? QStyle::State_On : QStyle::State_Off);
  style.drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &tick, &painter, option.widget);
  // Dark styles draw its edge as dark as the ground.
  painter.setPen(option.palette.color(QPalette::PlaceholderText));
  painter.drawRect(tick.rect.adjusted(0, 0, -1, -1));
}

/// Lines above and below the row; the cell on which a key acts has a whole frame.
void paintFrame(QPainter& painter, const QRect& cell, const QColor& color, bool isWhole) {
  painter.fillRect(QRect(cell.topLeft(), QSize(cell.width(), frameWidth)), color);
  painter.fillRect(QRect(cell.left(), cell.bottom() + 1 - frameWidth, cell.width(), frameWidth),
                   color);
  if (!isWhole) return;
  painter.fillRect(QRect(cell.topLeft(), QSize(frameWidth, cell.height())), color);
  painter.fillRect(QRect(cell.right() + 1 - frameWidth, cell.top(), frameWidth, cell.height()),
                   color);
}

/// Without the program's own today the machine's is taken.
bool isPast(const QModelIndex& cell, const QWidget* table) {
  const QVariant today = table ? table->property(todayProperty) : QVariant();
  const QDate day = QLocale::c().toDate(cell.data().toString(), dayFormat);
  return day.isValid() && day < (today.isValid() ? today.toDate() : QDate::currentDate());
}

}  // namespace

GridCellDelegate::Standing GridCellDelegate::standingOf(const QModelIndex& cell,
                                                        const QWidget* table) const {
  const int done = look_.doneColumn;
  const bool isThere = cell.row() < grid_.get_Rows() && cell.column() < grid_.get_Cols();
  // The ticks of a column that does not show are not known.
  if (!isThere || done < 0 || done >= grid_.get_Cols() || !grid_.showsColumn(done))
    return Standing::open;
  if (grid_.get_cellChecked(cell.row(), done)) return Standing::done;
  return cell.column() == look_.dueColumn && isPast(cell, table) ? Standing::late : Standing::open;
}

// Selected rows keep the colours of their words.
void GridCellDelegate::initStyleOption(QStyleOptionViewItem* option,
                                       const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  QPalette& palette = option->palette;
  const bool isEven = option->features & QStyleOptionViewItem::Alternate;
  QColor ground = palette.color(isEven ? QPalette::AlternateBase : QPalette::Base);
  if (option->state & QStyle::State_Selected) {
    ground = softAccentOn(ground, palette);
    option->backgroundBrush = ground;
    option->state &= ~(QStyle::State_Selected | QStyle::State_MouseOver);
  }
  option->state &= ~QStyle::State_HasFocus;
  const Standing standing = standingOf(index, option->widget);
  const bool isDone = standing == Standing::done;
  const QPalette::ColorRole role = isDone ? QPalette::PlaceholderText : QPalette::Text;
  const QColor ink = standing == Standing::late ? overdueColor(ground) : palette.color(role);
  palette.setColor(QPalette::Text, readableOn(ground, ink));
}

void GridCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
  const int column = index.column();
  const std::int16_t type =
      column < grid_.get_Cols() ? grid_.get_colType(column) : grid_column::text;
  QStyleOptionViewItem cell(option);
  initStyleOption(&cell, index);
  const QStyle& style = option.widget ? *option.widget->style() : *QApplication::style();
  const auto paintCell = type == grid_column::tick     ? paintTick
                         : type == grid_column::button ? paintButton
                                                       : paintText;
  paintCell(*painter, cell, style);
  if ((option.state & QStyle::State_Selected) && option.widget && option.widget->hasFocus())
    paintFrame(*painter, option.rect, option.palette.color(QPalette::Highlight),
               option.state & QStyle::State_HasFocus);
}

}  // namespace autonotify::desktop
