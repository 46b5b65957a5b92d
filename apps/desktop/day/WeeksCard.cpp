#include "day/WeeksCard.h"

#include <QEvent>
#include <QGridLayout>
#include <QLocale>

#include "day/WeeksChart.h"
#include "day/inked_icons.h"
#include "day/row_acts.h"

namespace autonotify::desktop {
namespace {

constexpr int heightOfChart = 176;
constexpr int squareSize = 8;
constexpr int lineIcon = 16;

}  // namespace

WeeksCard::WeeksCard(QWidget* parent) : Card(parent) {
  setObjectName("weeksCard");
  QLabel* title = newLabel("weeksTitle");
  title->setText(tr("Weeks ahead"));
  asHeading(*title);
  total_ = newLabel("weeksTotal", true);
  addPair(title, total_);
  chart_ = new WeeksChart(this);
  chart_->setMinimumHeight(heightOfChart);
  layout_->addWidget(chart_, 1);
  addRule();
  auto* table = new QGridLayout;
  table->setColumnStretch(2, 1);
  const QString headings[] = {tr("This week"), tr("12 weeks")};
  for (int column = 0; column < 2; ++column) {
    QLabel* heading = newLabel("", true);
    heading->setText(headings[column]);
    heading->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    table->addWidget(heading, 0, 3 + column, Qt::AlignRight);
  }
  for (const WeeksSeries& series : weeksSeries(palette())) addLine(*table, series.channel);
  layout_->addLayout(table);
  connect(chart_, &WeeksChart::chosen, this, &WeeksCard::weekChosen);
  colour();
}

void WeeksCard::addLine(QGridLayout& table, notifyType channel) {
  const int row = static_cast<int>(lines_.size()) + 1;
  const auto figure = [&](int column, bool isSecondary) {
    QLabel* label = newLabel("", isSecondary);
    label->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    table.addWidget(label, row, column, Qt::AlignRight);
    return label;
  };
  auto* square = new QLabel(this);
  auto* icon = new QLabel(this);
  QLabel* name = newLabel("");
  name->setText(channelText(channel));
  table.addWidget(square, row, 0);
  table.addWidget(icon, row, 1);
  table.addWidget(name, row, 2);
  lines_.push_back({channel, square, icon, figure(3, true), figure(4, false)});
}

void WeeksCard::showDay(const host::WorkingDay& day) {
  std::size_t total = 0;
  for (const host::WeekAhead& week : day.weeks) total += host::totalOf(week.counts);
  total_->setText(tr("%L1 in 12 weeks").arg(total));
  for (const Line& line : lines_) {
    std::size_t sum = 0;
    for (const host::WeekAhead& week : day.weeks) sum += host::countOf(week.counts, line.channel);
    line.thisWeek->setText(
        QLocale().toString(host::countOf(day.weeks.front().counts, line.channel)));
    line.allWeeks->setText(QLocale().toString(sum));
  }
  chart_->setAccessibleName(
      tr("Weeks ahead, %Ln notifications in 12 weeks", "", static_cast<int>(total)));
  chart_->showDay(day);
}

void WeeksCard::colour() {
  const auto series = weeksSeries(palette());
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    QPixmap square(squareSize, squareSize);
    square.fill(series[i].color);
    lines_[i].square->setPixmap(square);
    lines_[i].icon->setPixmap(inked(channelIcon(lines_[i].channel), lineIcon,
                                    palette().color(QPalette::Text), devicePixelRatioF()));
  }
}

void WeeksCard::changeEvent(QEvent* event) {
  Card::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && !lines_.empty()) colour();
}

}  // namespace autonotify::desktop
