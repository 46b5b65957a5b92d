#include "binding/list_search.h"

#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QShortcut>

namespace autonotify::desktop {
namespace {

bool isEntry(const QListWidgetItem& item) {
  return item.flags() & Qt::ItemIsEnabled;
}

class ListSearch : public QObject {
 public:
  ListSearch(QLineEdit& field, QListWidget& list, QLabel* found)
      : QObject(&field), list_(list), found_(found) {
    connect(&field, &QLineEdit::textChanged, this, &ListSearch::show);
    field.installEventFilter(this);
    field.addAction(QIcon::fromTheme("edit-find"), QLineEdit::LeadingPosition);
    auto* shortcut = new QShortcut(QKeySequence::Find, field.window());
    connect(shortcut, &QShortcut::activated, &field, [&field] {
      field.setFocus();
      field.selectAll();
    });
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter && key != Qt::Key_Down) return false;
    goToFirst();
    return true;
  }

 private:
  /// A heading or an empty line is shown with the entries below it that are.
  void show(const QString& text) {
    const QString sought = text.trimmed();
    int count = 0;
    QListWidgetItem* heading = nullptr;
    for (int row = 0; row < list_.count(); ++row) {
      QListWidgetItem& item = *list_.item(row);
      if (!isEntry(item)) {
        item.setHidden(!sought.isEmpty());
        if (!item.text().isEmpty()) heading = &item;
        continue;
      }
      const bool isFound = item.text().contains(sought, Qt::CaseInsensitive);
      item.setHidden(!isFound);
      if (!isFound) continue;
      ++count;
      if (heading) heading->setHidden(false);
    }
    tell(sought.isEmpty() ? QString()
         : count > 0      ? QObject::tr("%Ln found", "", count)
                          : QObject::tr("None of that name"));
  }

  void tell(const QString& words) {
    if (found_) found_->setText(words);
  }

  void goToFirst() {
    for (int row = 0; row < list_.count(); ++row) {
      const QListWidgetItem& item = *list_.item(row);
      if (item.isHidden() || !isEntry(item)) continue;
      list_.setFocus();
      return list_.setCurrentRow(row);
    }
  }

  QListWidget& list_;
  QLabel* found_;
};

QLabel* labelOf(const QLineEdit& field, const QWidget& layout) {
  for (QLabel* label : layout.findChildren<QLabel*>())
    if (label->buddy() == &field) return label;
  return nullptr;
}

}  // namespace

void bindSearches(QWidget& layout) {
  for (QLineEdit* field : layout.findChildren<QLineEdit*>()) {
    auto* list = layout.findChild<QListWidget*>(field->property("searches").toString());
    if (list && field->property("searches").isValid())
      new ListSearch(*field, *list, labelOf(*field, layout));
  }
}

}  // namespace autonotify::desktop
