#include "host/documents/PageFlow.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <utility>
#include <vector>

namespace autonotify::host {
namespace {

/// The first that is there, and of the others what it lacks.
constexpr const char* families = "Lato, Noto Sans, DejaVu Sans, Sans";
constexpr double tabWidth = 36;
constexpr double gapOfCells = 6;
constexpr double leastCell = 1;
constexpr TextLook pageNumberLook{9, PANGO_WEIGHT_NORMAL, 0.35, PANGO_ALIGN_CENTER};

double points(int pangoUnits) {
  return static_cast<double>(pangoUnits) / PANGO_SCALE;
}
int pangoUnits(double points) {
  return static_cast<int>(points * PANGO_SCALE);
}

PangoHandle<PangoFontDescription> fontOf(const TextLook& look) {
  PangoHandle<PangoFontDescription> font(pango_font_description_new());
  pango_font_description_set_family_static(font.get(), families);
  pango_font_description_set_absolute_size(font.get(), look.size * PANGO_SCALE);
  pango_font_description_set_weight(font.get(), look.weight);
  return font;
}

PangoTabArray* tabStops() {
  static const PangoHandle<PangoTabArray> stops(
      pango_tab_array_new_with_positions(1, FALSE, PANGO_TAB_LEFT, pangoUnits(tabWidth)));
  return stops.get();
}

/// Valid UTF-8 without what would be drawn as a box of digits.
std::string drawable(std::string_view text) {
  const PangoHandle<char> valid(g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())));
  std::string result(valid.get());
  for (char& c : result) {
    if (static_cast<unsigned char>(c) < ' ' && !std::strchr("\t\r\n", c)) c = ' ';
  }
  return result;
}

std::string_view withoutBlankEnd(std::string_view text) {
  return text.substr(0, text.find_last_not_of(" \t\r\n") + 1);
}

/// Takes the first paragraph off the text.
std::string_view takeParagraph(std::string_view& text) {
  const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
  const std::string_view paragraph = text.substr(0, end);
  text.remove_prefix(end);
  if (text.starts_with("\r\n")) {
    text.remove_prefix(2);
  } else if (!text.empty()) {
    text.remove_prefix(1);
  }
  return paragraph;
}

/// As much of a paragraph as is laid out at a time: the work for a line grows with what follows it.
std::string_view pieceOf(std::string_view paragraph) {
  constexpr std::size_t largest = 8192;
  if (paragraph.size() <= largest) return paragraph;
  const auto isWithinCharacter = [&](std::size_t at) { return (paragraph[at] & 0xC0) == 0x80; };
  std::size_t end = largest;
  while (isWithinCharacter(end)) --end;
  return paragraph.substr(0, end);
}

}  // namespace

PageFlow::PageFlow(cairo_t* pen, PangoContext* context, const Report::Margins& margins,
                   const Paper& paper)
    : pen_(pen),
      context_(context),
      margins_(margins),
      paper_(paper),
      y_(margins.top),
      top_(margins.top) {}

void PageFlow::text(std::string_view text, const TextLook& look, double indent) {
  const std::string valid = drawable(withoutBlankEnd(text));
  std::string_view rest = valid;
  while (!rest.empty()) {
    std::string_view paragraph = takeParagraph(rest);
    do {
      paragraph.remove_prefix(lines(paragraph, look, indent));
    } while (!paragraph.empty());
  }
}

std::size_t PageFlow::lines(std::string_view paragraph, const TextLook& look, double indent) {
  const std::string_view piece = pieceOf(paragraph);
  const auto layout = layOut(piece, look, indent);
  const int count = pango_layout_get_line_count(layout.get());
  const bool isWhole = piece.size() == paragraph.size() || count == 1;
  const PangoHandle<PangoLayoutIter> lines(pango_layout_get_iter(layout.get()));
  for (int i = 0; i < (isWhole ? count : count - 1); ++i) {
    // No paragraph leaves one line of several alone on a page.
    const bool isBesideAnEnd = (i == 0 || i == count - 2) && i + 1 < count;
    line(lines.get(), look, indent, isBesideAnEnd ? 2 : 1);
    pango_layout_iter_next_line(lines.get());
  }
  return isWhole ? piece.size()
                 : static_cast<std::size_t>(pango_layout_iter_get_index(lines.get()));
}

void PageFlow::line(PangoLayoutIter* lines, const TextLook& look, double indent, int together) {
  PangoRectangle logical;
  pango_layout_iter_get_line_extents(lines, nullptr, &logical);
  const double height = points(logical.height) * look.spacing;
  makeRoom(together * height);
  PangoLayoutLine* const glyphs = pango_layout_iter_get_line_readonly(lines);
  const bool isBlankAtTop = glyphs->length == 0 && page_ > 1 && y_ == top_;
  if (isBlankAtTop) return;
  const double baseline = points(pango_layout_iter_get_baseline(lines) - logical.y);
  cairo_set_source_rgb(pen_, look.grey, look.grey, look.grey);
  cairo_move_to(pen_, margins_.left + indent + points(logical.x), y_ + baseline);
  pango_cairo_show_layout_line(pen_, glyphs);
  y_ += height;
}

void PageFlow::label(std::string_view text, const TextLook& look) {
  const auto layout = layOutLine(text, look, width());
  const double top = y_;
  line(PangoHandle<PangoLayoutIter>(pango_layout_get_iter(layout.get())).get(), look, 0, 1);
  labelBottom_ = std::exchange(y_, top);
}

void PageFlow::row(std::span<const PageCell> cells, const TextLook& look) {
  double shares = 0;
  for (const PageCell& cell : cells) shares += cell.share;
  const double usable = width() - gapOfCells * static_cast<double>(cells.size());
  const auto widthOf = [&](const PageCell& cell) {
    return std::max(usable * cell.share / shares, leastCell);
  };
  std::vector<PangoHandle<PangoLayout>> layouts;
  double height = 0;
  for (const PageCell& cell : cells) {
    PangoRectangle logical;
    layouts.push_back(layOutLine(cell.text, look, widthOf(cell)));
    pango_layout_get_extents(layouts.back().get(), nullptr, &logical);
    height = std::max(height, points(logical.height) * look.spacing);
  }
  makeRoom(height);
  const double top = y_;
  double left = 0;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    y_ = top;
    line(PangoHandle<PangoLayoutIter>(pango_layout_get_iter(layouts[i].get())).get(), look, left,
         1);
    left += widthOf(cells[i]) + gapOfCells;
  }
  y_ = top + height;
}

void PageFlow::rule(double thickness, double grey) {
  y_ = std::max(y_, labelBottom_);
  makeRoom(thickness);
  cairo_set_source_rgb(pen_, grey, grey, grey);
  cairo_rectangle(pen_, margins_.left, y_, width(), thickness);
  cairo_fill(pen_);
  y_ += thickness;
}

int PageFlow::finish() {
  cairo_show_page(pen_);
  return page_;
}

PangoHandle<PangoLayout> PageFlow::layOut(std::string_view text, const TextLook& look,
                                          double indent) const {
  PangoHandle<PangoLayout> layout(pango_layout_new(context_));
  pango_layout_set_font_description(layout.get(), fontOf(look).get());
  pango_layout_set_width(layout.get(), pangoUnits(width() - indent));
  pango_layout_set_wrap(layout.get(), PANGO_WRAP_WORD_CHAR);
  pango_layout_set_alignment(layout.get(), look.alignment);
  pango_layout_set_tabs(layout.get(), tabStops());
  pango_layout_set_text(layout.get(), text.data(), static_cast<int>(text.size()));
  return layout;
}

PangoHandle<PangoLayout> PageFlow::layOutLine(std::string_view text, const TextLook& look,
                                              double width) const {
  auto layout = layOut(drawable(text), look, 0);
  pango_layout_set_width(layout.get(), pangoUnits(width));
  pango_layout_set_single_paragraph_mode(layout.get(), TRUE);
  pango_layout_set_ellipsize(layout.get(), PANGO_ELLIPSIZE_END);
  return layout;
}

void PageFlow::makeRoom(double height) {
  if (y_ > top_ && y_ + height > paper_.height - margins_.bottom) nextPage();
}

void PageFlow::nextPage() {
  cairo_show_page(pen_);
  ++page_;
  pageNumber();
  y_ = top_ = margins_.top;
  labelBottom_ = 0;
  if (head_) head_(*this);
  top_ = y_;
}

void PageFlow::pageNumber() {
  y_ = paper_.height - margins_.bottom / 2.0 - pageNumberLook.size;
  top_ = y_;
  label("Page " + std::to_string(page_), pageNumberLook);
}

}  // namespace autonotify::host
