#include "richtext/RichTextEditor.h"

#include <QAction>
#include <QActionGroup>
#include <QColorDialog>
#include <QComboBox>
#include <QFontComboBox>
#include <QFontDatabase>
#include <QTextBlock>
#include <QTextList>
#include <QToolBar>
#include <QVBoxLayout>

namespace autonotify::desktop {

RichTextEditor::RichTextEditor(QWidget* parent)
    : QWidget(parent), bar_(new QToolBar(this)), edit_(new QTextEdit(this)) {
  bar_->setToolButtonStyle(Qt::ToolButtonTextOnly);
  edit_->setAcceptRichText(false);
  edit_->setTabChangesFocus(true);
  setFocusProxy(edit_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(2);
  layout->addWidget(bar_);
  layout->addWidget(edit_);
  addFormats();
  addAlignments();
  addCommands();
  connect(edit_, &QTextEdit::cursorPositionChanged, this, &RichTextEditor::showFormats);
  connect(edit_, &QTextEdit::currentCharFormatChanged, this, &RichTextEditor::showFormats);
  showFormats();
}

void RichTextEditor::setReadOnly(bool isReadOnly) {
  edit_->setReadOnly(isReadOnly);
  edit_->viewport()->setBackgroundRole(isReadOnly ? QPalette::Window : QPalette::Base);
  bar_->setEnabled(!isReadOnly);
  for (QAction* action : actions()) action->setEnabled(!isReadOnly);
}

QAction* RichTextEditor::addToggle(const QString& name, const QString& text, const QString& tip,
                                   const QKeySequence& keys) {
  QAction* action = bar_->addAction(text);
  action->setObjectName(name);
  action->setCheckable(true);
  action->setShortcut(keys);
  action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  action->setToolTip(keys.isEmpty() ? tip
                                    : tip + " (" + keys.toString(QKeySequence::NativeText) + ")");
  addAction(action);
  return action;
}

void RichTextEditor::addFormats() {
  font_ = new QFontComboBox(bar_);
  font_->setToolTip(tr("Font"));
  font_->setMinimumContentsLength(12);
  font_->setFocusPolicy(Qt::ClickFocus);
  connect(font_, &QComboBox::textActivated, this, [this](const QString& family) {
    QTextCharFormat format;
    format.setFontFamilies({family});
    apply(format);
  });
  bar_->addWidget(font_);
  size_ = new QComboBox(bar_);
  size_->setToolTip(tr("Size"));
  size_->setFocusPolicy(Qt::ClickFocus);
  for (const int size : QFontDatabase::standardSizes()) size_->addItem(QString::number(size));
  connect(size_, &QComboBox::textActivated, this, [this](const QString& points) {
    QTextCharFormat format;
    format.setFontPointSize(points.toDouble());
    apply(format);
  });
  bar_->addWidget(size_);

  bold_ = addToggle("bold", tr("B"), tr("Bold"), QKeySequence::Bold);
  italic_ = addToggle("italic", tr("I"), tr("Italic"), QKeySequence::Italic);
  underline_ = addToggle("underline", tr("U"), tr("Underline"), QKeySequence::Underline);
  QFont look = bar_->font();
  look.setBold(true);
  bold_->setFont(look);
  look.setBold(false);
  look.setItalic(true);
  italic_->setFont(look);
  look.setItalic(false);
  look.setUnderline(true);
  underline_->setFont(look);
  connect(bold_, &QAction::triggered, this, [this](bool on) {
    QTextCharFormat format;
    format.setFontWeight(on ? QFont::Bold : QFont::Normal);
    apply(format);
  });
  connect(italic_, &QAction::triggered, this, [this](bool on) {
    QTextCharFormat format;
    format.setFontItalic(on);
    apply(format);
  });
  connect(underline_, &QAction::triggered, this, [this](bool on) {
    QTextCharFormat format;
    format.setFontUnderline(on);
    apply(format);
  });
  bar_->addAction(tr("Colour"), this, &RichTextEditor::chooseColor)->setObjectName("color");
}

void RichTextEditor::addAlignments() {
  bar_->addSeparator();
  auto* group = new QActionGroup(this);
  const std::pair<QString, Qt::Alignment> rows[] = {
      {tr("Left"), Qt::AlignLeft}, {tr("Centre"), Qt::AlignHCenter}, {tr("Right"), Qt::AlignRight}};
  for (const auto& [text, alignment] : rows) {
    QAction* action = addToggle("align" + text, text, tr("Align: %1").arg(text), {});
    group->addAction(action);
    connect(action, &QAction::triggered, this,
            [this, alignment = alignment] { edit_->setAlignment(alignment); });
    alignments_.append({action, alignment});
  }
  bullets_ = addToggle("bullets", tr("Bullets"), tr("Bullets"), {});
  connect(bullets_, &QAction::triggered, this, &RichTextEditor::toggleBullets);
}

void RichTextEditor::addCommands() {
  bar_->addSeparator();
  QAction* undo = bar_->addAction(tr("Undo"), edit_, &QTextEdit::undo);
  QAction* redo = bar_->addAction(tr("Redo"), edit_, &QTextEdit::redo);
  undo->setEnabled(false);
  redo->setEnabled(false);
  connect(edit_, &QTextEdit::undoAvailable, undo, &QAction::setEnabled);
  connect(edit_, &QTextEdit::redoAvailable, redo, &QAction::setEnabled);
}

void RichTextEditor::apply(const QTextCharFormat& format) {
  edit_->mergeCurrentCharFormat(format);
  edit_->setFocus();
}

void RichTextEditor::chooseColor() {
  const QColor color = QColorDialog::getColor(edit_->textColor(), this);
  if (!color.isValid()) return;
  QTextCharFormat format;
  format.setForeground(color);
  apply(format);
}

void RichTextEditor::toggleBullets(bool on) {
  QTextCursor cursor = edit_->textCursor();
  cursor.beginEditBlock();
  if (on) {
    cursor.createList(QTextListFormat::ListDisc);
  } else if (QTextList* list = cursor.currentList()) {
    const QTextCursor selected = cursor;
    QTextBlock block = edit_->document()->findBlock(selected.selectionStart());
    for (; block.isValid() && block.position() <= selected.selectionEnd(); block = block.next()) {
      if (block.textList() == list) list->remove(block);
      QTextBlockFormat plainFormat = block.blockFormat();
      plainFormat.setIndent(0);
      QTextCursor(block).setBlockFormat(plainFormat);
    }
  }
  cursor.endEditBlock();
}

void RichTextEditor::showFormats() {
  const QTextCharFormat format = edit_->currentCharFormat();
  const QFont font = format.font();
  font_->setCurrentFont(font);
  size_->setCurrentText(QString::number(font.pointSizeF() > 0 ? font.pointSizeF() : 10));
  bold_->setChecked(font.weight() >= QFont::Bold);
  italic_->setChecked(font.italic());
  underline_->setChecked(font.underline());
  bullets_->setChecked(edit_->textCursor().currentList() != nullptr);
  for (const auto& [action, alignment] : alignments_)
    action->setChecked(edit_->alignment().testFlags(alignment));
}

}  // namespace autonotify::desktop
