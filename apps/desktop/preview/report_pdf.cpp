#include "preview/report_pdf.h"

#include "host/documents/PdfDocument.h"

namespace autonotify::desktop {
namespace {

template <class... Printed>
QByteArray pdfWith(const Printed&... printed) {
  QByteArray pdf;
  host::PdfDocument document([&](std::string_view bytes) {
    pdf.append(bytes.data(), static_cast<qsizetype>(bytes.size()));
  });
  document.add(printed...);
  document.finish();
  return pdf;
}

}  // namespace

QByteArray pdfOf(const Report& report) {
  return pdfWith(host::PrintedReport(report));
}

QByteArray pdfOf(const Grid& grid, const GridDialog& printed) {
  return pdfWith(grid, printed);
}

}  // namespace autonotify::desktop
