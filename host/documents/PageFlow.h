#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "host/documents/PrintedReport.h"
#include "host/documents/cairo_handles.h"

namespace autonotify::host {

/// In points.
struct Paper {
  double width;
  double height;
};
inline constexpr Paper letterPaper{612, 792};
inline constexpr Paper landscapePaper{letterPaper.height, letterPaper.width};

/// How a text looks.
struct TextLook {
  double size;
  PangoWeight weight = PANGO_WEIGHT_NORMAL;
  /// 0 is black, 1 white.
  double grey = 0;
  PangoAlignment alignment = PANGO_ALIGN_LEFT;
  /// The distance of lines as a multiple of the font's own.
  double spacing = 1.0;
};

/// A text of a row, and its share of the row's width.
struct PageCell {
  std::string text;
  double share;
};

/// Texts and rules, put below each other from the head of a page on, over as many pages as they
/// need. Any bytes are drawn: those that are no UTF-8 as replacement characters.
class PageFlow {
 public:
  /// Draws the head of each page behind the first.
  using RunningHead = std::function<void(PageFlow&)>;

  PageFlow(cairo_t* pen, PangoContext* context, const Report::Margins& margins,
           const Paper& paper = letterPaper);

  void setRunningHead(RunningHead head) { head_ = std::move(head); }
  /// Paragraphs end at line ends. They begin `indent` points right of the margin.
  void text(std::string_view text, const TextLook& look, double indent = 0);
  /// One line, cut with an ellipsis where it is too long. A text that comes next stands at its
  /// height, a rule below it.
  void label(std::string_view text, const TextLook& look);
  /// Texts side by side, each one line that is cut with an ellipsis where it is too long.
  void row(std::span<const PageCell> cells, const TextLook& look);
  /// `thickness` in points.
  void rule(double thickness, double grey);
  void gap(double points) { y_ += points; }
  /// Ends the last page and gives the number of pages.
  int finish();

 private:
  PangoHandle<PangoLayout> layOut(std::string_view text, const TextLook& look, double indent) const;
  /// The same in one line, no wider than that.
  PangoHandle<PangoLayout> layOutLine(std::string_view text, const TextLook& look,
                                      double width) const;
  /// Draws lines of the paragraph and gives the bytes that they hold.
  std::size_t lines(std::string_view paragraph, const TextLook& look, double indent);
  /// Draws the line, on a page that has room for `together` of them.
  void line(PangoLayoutIter* lines, const TextLook& look, double indent, int together);
  void makeRoom(double height);
  void nextPage();
  void pageNumber();
  double width() const { return paper_.width - margins_.left - margins_.right; }

  cairo_t* pen_;
  PangoContext* context_;
  Report::Margins margins_;
  Paper paper_;
  RunningHead head_;
  int page_ = 1;
  double y_;
  /// Where the texts of this page begin.
  double top_;
  double labelBottom_ = 0;
};

}  // namespace autonotify::host
