#include "host/documents/report_pages.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string>
#include <vector>

#include "host/documents/Worklist.h"
#include "host/words/Words.h"

namespace autonotify::host {
namespace {

constexpr TextLook bodyLook{10.5, PANGO_WEIGHT_NORMAL, 0.0, PANGO_ALIGN_LEFT, 1.15};
constexpr TextLook firmLook{15, PANGO_WEIGHT_SEMIBOLD, 0.1, PANGO_ALIGN_RIGHT, 1.1};
constexpr TextLook addressLook{9, PANGO_WEIGHT_NORMAL, 0.3, PANGO_ALIGN_RIGHT, 1.1};
constexpr TextLook titleLook{34, PANGO_WEIGHT_BOLD, 0.1};
constexpr TextLook nameLook{9, PANGO_WEIGHT_SEMIBOLD, 0.35};
constexpr TextLook valueLook{11.5};
constexpr TextLook headLook{9, PANGO_WEIGHT_NORMAL, 0.35};

constexpr double hairline = 0.5;
constexpr double ruleGrey = 0.6;

/// The firm's name, and its address below.
void drawLetterhead(PageFlow& flow, const PrintedReport& report) {
  const std::string& address = report.text("lblReturnAddress");
  const std::size_t endOfName = std::min(address.find_first_of("\r\n"), address.size());
  flow.text(address.substr(0, endOfName), firmLook);
  const std::size_t rest = address.find_first_not_of("\r\n", endOfName);
  if (rest != std::string::npos) flow.text(address.substr(rest), addressLook);
  flow.gap(10);
}

void drawLetter(PageFlow& flow, const PrintedReport& report) {
  drawLetterhead(flow, report);
  flow.rule(hairline, ruleGrey);
  flow.gap(26);
  flow.text(report.text("lblDate"), bodyLook);
  flow.gap(20);
  flow.text(report.text("lblBody"), bodyLook);
}

struct CoverRow {
  const char* name;
  const char* label;
};
constexpr std::array<CoverRow, 5> coverRows{{{"TO", "lblTo"},
                                             {"FAX", "lblRecipientFax"},
                                             {"FROM", "lblFrom"},
                                             {"DATE", "lblDate"},
                                             {"SUBJECT", "lblSubject"}}};
constexpr double valueIndent = 84;
/// Takes a line's room.
constexpr const char* noText = "\u00A0";

void drawCoverRow(PageFlow& flow, const CoverRow& row, const PrintedReport& report) {
  flow.gap(9);
  flow.label(row.name, nameLook);
  flow.gap(-2);
  const std::string& value = report.text(row.label);
  flow.text(value.empty() ? noText : value, valueLook, valueIndent);
  flow.gap(6);
  flow.rule(hairline, ruleGrey);
}

void drawFax(PageFlow& flow, const PrintedReport& report) {
  flow.setRunningHead([&report](PageFlow& page) {
    page.label("Fax to " + report.text("lblTo"), headLook);
    page.rule(hairline, ruleGrey);
    page.gap(16);
  });
  flow.label("Fax", titleLook);
  drawLetterhead(flow, report);
  flow.gap(14);
  flow.rule(1.5, 0.1);
  for (const CoverRow& row : coverRows) drawCoverRow(flow, row, report);
  flow.gap(24);
  flow.text(report.text("lblBody"), bodyLook);
}

constexpr TextLook listTitleLook{13, PANGO_WEIGHT_SEMIBOLD, 0.1};
constexpr TextLook listHeadingLook{8.5, PANGO_WEIGHT_SEMIBOLD, 0.2, PANGO_ALIGN_LEFT, 1.25};
constexpr TextLook entryLook{9.5, PANGO_WEIGHT_SEMIBOLD, 0, PANGO_ALIGN_LEFT, 1.25};
constexpr TextLook wordsLook{9.5, PANGO_WEIGHT_NORMAL, 0.15, PANGO_ALIGN_LEFT, 1.15};
constexpr double wordsIndent = 24;

std::vector<PageCell> listHeadings() {
  std::vector<PageCell> headings;
  headings.reserve(Worklist::columns.size());
  for (const Worklist::Column& column : Worklist::columns)
    headings.push_back({Words::tr(column.heading), column.share});
  return headings;
}

void drawListHead(PageFlow& flow) {
  flow.row(listHeadings(), listHeadingLook);
  flow.rule(0.75, 0.4);
  flow.gap(4);
}

void drawWorklist(PageFlow& flow, const PrintedReport& report) {
  std::vector<PageCell> entry = listHeadings();
  std::size_t cell = 0;
  flow.text(report.text(Worklist::titleLabel), listTitleLook);
  flow.gap(8);
  drawListHead(flow);
  flow.setRunningHead(drawListHead);
  for (const auto& [label, text] : report.texts()) {
    if (label == Worklist::cellLabel) entry[cell++].text = text;
    if (label != Worklist::wordsLabel) continue;
    flow.row(entry, entryLook);
    flow.text(text, wordsLook, wordsIndent);
    flow.gap(text.empty() ? 2 : 8);
    cell = 0;
  }
}

struct ReportKind {
  const char* name;
  void (*draw)(PageFlow& flow, const PrintedReport& report);
};
constexpr ReportKind reportKinds[] = {
    {"drLetter", drawLetter}, {"drFax", drawFax}, {Worklist::className, drawWorklist}};

}  // namespace

void drawReport(PageFlow& flow, const PrintedReport& report) {
  const auto* kind = std::ranges::find(reportKinds, report.name(), &ReportKind::name);
  (kind == std::end(reportKinds) ? drawLetter : kind->draw)(flow, report);
}

}  // namespace autonotify::host
