#include "host/documents/PdfDocument.h"

#include <cairo-pdf.h>

#include <exception>

#include "host/documents/PageFlow.h"
#include "host/documents/grid_pages.h"
#include "host/documents/report_pages.h"
#include "host/words/Words.h"
#include "platform/PlatformError.h"

namespace autonotify::host {
namespace {

/// Letters stand where they belong on paper, not on the pixels of a screen.
PangoHandle<PangoContext> paperContext(cairo_t* pen) {
  PangoHandle<PangoContext> context(pango_cairo_create_context(pen));
  const CairoHandle<cairo_font_options_t> options(cairo_font_options_create());
  cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
  pango_cairo_context_set_font_options(context.get(), options.get());
  pango_context_set_round_glyph_positions(context.get(), FALSE);
  return context;
}

}  // namespace

PdfDocument::PdfDocument(Write write)
    : write_(std::move(write)),
      surface_(cairo_pdf_surface_create_for_stream(writeThrough, this, letterPaper.width,
                                                   letterPaper.height)),
      pen_(cairo_create(surface_.get())),
      context_(paperContext(pen_.get())) {
  requireWritten();
}

PdfDocument::~PdfDocument() {
  // The surface writes its end when it goes, which nobody wants any more.
  write_ = nullptr;
}

int PdfDocument::add(const PrintedReport& report, const std::string& title) {
  if (!title.empty())
    cairo_pdf_surface_add_outline(surface_.get(), CAIRO_PDF_OUTLINE_ROOT, title.c_str(),
                                  ("page=" + std::to_string(pages_ + 1) + " pos=[0 0]").c_str(),
                                  static_cast<cairo_pdf_outline_flags_t>(0));
  cairo_pdf_surface_set_size(surface_.get(), letterPaper.width, letterPaper.height);
  PageFlow flow(pen_.get(), context_.get(), report.margins());
  drawReport(flow, report);
  return endPages(flow);
}

int PdfDocument::add(const Grid& grid, const GridDialog& printed) {
  const Paper paper = paperOf(grid, printed);
  cairo_pdf_surface_set_size(surface_.get(), paper.width, paper.height);
  PageFlow flow(pen_.get(), context_.get(), gridMargins, paper);
  drawGrid(flow, grid, printed);
  return endPages(flow);
}

int PdfDocument::endPages(PageFlow& flow) {
  const int pages = flow.finish();
  requireWritten();
  pages_ += pages;
  return pages;
}

void PdfDocument::finish() {
  cairo_surface_finish(surface_.get());
  requireWritten();
}

cairo_status_t PdfDocument::writeThrough(void* document, const unsigned char* bytes,
                                         unsigned size) {
  auto& self = *static_cast<PdfDocument*>(document);
  if (!self.write_) return CAIRO_STATUS_SUCCESS;
  try {
    self.write_({reinterpret_cast<const char*>(bytes), size});
    return CAIRO_STATUS_SUCCESS;
  } catch (...) {
    self.failure_ = std::current_exception();
    self.write_ = nullptr;
    return CAIRO_STATUS_WRITE_ERROR;
  }
}

void PdfDocument::requireWritten() {
  if (failure_) std::rethrow_exception(failure_);
  for (const cairo_status_t status :
       {cairo_surface_status(surface_.get()), cairo_status(pen_.get())}) {
    if (status == CAIRO_STATUS_NO_MEMORY) throw std::bad_alloc();
    if (status != CAIRO_STATUS_SUCCESS && status != CAIRO_STATUS_SURFACE_FINISHED)
      throw PlatformError(error_number::invalidProcedureCall,
                          Words::tr("Cannot make the PDF: %1", {cairo_status_to_string(status)}),
                          "PdfDocument");
  }
}

}  // namespace autonotify::host
