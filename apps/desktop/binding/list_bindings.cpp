#include "binding/list_bindings.h"

#include <QEvent>
#include <QIcon>
#include <QKeyEvent>
#include <QLineEdit>

#include "qt_text.h"

namespace autonotify::desktop {
namespace {

/// Of QListWidget and QComboBox alike.
template <class Widget>
void drawEntries(Widget& widget, const ItemList& list) {
  widget.clear();
  for (const ItemList::Entry& entry : list.entries()) widget.addItem(shown(entry.text));
}

template <class Widget>
void drawEntryRows(Widget& widget, const ItemList& list, const RowChange& change) {
  QAbstractItemModel& rows = *widget.model();
  if (change.kind == RowChange::Kind::removed) rows.removeRows(change.row, change.count);
  for (int row = change.row; row < change.row + change.count; ++row) {
    if (change.kind == RowChange::Kind::added)
      widget.insertItem(row, shown(list.list(row)));
    else if (change.kind == RowChange::Kind::changed)
      rows.setData(rows.index(row, 0), shown(list.list(row)), Qt::DisplayRole);
  }
}

int positionOf(const QTreeWidgetItem* item) {
  return item ? item->data(0, Qt::UserRole).toInt() : -1;
}

}  // namespace

ComboBinding::ComboBinding(Form& form, ComboBox& control, QComboBox& widget)
    : BindingOf(form, control, widget) {
  widget.setEditable(control.isEditable());
  widget.setInsertPolicy(QComboBox::NoInsert);
  connect(&widget, &QComboBox::activated, this, [this](int position) {
    pass([=, this](Person& person) { person.choose(control_, position); });
  });
  if (widget.lineEdit()) bindField(*widget.lineEdit());
}

// A text that is typed stays a text, also where it reads like an entry: the box would take that for
// a choice when it is left.
void ComboBinding::bindField(QLineEdit& field) {
  widget_.setCompleter(nullptr);
  disconnect(&field, &QLineEdit::editingFinished, &widget_, nullptr);
  disconnect(&field, &QLineEdit::returnPressed, &widget_, nullptr);
  connect(&field, &QLineEdit::textEdited, this, [this](const QString& text) {
    pass([&](Person& person) { person.edit(control_, plain(text)); });
  });
}

void ComboBinding::drawList() {
  drawEntries(widget_, control_);
}

void ComboBinding::drawRows(const RowChange& change) {
  drawEntryRows(widget_, control_, change);
}

// The box empties its field when the entry is no longer chosen.
void ComboBinding::drawValue() {
  const QString text = shown(control_.text());
  const bool isTyped = widget_.isEditable() && widget_.currentText() == text;
  const int caret = isTyped ? widget_.lineEdit()->cursorPosition() : 0;
  if (widget_.currentIndex() != control_.listIndex()) widget_.setCurrentIndex(control_.listIndex());
  if (widget_.isEditable() && widget_.currentText() != text) widget_.setEditText(text);
  if (isTyped) widget_.lineEdit()->setCursorPosition(caret);
}

bool ComboBinding::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Wheel) {
    event->ignore();
    return true;
  }
  return Binding::eventFilter(watched, event);
}

QWidget& ComboBinding::colored() {
  if (QLineEdit* field = widget_.lineEdit()) return *field;
  return widget_;
}

template <class ControlType, class WidgetType>
ItemViewBinding<ControlType, WidgetType>::ItemViewBinding(Form& form, ControlType& control,
                                                          WidgetType& widget)
    : BindingOf<ControlType, WidgetType>(form, control, widget) {
  widget.viewport()->installEventFilter(this);
}

template <class ControlType, class WidgetType>
bool ItemViewBinding<ControlType, WidgetType>::eventFilter(QObject* watched, QEvent* event) {
  const QEvent::Type type = event->type();
  if (type == QEvent::MouseButtonPress) wasPassed_ = false;
  if (type == QEvent::MouseButtonDblClick) wasPassed_ = true;
  // A message that a press brings up may get the release; keys end a press too.
  if (type == QEvent::MouseButtonPress) isPressed_ = true;
  if (type == QEvent::MouseButtonRelease || type == QEvent::KeyPress) isPressed_ = false;
  if (watched == this->widget_.viewport()) return false;
  return passEnter(*event) || Binding::eventFilter(watched, event);
}

template <class ControlType, class WidgetType>
void ItemViewBinding<ControlType, WidgetType>::itemMoved(int position) {
  wasPassed_ = true;
  if (position < 0) return;
  if (isPressed_) return choose(position);
  this->pass([=, this](Person& person) { person.moveTo(this->control_, position); });
}

template <class ControlType, class WidgetType>
void ItemViewBinding<ControlType, WidgetType>::itemClicked(int position) {
  if (!wasPassed_) choose(position);
}

template <class ControlType, class WidgetType>
void ItemViewBinding<ControlType, WidgetType>::itemDoubleClicked() {
  this->pass([this](Person& person) { person.doubleClick(this->control_); });
}

template <class ControlType, class WidgetType>
void ItemViewBinding<ControlType, WidgetType>::choose(int position) {
  this->pass([=, this](Person& person) { person.choose(this->control_, position); });
}

/// Held down with another key it is for the window.
template <class ControlType, class WidgetType>
bool ItemViewBinding<ControlType, WidgetType>::passEnter(const QEvent& event) {
  if (event.type() != QEvent::KeyPress || currentPosition() < 0) return false;
  const auto& key = static_cast<const QKeyEvent&>(event);
  if (key.key() != Qt::Key_Return && key.key() != Qt::Key_Enter) return false;
  if (key.modifiers() & ~Qt::KeypadModifier) return false;
  choose(currentPosition());
  return true;
}

ListBinding::ListBinding(Form& form, ListBox& control, QListWidget& widget)
    : ItemViewBinding(form, control, widget) {
  widget.setUniformItemSizes(true);
  connect(&widget, &QListWidget::currentRowChanged, this, [this](int row) { itemMoved(row); });
  connect(&widget, &QListWidget::itemClicked, this, [this] { itemClicked(widget_.currentRow()); });
  connect(&widget, &QListWidget::itemDoubleClicked, this, [this] { itemDoubleClicked(); });
}

void ListBinding::drawList() {
  drawEntries(widget_, control_);
  for (int row = 0; row < control_.listCount(); ++row) drawHeading(row);
}

void ListBinding::drawRows(const RowChange& change) {
  drawEntryRows(widget_, control_, change);
  if (change.kind == RowChange::Kind::added) drawHeading(change.row);
}

void ListBinding::drawHeading(int row) {
  if (control_.itemData(row) >= 0) return;
  QListWidgetItem& item = *widget_.item(row);
  item.setFlags(Qt::NoItemFlags);
  QFont font = widget_.font();
  font.setBold(true);
  item.setFont(font);
}

TreeBinding::TreeBinding(Form& form, TreeView& control, QTreeWidget& widget)
    : ItemViewBinding(form, control, widget) {
  widget.setHeaderHidden(true);
  widget.setUniformRowHeights(true);
  connect(&widget, &QTreeWidget::currentItemChanged, this,
          [this](const QTreeWidgetItem* item) { itemMoved(positionOf(item)); });
  connect(&widget, &QTreeWidget::itemClicked, this,
          [this](const QTreeWidgetItem* item) { itemClicked(positionOf(item)); });
  connect(&widget, &QTreeWidget::itemDoubleClicked, this, [this] { itemDoubleClicked(); });
}

void TreeBinding::drawList() {
  widget_.clear();
  items_.clear();
  for (const TreeView::Node& node : control_.nodes()) addItem(node);
  widget_.expandAll();
}

void TreeBinding::drawRows(const RowChange& change) {
  if (change.kind != RowChange::Kind::added) return drawList();
  const TreeView::Node& node = control_.nodes().at(static_cast<std::size_t>(change.row));
  addItem(node);
  if (QTreeWidgetItem* parent = itemAt(node.parent)) parent->setExpanded(true);
}

void TreeBinding::addItem(const TreeView::Node& node) {
  auto* item = new QTreeWidgetItem({shown(node.text)});
  item->setData(0, Qt::UserRole, static_cast<int>(items_.size()));
  QTreeWidgetItem* parent = itemAt(node.parent);
  if (parent) parent->setIcon(0, QIcon::fromTheme("folder"));
  (parent ? parent : widget_.invisibleRootItem())->addChild(item);
  items_.push_back(item);
}

QTreeWidgetItem* TreeBinding::itemAt(int position) const {
  return position < 0 ? nullptr : items_.at(static_cast<std::size_t>(position));
}

void TreeBinding::drawValue() {
  widget_.setCurrentItem(itemAt(control_.selected()));
}

int TreeBinding::currentPosition() const {
  return positionOf(widget_.currentItem());
}

TabBinding::TabBinding(Form& form, TabControl& control, QTabWidget& widget)
    : BindingOf(form, control, widget) {
  connect(&widget, &QTabWidget::currentChanged, this,
          [this](int page) { pass([=, this](Person& person) { person.choose(control_, page); }); });
}

void TabBinding::drawList() {
  const auto& pages = control_.pages();
  for (int page = 0; page < static_cast<int>(pages.size()) && page < widget_.count(); ++page) {
    const QString caption = shown(pages[static_cast<std::size_t>(page)]);
    widget_.setTabText(page, caption);
    widget_.setTabVisible(page, !caption.isEmpty());
  }
}

}  // namespace autonotify::desktop
