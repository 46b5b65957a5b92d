#pragma once

#include <QTextEdit>

#include "platform/richtext/RichText.h"

namespace autonotify::desktop {

/// A text field that takes the rich text of other programs and the texts of files, pasted or
/// dropped. Merge tokens are whole then, however the other program wrote them.
class RichTextField : public QTextEdit {
  Q_OBJECT

 public:
  using QTextEdit::QTextEdit;

 protected:
  bool canInsertFromMimeData(const QMimeData* source) const override;
  void insertFromMimeData(const QMimeData* source) override;
  QMimeData* createMimeDataFromSelection() const override;

 private:
  void insertFiles(const QStringList& paths);
  /// At the caret, in place of what is selected, as one step to undo.
  void insert(const RichText& text);
  void tellUnreadable(const QString& path, const QString& why);
};

}  // namespace autonotify::desktop
