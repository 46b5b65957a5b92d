#pragma once

#include <QSet>
#include <QString>
#include <QSyntaxHighlighter>

namespace autonotify::desktop {

/// Gives the merge fields of a text colour and ground, and another where the name is no field. The
/// text itself stays as it is.
class MergeFieldHighlighter : public QSyntaxHighlighter {
 public:
  /// Lives as long as the document. Without names every field counts as known.
  MergeFieldHighlighter(QTextDocument& document, const QPalette& palette, QSet<QString> names);

 protected:
  void highlightBlock(const QString& text) override;

 private:
  bool isKnown(const QString& field) const;

  QSet<QString> names_;
  QTextCharFormat known_;
  QTextCharFormat unknown_;
};

}  // namespace autonotify::desktop
