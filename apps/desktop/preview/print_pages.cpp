#include "preview/print_pages.h"

#include <QPainter>
#include <QPdfDocument>
#include <QPrinter>
#include <QSaveFile>
#include <algorithm>

namespace autonotify::desktop {
namespace {

constexpr double pointsPerInch = 72;
/// Finer dots cost memory and are not seen.
constexpr int finestResolution = 300;

/// From 0, the last one included.
struct PageRange {
  int first;
  int last;
};

PageRange wantedPages(const QPdfDocument& document, const QPrinter& printer) {
  const int last = document.pageCount() - 1;
  if (printer.printRange() != QPrinter::PageRange) return {0, last};
  return {std::max(printer.fromPage() - 1, 0), std::min(printer.toPage() - 1, last)};
}

bool takesWholeFile(const QPrinter& printer) {
  return printer.outputFormat() == QPrinter::PdfFormat &&
         printer.printRange() == QPrinter::AllPages;
}

QString saveFile(const QByteArray& pdf, const QString& path) {
  QSaveFile file(path);
  if (file.open(QIODevice::WriteOnly) && file.write(pdf) == pdf.size() && file.commit()) return {};
  return QObject::tr("%1 cannot be written: %2.").arg(path, file.errorString());
}

void drawPage(QPdfDocument& document, int page, QPainter& painter, int printerResolution) {
  const QSizeF inches = document.pagePointSize(page) / pointsPerInch;
  const int resolution = std::min(printerResolution, finestResolution);
  const QImage image = document.render(page, (inches * resolution).toSize());
  painter.drawImage(QRectF({0, 0}, inches * printerResolution), image);
}

}  // namespace

QString printPages(QPdfDocument& document, const QByteArray& pdf, QPrinter& printer) {
  if (takesWholeFile(printer)) return saveFile(pdf, printer.outputFileName());
  const QString refusal = QObject::tr("The printer %1 does not take the pages.")
                              .arg(printer.outputFileName().isEmpty() ? printer.printerName()
                                                                      : printer.outputFileName());
  printer.setFullPage(true);
  QPainter painter;
  if (!painter.begin(&printer)) return refusal;
  const auto [first, last] = wantedPages(document, printer);
  for (int page = first; page <= last; ++page) {
    if (page > first && !printer.newPage()) return refusal;
    drawPage(document, page, painter, printer.resolution());
  }
  return painter.end() && printer.printerState() != QPrinter::Error ? QString() : refusal;
}

}  // namespace autonotify::desktop
