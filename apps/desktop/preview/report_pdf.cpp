#include "preview/report_pdf.h"

#include "host/documents/PdfDocument.h"

namespace autonotify::desktop {

QByteArray pdfOf(const Report& report) {
  QByteArray pdf;
  host::PdfDocument document([&](std::string_view bytes) {
    pdf.append(bytes.data(), static_cast<qsizetype>(bytes.size()));
  });
  document.add(host::PrintedReport(report));
  document.finish();
  return pdf;
}

}  // namespace autonotify::desktop
