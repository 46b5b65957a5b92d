#include "preview/print_pages.h"

#include <QFile>
#include <QPageRanges>
#include <QPainter>
#include <QPdfDocument>
#include <QPrinter>
#include <QSaveFile>
#include <algorithm>

namespace autonotify::desktop {
namespace {

constexpr double pagePointsPerInch = 72;
/// Finer dots cost memory and are not seen.
constexpr int finestResolution = 300;

/// Counted from 0; all of them without a range.
QList<int> wantedPages(const QPdfDocument& document, const QPrinter& printer) {
  const QPageRanges ranges = printer.pageRanges();
  QList<int> pages;
  for (int page = 0; page < document.pageCount(); ++page) {
    if (ranges.isEmpty() || ranges.contains(page + 1)) pages.append(page);
  }
  return pages;
}

bool takesWholeFile(const QPrinter& printer) {
  return printer.outputFormat() == QPrinter::PdfFormat && printer.pageRanges().isEmpty();
}

QString saveFile(const QByteArray& pdf, const QString& path) {
  QSaveFile file(path);
  if (file.open(QIODevice::WriteOnly) && file.write(pdf) == pdf.size() && file.commit()) return {};
  return QObject::tr("%1 cannot be written: %2.").arg(path, file.errorString());
}

void drawPage(QPdfDocument& document, int page, QPainter& painter, int printerResolution) {
  const QSizeF inches = document.pagePointSize(page) / pagePointsPerInch;
  const int resolution = std::min(printerResolution, finestResolution);
  const QImage image = document.render(page, (inches * resolution).toSize());
  painter.drawImage(QRectF({0, 0}, inches * printerResolution), image);
}

/// Where the pages go; empty for nowhere.
QString placeOf(const QPrinter& printer) {
  return printer.outputFileName().isEmpty() ? printer.printerName() : printer.outputFileName();
}

QString refusalOf(const QPrinter& printer) {
  return QObject::tr("The printer %1 does not take the pages.").arg(placeOf(printer));
}

Printing draw(QPdfDocument& document, const QList<int>& pages, QPrinter& printer,
              const GoOnPrinting& mayGoOn) {
  QPainter painter;
  if (!painter.begin(&printer)) return {refusalOf(printer)};
  for (qsizetype i = 0; i < pages.size(); ++i) {
    const int printed = static_cast<int>(i);
    if (!mayGoOn(printed, static_cast<int>(pages.size()))) return {{}, printed};
    if (i > 0 && !printer.newPage()) return {refusalOf(printer)};
    drawPage(document, pages[i], painter, printer.resolution());
  }
  const bool isTaken = painter.end() && printer.printerState() != QPrinter::Error;
  return {isTaken ? QString() : refusalOf(printer)};
}

}  // namespace

Printing printPages(QPdfDocument& document, const QByteArray& pdf, QPrinter& printer,
                    const GoOnPrinting& mayGoOn) {
  if (placeOf(printer).isEmpty()) return {QObject::tr("There is no printer to print on.")};
  if (takesWholeFile(printer)) return {saveFile(pdf, printer.outputFileName())};
  const QList<int> pages = wantedPages(document, printer);
  if (pages.isEmpty())
    return {QObject::tr("The document has none of the pages that were chosen; it has %L1.")
                .arg(document.pageCount())};
  printer.setFullPage(true);
  Printing printing = draw(document, pages, printer, mayGoOn);
  if (printing.stoppedAfter && printer.outputFormat() == QPrinter::PdfFormat) {
    QFile::remove(printer.outputFileName());
    printing.stoppedAfter = 0;
  }
  return printing;
}

}  // namespace autonotify::desktop
