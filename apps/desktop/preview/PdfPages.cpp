#include "preview/PdfPages.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPdfDocument>
#include <QPdfLink>
#include <QPdfPageNavigator>
#include <QScreen>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

namespace autonotify::desktop {
namespace {

constexpr double pointsPerInch = 72;
constexpr double smallestZoom = 0.25;
constexpr double largestZoom = 4;
constexpr double zoomStep = 1.25;
constexpr int spaceBetween = 12;
/// What is seen above a place that was found, in points.
constexpr double spaceAbove = 72;
// Paper is white in dark colours too.
constexpr QColor placeColor(255, 224, 130);
constexpr QColor currentColor(255, 167, 38);

double screenPoint() {
  return QGuiApplication::primaryScreen()->logicalDotsPerInch() / pointsPerInch;
}

}  // namespace

PdfPages::PdfPages(QPdfDocument& document, QWidget* parent) : QPdfView(parent) {
  setDocument(&document);
  setPageMode(PageMode::MultiPage);
  setPageSpacing(spaceBetween);
  setDocumentMargins({spaceBetween, spaceBetween, spaceBetween, spaceBetween});
  setZoomMode(ZoomMode::FitToWidth);
  connect(this, &QPdfView::zoomFactorChanged, this, &PdfPages::zoomed);
  connect(this, &QPdfView::zoomModeChanged, this, &PdfPages::zoomed);
  found_.setDocument(&document);
  connect(&found_, &QAbstractItemModel::rowsInserted, this, [this] {
    if (current_ < 0) showPlace(0);
    viewport()->update();
    emit foundChanged();
  });
}

int PdfPages::pages() const {
  return document()->pageCount();
}

int PdfPages::page() const {
  return pageNavigator()->currentPage();
}

void PdfPages::turnTo(int page) {
  pageNavigator()->jump(std::clamp(page, 0, pages() - 1), {});
}

void PdfPages::enlarge() {
  zoomBy(zoomStep);
}

void PdfPages::reduce() {
  zoomBy(1 / zoomStep);
}

void PdfPages::zoomBy(double factor) {
  const double zoom = scaleOf(page()) / screenPoint() * factor;
  setZoomMode(ZoomMode::Custom);
  setZoomFactor(std::clamp(zoom, smallestZoom, largestZoom));
}

int PdfPages::zoomPercent() const {
  return qRound(scaleOf(page()) / screenPoint() * 100);
}

void PdfPages::zoomTo(int percent) {
  setZoomMode(ZoomMode::Custom);
  setZoomFactor(percent / 100.0);
}

void PdfPages::resizeEvent(QResizeEvent* event) {
  QPdfView::resizeEvent(event);
  emit zoomed();
}

void PdfPages::find(const QString& text) {
  current_ = -1;
  found_.setSearchString(text);
  viewport()->update();
  emit foundChanged();
}

void PdfPages::showFound(bool isBackward) {
  const int count = found();
  if (count == 0) return;
  showPlace((current_ + (isBackward ? count - 1 : 1)) % count);
  emit foundChanged();
}

void PdfPages::showPlace(int place) {
  current_ = place;
  const QPdfLink link = found_.resultAtIndex(place);
  pageNavigator()->jump(link.page(), {0, std::max(0.0, link.location().y() - spaceAbove)});
  viewport()->update();
}

double PdfPages::scaleOf(int page) const {
  const QSizeF paper = document()->pagePointSize(page);
  const QMargins margins = documentMargins();
  const double width = viewport()->width() - margins.left() - margins.right();
  const double height = viewport()->height() - pageSpacing();
  switch (zoomMode()) {
    case ZoomMode::FitToWidth:
      return width / paper.width();
    case ZoomMode::FitInView:
      return std::min(width / paper.width(), height / paper.height());
    default:
      return zoomFactor() * screenPoint();
  }
}

std::vector<QRectF> PdfPages::places() const {
  std::vector<QRectF> places;
  const QMargins margins = documentMargins();
  double top = margins.top() - verticalScrollBar()->value();
  double room = viewport()->width();
  for (int page = 0; page < pages(); ++page) {
    const QSizeF size = document()->pagePointSize(page) * scaleOf(page);
    places.emplace_back(QPointF(0, top), size);
    top += size.height() + pageSpacing();
    room = std::max(room, size.width() + margins.left() + margins.right());
  }
  for (QRectF& place : places)
    place.moveLeft((room - place.width()) / 2 - horizontalScrollBar()->value());
  return places;
}

void PdfPages::paintEvent(QPaintEvent* event) {
  QPdfView::paintEvent(event);
  if (found() == 0) return;
  QPainter painter(viewport());
  painter.setCompositionMode(QPainter::CompositionMode_Multiply);
  painter.setPen(Qt::NoPen);
  const QRectF seen = viewport()->rect();
  const std::vector<QRectF> all = places();
  for (int page = 0; page < pages(); ++page) {
    const QRectF& place = all[static_cast<std::size_t>(page)];
    if (place.intersects(seen)) mark(painter, page, place.topLeft());
  }
}

void PdfPages::mark(QPainter& painter, int page, QPointF corner) const {
  const double scale = scaleOf(page);
  const auto draw = [&](const QPdfLink& link, QColor color) {
    painter.setBrush(color);
    for (const QRectF& words : link.rectangles())
      painter.drawRect(QRectF(corner + words.topLeft() * scale, words.size() * scale));
  };
  for (const QPdfLink& link : found_.resultsOnPage(page)) draw(link, placeColor);
  const QPdfLink shown = found_.resultAtIndex(current_);
  if (shown.page() == page) draw(shown, currentColor);
}

void PdfPages::wheelEvent(QWheelEvent* event) {
  if (!(event->modifiers() & Qt::ControlModifier)) return QPdfView::wheelEvent(event);
  if (event->angleDelta().y() != 0) event->angleDelta().y() > 0 ? enlarge() : reduce();
  event->accept();
}

}  // namespace autonotify::desktop
