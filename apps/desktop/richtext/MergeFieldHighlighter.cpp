#include "richtext/MergeFieldHighlighter.h"

#include <QPalette>
#include <QRegularExpression>

#include "colors.h"

namespace autonotify::desktop {
namespace {

constexpr int softGround = 32;
/// Has a place in templates, though no list offers it.
constexpr const char* todaysDate = "todays date";

/// A date stands in round brackets with its format: "(Task Due Date, mmmm d yyyy)".
QString nameIn(const QString& field) {
  if (!field.startsWith('(')) return field.toLower();
  return field.mid(1).section(',', 0, 0).trimmed().toLower();
}

}  // namespace

MergeFieldHighlighter::MergeFieldHighlighter(QTextDocument& document, const QPalette& palette,
                                             QSet<QString> names)
    : QSyntaxHighlighter(&document) {
  for (const QString& name : names) names_.insert(name.toLower());
  QColor ground = palette.color(QPalette::Highlight);
  known_.setForeground(palette.color(QPalette::Link));
  ground.setAlpha(softGround);
  known_.setBackground(ground);
  unknown_.setForeground(troubleColor(palette));
  unknown_.setUnderlineStyle(QTextCharFormat::WaveUnderline);
  unknown_.setUnderlineColor(troubleColor(palette));
}

void MergeFieldHighlighter::highlightBlock(const QString& text) {
  static const QRegularExpression fields("\u00ab([^\u00ab\u00bb]*)\u00bb");
  for (auto found = fields.globalMatch(text); found.hasNext();) {
    const QRegularExpressionMatch field = found.next();
    const int length = static_cast<int>(field.capturedLength());
    setFormat(static_cast<int>(field.capturedStart()), length,
              isKnown(field.captured(1)) ? known_ : unknown_);
  }
}

bool MergeFieldHighlighter::isKnown(const QString& field) const {
  const QString name = nameIn(field);
  return names_.isEmpty() || names_.contains(name) || name == todaysDate;
}

}  // namespace autonotify::desktop
