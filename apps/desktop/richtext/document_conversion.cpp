#include "richtext/document_conversion.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextList>
#include <algorithm>
#include <cmath>

#include "qt_text.h"

namespace autonotify::desktop {
namespace {

constexpr double twipsPerPixel = 15;  // 1440 an inch, 96 pixels an inch
constexpr const char* bullet = "\u2022";

struct AlignmentPair {
  Alignment model;
  Qt::Alignment qt;
};
constexpr AlignmentPair alignments[] = {
    {Alignment::left, Qt::AlignLeft},
    {Alignment::center, Qt::AlignHCenter},
    {Alignment::right, Qt::AlignRight},
    {Alignment::justified, Qt::AlignJustify},
};

Qt::Alignment qtAlignment(Alignment alignment) {
  for (const auto& pair : alignments) {
    if (pair.model == alignment) return pair.qt;
  }
  return Qt::AlignLeft;
}

Alignment modelAlignment(Qt::Alignment alignment) {
  for (const auto& pair : alignments) {
    if (alignment & pair.qt) return pair.model;
  }
  return Alignment::left;
}

constexpr std::pair<Script, QTextCharFormat::VerticalAlignment> scripts[] = {
    {Script::superscript, QTextCharFormat::AlignSuperScript},
    {Script::subscript, QTextCharFormat::AlignSubScript},
};

QTextOption::TabType tabType(TabAlignment alignment) {
  // Both have the order left, right, center, decimal under different numbers.
  switch (alignment) {
    case TabAlignment::center:
      return QTextOption::CenterTab;
    case TabAlignment::right:
      return QTextOption::RightTab;
    case TabAlignment::decimal:
      return QTextOption::DelimiterTab;
    default:
      return QTextOption::LeftTab;
  }
}

TabAlignment tabAlignment(QTextOption::TabType type) {
  switch (type) {
    case QTextOption::CenterTab:
      return TabAlignment::center;
    case QTextOption::RightTab:
      return TabAlignment::right;
    case QTextOption::DelimiterTab:
      return TabAlignment::decimal;
    default:
      return TabAlignment::left;
  }
}

double pixels(int twips) {
  return twips / twipsPerPixel;
}
int twips(double pixels) {
  return static_cast<int>(std::lround(pixels * twipsPerPixel));
}

QColor qtColor(RichTextColor color) {
  return {color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF};
}
RichTextColor modelColor(const QColor& color) {
  return color.red() | color.green() << 8 | color.blue() << 16;
}

QTextCharFormat qtFormat(const CharacterFormat& format) {
  QTextCharFormat result;
  result.setFontFamilies({shown(format.font)});
  result.setFontPointSize(format.halfPoints / 2.0);
  if (format.bold) result.setFontWeight(QFont::Bold);
  if (format.italic) result.setFontItalic(true);
  if (format.underline) result.setFontUnderline(true);
  if (format.strike) result.setFontStrikeOut(true);
  for (const auto& [script, alignment] : scripts)
    if (format.script == script) result.setVerticalAlignment(alignment);
  if (format.color) result.setForeground(qtColor(*format.color));
  if (format.background) result.setBackground(qtColor(*format.background));
  return result;
}

CharacterFormat modelFormat(const QTextCharFormat& format) {
  CharacterFormat result;
  const QStringList families = format.fontFamilies().toStringList();
  if (!families.isEmpty()) result.font = plain(families.front());
  if (format.fontPointSize() > 0)
    result.halfPoints = static_cast<int>(std::lround(format.fontPointSize() * 2));
  result.bold = format.fontWeight() >= QFont::Bold;
  result.italic = format.fontItalic();
  result.underline = format.fontUnderline();
  result.strike = format.fontStrikeOut();
  for (const auto& [script, alignment] : scripts)
    if (format.verticalAlignment() == alignment) result.script = script;
  if (format.hasProperty(QTextFormat::ForegroundBrush))
    result.color = modelColor(format.foreground().color());
  if (format.hasProperty(QTextFormat::BackgroundBrush))
    result.background = modelColor(format.background().color());
  return result;
}

QTextBlockFormat qtFormat(const ParagraphFormat& format) {
  QTextBlockFormat result;
  result.setAlignment(qtAlignment(format.alignment));
  // A list indents its entries by itself.
  if (format.marker.empty()) {
    result.setLeftMargin(pixels(format.leftIndent));
    result.setTextIndent(pixels(format.firstLineIndent));
  }
  result.setRightMargin(pixels(format.rightIndent));
  result.setTopMargin(pixels(format.spaceBefore));
  result.setBottomMargin(pixels(format.spaceAfter));
  QList<QTextOption::Tab> tabs;
  for (const TabStop& stop : format.tabStops)
    tabs.append({pixels(stop.position), tabType(stop.alignment)});
  if (!tabs.isEmpty()) result.setTabPositions(tabs);
  return result;
}

QTextListFormat::Style listStyle(const std::string& marker) {
  const char first = marker.empty() ? '\0' : marker.front();
  if (first >= '0' && first <= '9') return QTextListFormat::ListDecimal;
  if (first >= 'a' && first <= 'z') return QTextListFormat::ListLowerAlpha;
  if (first >= 'A' && first <= 'Z') return QTextListFormat::ListUpperAlpha;
  return QTextListFormat::ListDisc;
}

std::string markerOf(const QTextBlock& block) {
  const QTextList* list = block.textList();
  if (!list) return {};
  switch (list->format().style()) {
    case QTextListFormat::ListDisc:
    case QTextListFormat::ListCircle:
    case QTextListFormat::ListSquare:
      return bullet;
    default:
      return plain(list->itemText(block));
  }
}

ParagraphFormat modelFormat(const QTextBlock& block) {
  constexpr int listIndent = 720;
  constexpr int markerIndent = -360;
  const QTextBlockFormat format = block.blockFormat();
  ParagraphFormat result;
  result.alignment = modelAlignment(format.alignment());
  result.marker = markerOf(block);
  const bool isEntry = !result.marker.empty();
  result.leftIndent = isEntry ? listIndent : twips(format.leftMargin());
  result.firstLineIndent = isEntry ? markerIndent : twips(format.textIndent());
  result.rightIndent = twips(format.rightMargin());
  result.spaceBefore = twips(format.topMargin());
  result.spaceAfter = twips(format.bottomMargin());
  for (const QTextOption::Tab& tab : format.tabPositions())
    result.tabStops.push_back({twips(tab.position), tabAlignment(tab.type)});
  return result;
}

QString qtText(const std::string& text) {
  return shown(text).replace('\n', QChar::LineSeparator);
}
std::string modelText(QString text) {
  return plain(text.replace(QChar::LineSeparator, '\n'));
}

/// The list entries that follow each other with markers of one kind are one list.
void continueList(QTextCursor& cursor, const std::string& marker, QTextList*& list) {
  const QTextListFormat::Style style = listStyle(marker);
  if (marker.empty()) {
    list = nullptr;
  } else if (list && list->format().style() == style) {
    list->add(cursor.block());
  } else {
    list = cursor.createList(style);
  }
}

std::vector<Run> runsOf(const QTextBlock& block) {
  std::vector<Run> runs;
  for (auto at = block.begin(); !at.atEnd(); ++at) {
    const QTextFragment fragment = at.fragment();
    runs.push_back({modelText(fragment.text()), modelFormat(fragment.charFormat())});
  }
  if (runs.empty()) runs.push_back({{}, modelFormat(block.charFormat())});
  return runs;
}

qsizetype lowSurrogates(const QString& text) {
  return std::ranges::count_if(text, [](QChar unit) { return unit.isLowSurrogate(); });
}

}  // namespace

void showRichText(QTextDocument& document, const RichText& text) {
  document.setUndoRedoEnabled(false);
  document.clear();
  QTextCursor cursor(&document);
  insertRichText(cursor, text);
  document.setUndoRedoEnabled(true);
}

void insertRichText(QTextCursor& cursor, const RichText& text) {
  cursor.beginEditBlock();
  cursor.removeSelectedText();
  QTextList* list = nullptr;
  bool isFirst = true;
  for (const Paragraph& paragraph : text.paragraphs) {
    const QTextBlockFormat format = qtFormat(paragraph.format);
    const QTextCharFormat characters = qtFormat(paragraph.runs.front().format);
    const bool goesOn = isFirst && !cursor.block().text().isEmpty();
    if (!isFirst) {
      cursor.insertBlock(format, characters);
    } else if (!goesOn) {
      cursor.setBlockFormat(format);
      cursor.setBlockCharFormat(characters);
    }
    isFirst = false;
    if (!goesOn) continueList(cursor, paragraph.format.marker, list);
    for (const Run& run : paragraph.runs) cursor.insertText(qtText(run.text), qtFormat(run.format));
  }
  cursor.endEditBlock();
}

RichText richTextOf(const QTextDocument& document) {
  RichText text;
  text.paragraphs.clear();
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
    text.paragraphs.push_back({modelFormat(block), runsOf(block)});
  return text;
}

std::size_t placeOf(const QTextDocument& document, int position) {
  std::size_t place = 0;
  for (QTextBlock block = document.begin(); block.isValid() && block.position() < position;
       block = block.next()) {
    // The break behind the block is a place too.
    const int units = std::min(block.length(), position - block.position());
    place += static_cast<std::size_t>(units - lowSurrogates(block.text().left(units)));
  }
  return place;
}

int positionOf(const QTextDocument& document, std::size_t place) {
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    const QString text = block.text();
    const auto places = static_cast<std::size_t>(block.length() - lowSurrogates(text));
    if (place >= places) {
      place -= places;
      continue;
    }
    const auto isHere = [&](QChar unit) { return !unit.isLowSurrogate() && place-- == 0; };
    return block.position() + static_cast<int>(std::ranges::find_if(text, isHere) - text.begin());
  }
  return document.characterCount() - 1;
}

}  // namespace autonotify::desktop
