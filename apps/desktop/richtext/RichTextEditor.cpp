#include "richtext/RichTextEditor.h"

#include <QAction>
#include <QActionGroup>
#include <QColorDialog>
#include <QComboBox>
#include <QFontComboBox>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QStyle>
#include <QTextBlock>
#include <QTextList>
#include <QToolBar>
#include <QVBoxLayout>

#include "richtext/RichTextField.h"

namespace autonotify::desktop {
namespace {

QString withKeys(const QString& text, const QKeySequence& keys) {
  if (keys.isEmpty()) return text;
  return QString("%1 (%2)").arg(text, keys.toString(QKeySequence::NativeText));
}

}  // namespace

/// A format that is on or off.
struct RichTextEditor::Toggle {
  /// The action's object name.
  const char* name;
  /// A name in the desktop's icon theme.
  const char* icon;
  const char* text;
  QKeySequence keys;
  void (*set)(QTextCharFormat& format, bool on);
  bool (*isOn)(const QFont& font);
};

std::span<const RichTextEditor::Toggle> RichTextEditor::toggles() {
  // Keys can be asked for when the toolkit is up.
  static const Toggle rows[] = {
      {"bold", "format-text-bold", QT_TR_NOOP("Bold"), QKeySequence::Bold,
       [](QTextCharFormat& format, bool on) {
         format.setFontWeight(on ? QFont::Bold : QFont::Normal);
       },
       [](const QFont& font) { return font.weight() >= QFont::Bold; }},
      {"italic", "format-text-italic", QT_TR_NOOP("Italic"), QKeySequence::Italic,
       [](QTextCharFormat& format, bool on) { format.setFontItalic(on); },
       [](const QFont& font) { return font.italic(); }},
      {"underline", "format-text-underline", QT_TR_NOOP("Underline"), QKeySequence::Underline,
       [](QTextCharFormat& format, bool on) { format.setFontUnderline(on); },
       [](const QFont& font) { return font.underline(); }},
  };
  return rows;
}

RichTextEditor::RichTextEditor(QWidget* parent)
    : QWidget(parent), bar_(new QToolBar(this)), edit_(new RichTextField(this)) {
  const int iconSize = style()->pixelMetric(QStyle::PM_SmallIconSize);
  bar_->setIconSize({iconSize, iconSize});
  edit_->setAcceptRichText(false);
  edit_->setAccessibleName(tr("Text"));
  edit_->setTabChangesFocus(true);
  edit_->installEventFilter(this);
  setFocusProxy(edit_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(2);
  layout->addWidget(bar_);
  layout->addWidget(edit_);
  addFonts();
  addToggles();
  addColor();
  addAlignments();
  addCommands();
  connect(edit_, &QTextEdit::cursorPositionChanged, this, &RichTextEditor::showFormats);
  connect(edit_, &QTextEdit::currentCharFormatChanged, this, &RichTextEditor::showFormats);
  showFormats();
}

void RichTextEditor::setReadOnly(bool isReadOnly) {
  const bool isFixed = isReadOnly || isForReading_;
  edit_->setTextInteractionFlags(isFixed ? Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard
                                         : Qt::TextEditorInteraction);
  edit_->viewport()->setBackgroundRole(isReadOnly ? QPalette::Window : QPalette::Base);
  bar_->setEnabled(!isFixed);
  for (QAction* action : actions()) action->setEnabled(!isFixed);
}

void RichTextEditor::setForReading(bool isForReading) {
  isForReading_ = isForReading;
  bar_->setVisible(!isForReading);
  setReadOnly(false);
}

QAction* RichTextEditor::addCheckable(const char* name, const char* icon, const QString& text,
                                      const QKeySequence& keys) {
  QAction* action = bar_->addAction(QIcon::fromTheme(icon), text);
  action->setObjectName(name);
  action->setCheckable(true);
  setKeys(*action, keys);
  return action;
}

void RichTextEditor::setKeys(QAction& action, const QKeySequence& keys) {
  action.setShortcut(keys);
  action.setShortcutContext(Qt::WidgetWithChildrenShortcut);
  action.setToolTip(withKeys(action.text(), keys));
  addAction(&action);
}

// Tab goes past the boxes, from the field above straight to the text: keys open their lists.
void RichTextEditor::addBox(QComboBox& box, const QString& text, const QKeySequence& keys) {
  box.setToolTip(withKeys(text, keys));
  box.setAccessibleName(text);
  box.setFocusPolicy(Qt::ClickFocus);
  bar_->addWidget(&box);
  auto* open = new QAction(text, this);
  connect(open, &QAction::triggered, &box, [this, &box] {
    if (bar_->isEnabled()) box.showPopup();
  });
  setKeys(*open, keys);
}

void RichTextEditor::addFonts() {
  font_ = new QFontComboBox(bar_);
  font_->setMinimumContentsLength(12);
  connect(font_, &QComboBox::textActivated, this, [this](const QString& family) {
    QTextCharFormat format;
    format.setFontFamilies({family});
    apply(format);
  });
  addBox(*font_, tr("Font"), Qt::CTRL | Qt::SHIFT | Qt::Key_F);
  size_ = new QComboBox(bar_);
  for (const int size : QFontDatabase::standardSizes()) size_->addItem(QString::number(size));
  connect(size_, &QComboBox::textActivated, this, [this](const QString& points) {
    QTextCharFormat format;
    format.setFontPointSize(points.toDouble());
    apply(format);
  });
  addBox(*size_, tr("Size"), Qt::CTRL | Qt::SHIFT | Qt::Key_P);
}

void RichTextEditor::addToggles() {
  bar_->addSeparator();
  for (const Toggle& toggle : toggles()) {
    QAction* action = addCheckable(toggle.name, toggle.icon, tr(toggle.text), toggle.keys);
    connect(action, &QAction::triggered, this, [this, set = toggle.set](bool on) {
      QTextCharFormat format;
      set(format, on);
      apply(format);
    });
    toggles_.append(action);
  }
}

void RichTextEditor::addColor() {
  QAction* color = bar_->addAction(QIcon::fromTheme("format-text-color"), tr("Colour"), this,
                                   &RichTextEditor::chooseColor);
  color->setObjectName("color");
  setKeys(*color, Qt::CTRL | Qt::SHIFT | Qt::Key_C);
}

void RichTextEditor::addAlignments() {
  struct Row {
    const char* name;
    const char* icon;
    const char* text;
    Qt::Key key;  // with Ctrl
    Qt::Alignment alignment;
  };
  constexpr Row rows[] = {
      {"alignLeft", "format-justify-left", QT_TR_NOOP("Align Left"), Qt::Key_L, Qt::AlignLeft},
      {"alignCentre", "format-justify-center", QT_TR_NOOP("Centre"), Qt::Key_E, Qt::AlignHCenter},
      {"alignRight", "format-justify-right", QT_TR_NOOP("Align Right"), Qt::Key_R, Qt::AlignRight}};
  bar_->addSeparator();
  auto* group = new QActionGroup(this);
  for (const Row& row : rows) {
    QAction* action = addCheckable(row.name, row.icon, tr(row.text), Qt::CTRL | row.key);
    group->addAction(action);
    connect(action, &QAction::triggered, this,
            [this, alignment = row.alignment] { edit_->setAlignment(alignment); });
    alignments_.append({action, row.alignment});
  }
  bullets_ = addCheckable("bullets", "format-list-unordered", tr("Bullets"),
                          Qt::CTRL | Qt::SHIFT | Qt::Key_L);
  connect(bullets_, &QAction::triggered, this, &RichTextEditor::toggleBullets);
}

void RichTextEditor::addCommands() {
  bar_->addSeparator();
  QAction* undo =
      bar_->addAction(QIcon::fromTheme("edit-undo"), tr("Undo"), edit_, &QTextEdit::undo);
  QAction* redo =
      bar_->addAction(QIcon::fromTheme("edit-redo"), tr("Redo"), edit_, &QTextEdit::redo);
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
    QTextBlock block = edit_->document()->findBlock(cursor.selectionStart());
    for (; block.isValid() && block.position() <= cursor.selectionEnd(); block = block.next()) {
      if (block.textList() == list) list->remove(block);
      QTextBlockFormat plainFormat = block.blockFormat();
      plainFormat.setIndent(0);
      QTextCursor(block).setBlockFormat(plainFormat);
    }
  }
  cursor.endEditBlock();
}

// On an empty line the text field by itself would only drop the line's format.
bool RichTextEditor::eventFilter(QObject* watched, QEvent* event) {
  const bool isEnter =
      event->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent*>(event)->matches(QKeySequence::InsertParagraphSeparator);
  if (!isEnter || edit_->isReadOnly() || !edit_->textCursor().block().text().isEmpty() ||
      edit_->textCursor().hasSelection())
    return QWidget::eventFilter(watched, event);
  leaveEmptyLine();
  return true;
}

/// For the next line; where it is one of a list, for the text below that.
void RichTextEditor::leaveEmptyLine() {
  if (edit_->textCursor().currentList()) return toggleBullets(false);
  edit_->textCursor().insertBlock();
  edit_->ensureCursorVisible();
}

void RichTextEditor::showFormats() {
  const QTextCharFormat format = edit_->currentCharFormat();
  const QFont font = format.font();
  font_->setCurrentFont(font);
  size_->setCurrentText(QString::number(font.pointSizeF() > 0 ? font.pointSizeF() : 10));
  for (qsizetype i = 0; i < toggles_.size(); ++i)
    toggles_[i]->setChecked(toggles()[static_cast<std::size_t>(i)].isOn(font));
  bullets_->setChecked(edit_->textCursor().currentList() != nullptr);
  for (const auto& [action, alignment] : alignments_)
    action->setChecked(edit_->alignment().testFlags(alignment));
}

}  // namespace autonotify::desktop
