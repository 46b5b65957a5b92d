#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "host/documents/PrintedReport.h"
#include "host/documents/cairo_handles.h"
#include "platform/controls/Grid.h"

namespace autonotify::host {

class PageFlow;

/// Reports as pages of a PDF, one report behind the other. Pages are handed on as they are made, so
/// that the memory needed does not grow with the number of reports, nor with the length of one.
class PdfDocument {
 public:
  /// Takes what the document is made of, in order. What it throws comes out of the call that made
  /// the pages, and the document is of no use then.
  using Write = std::function<void(std::string_view bytes)>;

  explicit PdfDocument(Write write);
  ~PdfDocument();
  PdfDocument(const PdfDocument&) = delete;
  PdfDocument& operator=(const PdfDocument&) = delete;

  /// Gives the number of pages that it took. A document of many has a list of contents with `title`
  /// in it; empty for none.
  int add(const PrintedReport& report, const std::string& title = {});
  /// The rows of a grid as they stand.
  int add(const Grid& grid, const GridDialog& printed);
  /// All pages of all reports.
  int pages() const { return pages_; }
  /// The document is whole from here on; it has one report at least.
  void finish();

 private:
  static cairo_status_t writeThrough(void* document, const unsigned char* bytes, unsigned size);
  int endPages(PageFlow& flow);
  void requireWritten();

  Write write_;
  std::exception_ptr failure_;
  CairoHandle<cairo_surface_t> surface_;
  CairoHandle<cairo_t> pen_;
  PangoHandle<PangoContext> context_;
  int pages_ = 0;
};

}  // namespace autonotify::host
