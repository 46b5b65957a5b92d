#pragma once

#include <QTextEdit>
#include <QWidget>
#include <span>

class QAction;
class QFontComboBox;
class QComboBox;
class QToolBar;

namespace autonotify::desktop {

/// A text field with a bar of formats: font, size, bold, italic, underline, colour, alignment,
/// bullets, undo and redo.
class RichTextEditor : public QWidget {
  Q_OBJECT
  Q_PROPERTY(bool forReading READ isForReading WRITE setForReading)

 public:
  explicit RichTextEditor(QWidget* parent = nullptr);

  QTextEdit& edit() { return *edit_; }
  /// The text can be read, scrolled and copied, not changed.
  void setReadOnly(bool isReadOnly);
  /// For texts that never can be changed: there is no bar.
  void setForReading(bool isForReading);
  bool isForReading() const { return isForReading_; }

 protected:
  /// Enter on an empty line.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Toggle;
  static std::span<const Toggle> toggles();

  void addFonts();
  void addToggles();
  void addColor();
  void addAlignments();
  void addCommands();
  QAction* addCheckable(const char* name, const char* icon, const QString& text,
                        const QKeySequence& keys);
  void setKeys(QAction& action, const QKeySequence& keys);
  /// The keys open its list.
  void addBox(QComboBox& box, const QString& text, const QKeySequence& keys);
  void apply(const QTextCharFormat& format);
  void chooseColor();
  void toggleBullets(bool on);
  void leaveEmptyLine();
  /// Shows the formats at the caret on the bar.
  void showFormats();

  QToolBar* bar_;
  QTextEdit* edit_;
  QFontComboBox* font_ = nullptr;
  QComboBox* size_ = nullptr;
  /// In the order of toggles().
  QList<QAction*> toggles_;
  QAction* bullets_ = nullptr;
  bool isForReading_ = false;
  QList<std::pair<QAction*, Qt::Alignment>> alignments_;
};

}  // namespace autonotify::desktop
