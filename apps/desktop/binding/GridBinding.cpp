#include "binding/GridBinding.h"

#include <QAbstractButton>
#include <QBoxLayout>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyle>
#include <algorithm>
#include <cmath>
#include <utility>

#include "SortHeader.h"
#include "colors.h"
#include "qt_text.h"

namespace autonotify::desktop {
namespace {

constexpr double twipsPerInch = 1440;
constexpr int leastColumnPixels = 16;
constexpr int roomAboveText = 4;
constexpr int roomAboveHeading = 6;
constexpr int roomBesideHeading = 16;
constexpr const char* widestDay = "May 30, 2026";
/// Of which the widths of words are taken: more than a screen shows.
constexpr int rowsMeasured = 100;
/// Of text in a row whose words wrap.
constexpr int wrappedLines = 2;

}  // namespace

GridBinding::GridBinding(Form& form, Grid& control, QTableView& widget)
    : BindingOf(form, control, widget),
      look_(widget),
      model_(control, look_),
      delegate_(control, look_) {
  bindTable();
  frozen_ = std::make_unique<FrozenColumns>(widget);
  totals_ = std::make_unique<GridTotals>(control, widget);
  note_ = std::make_unique<QLabel>(look_.emptyText, &widget);
  note_->setAlignment(Qt::AlignCenter);
  note_->setWordWrap(true);
  connect(note_.get(), &QLabel::linkActivated, this, [this](const QString& name) {
    if (auto* button = widget_.window()->findChild<QAbstractButton*>(name)) button->click();
  });
  placeTotals();
  bindHeader(*widget.horizontalHeader());
  for (QWidget* watched : {widget.viewport(), frozen_->viewport(), static_cast<QWidget*>(&*note_)})
    watched->installEventFilter(this);
}

// The view outlives the binding.
GridBinding::~GridBinding() {
  frozen_.reset();
  totals_.reset();
  widget_.setModel(nullptr);
  widget_.setItemDelegate(nullptr);
}

void GridBinding::bindTable() {
  QTableView& widget = widget_;
  SortHeader::giveTo(widget);
  widget.setModel(&model_);
  widget.setItemDelegate(&delegate_);
  widget.setEditTriggers(QAbstractItemView::NoEditTriggers);
  widget.setSelectionBehavior(QAbstractItemView::SelectRows);
  widget.setSelectionMode(QAbstractItemView::SingleSelection);
  widget.setTabKeyNavigation(false);
  widget.setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
  widget.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  widget.setContextMenuPolicy(Qt::PreventContextMenu);
  widget.verticalHeader()->hide();
  widget.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  connect(&widget, &QTableView::clicked, this, &GridBinding::clickCell);
  connect(widget.selectionModel(), &QItemSelectionModel::currentChanged, this,
          &GridBinding::moveTo);
  connect(widget.verticalScrollBar(), &QScrollBar::valueChanged, this,
          [this] { pass([this](Person&) { control_.acceptScroll(); }); });
}

void GridBinding::bindHeader(QHeaderView& header) {
  header.setMinimumSectionSize(leastColumnPixels);
  connect(&header, &QHeaderView::sectionClicked, this, [this](int column) {
    if (isDrawnAsItIs()) pass([=, this](Person& person) { person.clickHeading(control_, column); });
  });
  connect(&header, &QHeaderView::sectionResized, this,
          [this](int column, int, int pixels) { sizeColumn(column, pixels); });
}

/// Directly below the table, where its layout puts one below the other.
void GridBinding::placeTotals() {
  totals_->hide();
  auto* box = qobject_cast<QBoxLayout*>(widget_.parentWidget()->layout());
  if (box) box->insertWidget(box->indexOf(&widget_) + 1, totals_.get());
}

void GridBinding::sizeColumn(int column, int pixels) {
  if (!isDrawnAsItIs() || isSizing_) return;
  isSizing_ = true;
  pass([&](Person& person) {
    person.sizeColumn(control_, column, twipsOf(pixels / stretchOf(column)));
  });
  isSizing_ = false;
}

void GridBinding::drawState() {
  if (!control_.get_Redraw()) return drawNothing();
  if (isCleared_) {
    drawList();
    drawValue();
  }
  if (!isDrawnAsItIs()) return;
  drawColumns();
  drawSortKey();
  drawColors();
  drawRowHeight();
  frozen_->showUpTo(control_.get(GridSetting::FreezeAtCol));
  totals_->setVisible(control_.isShown() && control_.get(GridSetting::ShowFloatingTotalsLine));
}

void GridBinding::drawList() {
  isCleared_ = false;
  model_.reload();
}

/// A column in which the first day has come needs room for it.
void GridBinding::drawRows(const RowChange& change) {
  model_.showChange(change);
  if (change.kind == RowChange::Kind::changed && isDrawnAsItIs() && fitted_ != widths())
    drawColumns();
}

/// A work that ended half way leaves the painting off: what is drawn is not what the rows are by
/// now, and no click would reach them.
void GridBinding::drawNothing() {
  if (!control_.isShown()) return;
  model_.clear();
  isCleared_ = true;
  drawNote();
}

void GridBinding::drawColumns() {
  fitToRoom();
  QHeaderView& header = *widget_.horizontalHeader();
  header.setSectionsClickable(control_.get(GridSetting::AllowColumnSort));
  header.setSectionResizeMode(control_.get(GridSetting::AllowColumnResizing)
                                  ? QHeaderView::Interactive
                                  : QHeaderView::Fixed);
  bool hasLong = false;
  for (int column = 0; column < control_.get_Cols(); ++column) {
    const bool isShown = control_.showsColumn(column);
    widget_.setColumnHidden(column, !isShown);
    if (isShown) widget_.setColumnWidth(column, drawnWidth(column));
    hasLong = hasLong || (isShown && isHeadingLong(column));
  }
  drawHeadingHeight(hasLong ? wrappedLines : 1);
  model_.showHeadings();
}

void GridBinding::drawSortKey() {
  const GridSortKey& key = control_.sortKeys().front();
  QHeaderView& header = *widget_.horizontalHeader();
  header.setSortIndicatorShown(key.column >= 0);
  header.setSortIndicator(
      key.column, key.order == sort_order::descending ? Qt::DescendingOrder : Qt::AscendingOrder);
}

int GridBinding::widthOfText(const QString& text) const {
  return text.isEmpty() ? 0 : widget_.fontMetrics().horizontalAdvance(text) + roomBesideHeading;
}

void GridBinding::drawHeadingHeight(int lines) {
  QHeaderView& header = *widget_.horizontalHeader();
  const int height = lines * header.fontMetrics().height() + 2 * roomAboveHeading;
  if (header.minimumHeight() == height) return;
  header.setMinimumHeight(height);
  // The table does not see it by itself.
  emit header.geometriesChanged();
}

bool GridBinding::isHeadingLong(int column) const {
  const QString heading = shown(control_.get_ColHeading(column));
  return widthOfText(heading) - roomBesideHeading / 2 > widget_.columnWidth(column);
}

/// The text of a button is never cut off.
int GridBinding::drawnWidth(int column) const {
  const double told = pixelsOf(control_.get_ColWidth(column));
  if (!isButton(column)) return qRound(told * stretchOf(column));
  const bool hasText = control_.get_Rows() > 0;
  return std::max(qRound(told), hasText ? widthOfText(shown(control_.get_CellText(0, column))) : 0);
}

double GridBinding::stretchOf(int column) const {
  const auto found = stretches_.find(column);
  return found == stretches_.end() ? 1 : found->second;
}

GridBinding::Widths GridBinding::widths() const {
  Widths widths;
  for (int column = 0; column < control_.get_Cols(); ++column) {
    if (!control_.showsColumn(column)) continue;
    const int told = control_.get_ColWidth(column);
    if (isButton(column)) {
      widths.toldButtons += told;
      widths.buttons += drawnWidth(column);
    } else {
      widths.told.emplace_back(column, told);
      if (isEmptyOfDays(column)) widths.empty.push_back(column);
    }
  }
  return widths;
}

// What buttons take beyond what they are told the others give, also when the program fits them.
void GridBinding::fitToRoom() {
  const Widths all = widths();
  if (std::exchange(fitted_, all) == all || isSizing_) return;
  control_.put_Width(twipsOf(widget_.width() - all.buttons) + all.toldButtons);
  stretches_.clear();
  if (!look_.stretches) return;
  const int scrollBar = widget_.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &widget_);
  stretch(all, widget_.width() - 2 * widget_.frameWidth() - scrollBar - all.buttons);
}

void GridBinding::stretch(const Widths& all, double room) {
  std::vector<ColumnWish> wishes;
  for (const auto& [column, told] : all.told) wishes.push_back(wishOf(column, pixelsOf(told)));
  const std::vector<double> fitted = fitColumns(wishes, room);
  for (std::size_t i = 0; i < fitted.size(); ++i)
    stretches_[all.told[i].first] = std::floor(fitted[i]) / pixelsOf(all.told[i].second);
}

/// Days are never cut off; where there are none, the heading alone counts. A tick needs what its
/// heading does.
ColumnWish GridBinding::wishOf(int column, double told) const {
  const QString text = shown(control_.get_ColHeading(column));
  const double heading = widthOfText(text);
  double word = 0;
  for (const QString& each : text.split(' ')) word = std::max<double>(word, widthOfText(each));
  switch (control_.get_colType(column)) {
    case grid_column::date:
      if (isEmptyOfDays(column)) return {word, heading, 0, false, word};
      return {told, heading, static_cast<double>(widthOfText(widestDay)), true, word};
    case grid_column::tick:
      return {told, heading, heading, false, word};
    default:
      return {told, heading, widthOfWords(column), false, word};
  }
}

bool GridBinding::isEmptyOfDays(int column) const {
  if (control_.get_colType(column) != grid_column::date) return false;
  for (int row = 0; row < std::min(control_.get_Rows(), rowsMeasured); ++row)
    if (!control_.get_CellText(row, column).empty()) return false;
  return true;
}

double GridBinding::widthOfWords(int column) const {
  int widest = 0;
  for (int row = 0; row < std::min(control_.get_Rows(), rowsMeasured); ++row)
    widest = std::max(widest, widthOfText(shown(control_.get_CellText(row, column))));
  return widest;
}

void GridBinding::drawColors() {
  QPalette palette;
  const auto paint = [&](GridSetting setting, QPalette::ColorRole role, int unchosen) {
    const int color = control_.get(setting);
    if (color >= 0 && color != unchosen) palette.setColor(role, colorOf(color));
  };
  paint(GridSetting::BackColor, QPalette::Base, unchosenRowColor);
  paint(GridSetting::BackColorEvenRows, QPalette::AlternateBase, unchosenEvenRowColor);
  if (palette != widget_.palette()) widget_.setPalette(palette);
  widget_.setAlternatingRowColors(control_.get(GridSetting::BackColorEvenRowsEnabled));
}

void GridBinding::drawRowHeight() {
  const bool wraps = control_.get(GridSetting::AllowWordWrap);
  const int text = widget_.fontMetrics().height() * (wraps ? wrappedLines : 1) + 2 * roomAboveText;
  const int least = qRound(pixelsOf(control_.get(GridSetting::MinRowHeight)));
  widget_.setWordWrap(wraps);
  widget_.verticalHeader()->setDefaultSectionSize(std::max(text, least));
}

void GridBinding::drawNote() {
  note_->setGeometry(widget_.viewport()->geometry());
  note_->setVisible(model_.rowCount() == 0 && control_.get_Cols() > 0);
}

void GridBinding::drawValue() {
  drawNote();
  if (!isDrawnAsItIs()) return;
  const int row = control_.get_Row();
  const QModelIndex before = widget_.currentIndex();
  if (row < 0) return widget_.setCurrentIndex({});
  if (before.row() == row) return;
  const int column =
      before.isValid() ? before.column() : widget_.horizontalHeader()->logicalIndexAt(0);
  widget_.setCurrentIndex(model_.index(row, std::max(column, 0)));
}

bool GridBinding::isDrawnAsItIs() const {
  return control_.get_Redraw() && model_.rowCount() == control_.get_Rows() &&
         model_.columnCount() == control_.get_Cols();
}

// Who clicks twice means it once: what a button does must not be done twice.
void GridBinding::clickCell(const QModelIndex& index) {
  if (std::exchange(isSecondClick_, false) || !isDrawnAsItIs() || !index.isValid()) return;
  passAlone([row = index.row(), column = index.column(), this](Person& person) {
    person.clickCell(control_, row, column);
  });
}

void GridBinding::moveTo(const QModelIndex& index) {
  if (!isDrawnAsItIs() || !index.isValid()) return;
  pass([row = index.row(), this](Person& person) { person.moveTo(control_, row); });
}

void GridBinding::rightClick() {
  pass([this](Person& person) { person.rightClick(control_); });
}

bool GridBinding::passKey(const QKeyEvent& key) {
  const bool isPress =
      key.key() == Qt::Key_Space || key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
  if (isPress && widget_.currentIndex().isValid()) {
    if (!key.isAutoRepeat()) clickCell(widget_.currentIndex());
    return true;
  }
  const bool isMenu = key.key() == Qt::Key_Menu ||
                      (key.key() == Qt::Key_F10 && key.modifiers() == Qt::ShiftModifier);
  if (isMenu) rightClick();
  return isMenu;
}

bool GridBinding::isOfRows(const QObject* watched) const {
  return watched == widget_.viewport() || watched == note_.get() ||
         (frozen_ && watched == frozen_->viewport());
}

void GridBinding::watchMouse(const QMouseEvent& event) {
  if (event.type() == QEvent::MouseButtonPress) isSecondClick_ = false;
  if (event.type() == QEvent::MouseButtonDblClick) isSecondClick_ = true;
  if (event.type() == QEvent::MouseButtonRelease && event.button() == Qt::RightButton) rightClick();
}

// Back from a load, the rows are what the person goes on in.
void GridBinding::followEvent(const QEvent& event) {
  if (event.type() == QEvent::Show && look_.takesFocus)
    QMetaObject::invokeMethod(
        this, [this] { widget_.setFocus(Qt::OtherFocusReason); }, Qt::QueuedConnection);
  if (event.type() != QEvent::Resize) return;
  fitted_ = {};
  render();
}

bool GridBinding::eventFilter(QObject* watched, QEvent* event) {
  if (isOfRows(watched)) {
    if (auto* mouse = dynamic_cast<QMouseEvent*>(event)) watchMouse(*mouse);
    return false;
  }
  followEvent(*event);
  const bool isDone = Binding::eventFilter(watched, event);
  if (isDone || event->type() != QEvent::KeyPress) return isDone;
  return passKey(static_cast<QKeyEvent&>(*event));
}

double GridBinding::pixelsOf(int twips) const {
  return twips * widget_.logicalDpiX() / twipsPerInch;
}

int GridBinding::twipsOf(double pixels) const {
  return qRound(pixels * twipsPerInch / widget_.logicalDpiX());
}

}  // namespace autonotify::desktop
