#include "day/WeeksChart.h"

#include <QAccessible>
#include <QGraphicsLayout>
#include <QGraphicsSimpleTextItem>
#include <QKeyEvent>
#include <QLocale>
#include <QtCharts/QBarCategoryAxis>
#include <QtCharts/QBarSet>
#include <QtCharts/QStackedBarSeries>
#include <QtCharts/QValueAxis>
#include <algorithm>
#include <iterator>
#include <utility>

#include "binding/DateBinding.h"
#include "colors.h"
#include "day/day_formats.h"

namespace autonotify::desktop {
namespace {

constexpr notifyType stacked[] = {nt_Email, nt_Letter, nt_Fax, nt_Phone};
constexpr std::size_t weeksBetweenLabels = 3;
constexpr double shareOfBar = 0.65;

/// Half of what the axis goes up to, so that its middle is a round number too.
int halfAxis(std::size_t greatest) {
  for (int power = 1;; power *= 10)
    for (const int step : {1, 2, 5})
      if (std::cmp_greater_equal(2 * step * power, greatest)) return step * power;
}

QFont smaller(QFont font) {
  font.setPointSizeF(font.pointSizeF() * 0.9);
  return font;
}

}  // namespace

std::vector<WeeksSeries> weeksSeries(const QPalette& palette) {
  const bool isDarkGround = isDark(palette);
  const QColor accent = palette.color(QPalette::Highlight);
  return {{nt_Email, accent},
          {nt_Letter, isDarkGround ? accent.darker(150) : accent.lighter(155)},
          {nt_Fax, isDarkGround ? QColor(0xb4, 0xbd, 0xc4) : QColor(0x59, 0x64, 0x6c)},
          {nt_Phone, isDarkGround ? QColor(0x78, 0x83, 0x8b) : QColor(0x8f, 0x99, 0x9f)}};
}

WeeksChart::WeeksChart(QWidget* parent)
    : QChartView(parent),
      series_(new QStackedBarSeries),
      weeksAxis_(new QBarCategoryAxis),
      countAxis_(new QValueAxis) {
  setObjectName("weeksChart");
  setFocusPolicy(Qt::StrongFocus);
  setFrameShape(NoFrame);
  setRenderHint(QPainter::Antialiasing);
  for ([[maybe_unused]] const notifyType channel : stacked) {
    sets_.push_back(new QBarSet(QString()));
    series_->append(sets_.back());
  }
  series_->setBarWidth(shareOfBar);
  chart()->addSeries(series_);
  chart()->addAxis(weeksAxis_, Qt::AlignBottom);
  chart()->addAxis(countAxis_, Qt::AlignLeft);
  series_->attachAxis(weeksAxis_);
  series_->attachAxis(countAxis_);
  chart()->legend()->hide();
  chart()->setBackgroundVisible(false);
  for (std::size_t i = 0; i < host::WorkingDay().weeks.size() / weeksBetweenLabels; ++i)
    labels_.push_back(new QGraphicsSimpleTextItem(chart()));
  for (int i = 0; i < 2; ++i) totals_.push_back(new QGraphicsSimpleTextItem(chart()));
  chart()->setMargins({0, 0, 0, fontMetrics().height()});
  chart()->layout()->setContentsMargins(0, 0, 0, 0);
  weeksAxis_->setGridLineVisible(false);
  weeksAxis_->setLineVisible(false);
  weeksAxis_->setLabelsVisible(false);
  countAxis_->setLineVisible(false);
  countAxis_->setTickCount(3);
  countAxis_->setLabelFormat("%d");
  connect(series_, &QStackedBarSeries::clicked, this, [this](int week) { choose(week); });
  // The bars find their places after the plot.
  connect(chart(), &QChart::plotAreaChanged, this, &WeeksChart::placeWords, Qt::QueuedConnection);
  colour();
}

void WeeksChart::showDay(const host::WorkingDay& day) {
  weeks_.assign(day.weeks.begin(), day.weeks.end());
  std::size_t greatest = 0;
  weeksAxis_->clear();
  for (const host::WeekAhead& week : weeks_)
    weeksAxis_->append(QString::number(week.monday.days()));
  for (std::size_t i = 0; i < std::size(stacked); ++i) {
    sets_[i]->remove(0, sets_[i]->count());
    for (const host::WeekAhead& week : weeks_)
      sets_[i]->append(static_cast<double>(host::countOf(week.counts, stacked[i])));
  }
  for (const host::WeekAhead& week : weeks_)
    greatest = std::max(greatest, host::totalOf(week.counts));
  countAxis_->setRange(0, 2 * halfAxis(greatest));
  placeWords();
}

/// The first bar and the highest one have their totals, every third its week.
void WeeksChart::placeWords() {
  if (weeks_.empty()) return;
  const auto highest = std::ranges::max_element(
      weeks_, {}, [](const host::WeekAhead& week) { return host::totalOf(week.counts); });
  const auto place = [&](QGraphicsSimpleTextItem& text, std::size_t week, std::size_t height,
                         double linesAbove) {
    const QPointF top =
        chart()->mapToPosition({static_cast<double>(week), static_cast<double>(height)}, series_);
    const QRectF size = text.boundingRect();
    text.setPos(std::max(top.x() - size.width() / 2, 0.0), top.y() - size.height() * linesAbove);
  };
  const std::size_t summed[] = {0, static_cast<std::size_t>(highest - weeks_.begin())};
  for (std::size_t i = 0; i < totals_.size(); ++i) {
    const std::size_t total = host::totalOf(weeks_[summed[i]].counts);
    totals_[i]->setText(total > 0 ? QLocale().toString(total) : QString());
    place(*totals_[i], summed[i], total, 1);
  }
  for (std::size_t i = 0; i < labels_.size(); ++i) {
    const std::size_t week = i * weeksBetweenLabels;
    labels_[i]->setText(shortDay(qtDate(weeks_[week].monday)));
    place(*labels_[i], week, 0, -0.3);
  }
}

void WeeksChart::colour() {
  const auto series = weeksSeries(palette());
  const QColor base = palette().color(QPalette::Base);
  for (std::size_t i = 0; i < series.size(); ++i) {
    sets_[i]->setColor(series[i].color);
    sets_[i]->setSelectedColor(palette().color(QPalette::Text));
    sets_[i]->setBorderColor(base);
  }
  setBackgroundBrush(base);
  const QColor secondary = palette().color(QPalette::PlaceholderText);
  for (QAbstractAxis* axis :
       {static_cast<QAbstractAxis*>(weeksAxis_), static_cast<QAbstractAxis*>(countAxis_)}) {
    axis->setLabelsColor(secondary);
    axis->setLabelsFont(smaller(font()));
    axis->setGridLineColor(palette().color(QPalette::Midlight));
  }
  QFont bold = smaller(font());
  bold.setBold(true);
  for (QGraphicsSimpleTextItem* total : totals_) {
    total->setFont(bold);
    total->setBrush(palette().color(QPalette::Text));
  }
  for (QGraphicsSimpleTextItem* text : labels_) {
    text->setFont(smaller(font()));
    text->setBrush(secondary);
  }
}

void WeeksChart::choose(int week) {
  if (week < 0 || week >= static_cast<int>(weeks_.size())) return;
  current_ = week;
  emit chosen(weeks_[static_cast<std::size_t>(week)].monday);
}

/// The bar on which the keys act, for eyes and ears.
void WeeksChart::showCurrent() {
  for (QBarSet* set : sets_) {
    set->deselectAllBars();
    set->selectBar(current_);
  }
  if (weeks_.empty()) return;
  const host::WeekAhead& week = weeks_[static_cast<std::size_t>(current_)];
  setAccessibleDescription(
      tr("Week of %1: %L2").arg(dayAndMonth(qtDate(week.monday))).arg(host::totalOf(week.counts)));
  QAccessibleEvent told(this, QAccessible::DescriptionChanged);
  QAccessible::updateAccessibility(&told);
}

void WeeksChart::keyPressEvent(QKeyEvent* event) {
  const int last = static_cast<int>(weeks_.size()) - 1;
  switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
      current_ =
          std::clamp(current_ + (event->key() == Qt::Key_Left ? -1 : 1), 0, std::max(last, 0));
      return showCurrent();
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      return choose(current_);
    default:
      return QChartView::keyPressEvent(event);
  }
}

void WeeksChart::focusInEvent(QFocusEvent* event) {
  QChartView::focusInEvent(event);
  showCurrent();
}

void WeeksChart::focusOutEvent(QFocusEvent* event) {
  QChartView::focusOutEvent(event);
  for (QBarSet* set : sets_) set->deselectAllBars();
}

void WeeksChart::changeEvent(QEvent* event) {
  QChartView::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) colour();
}

}  // namespace autonotify::desktop
