#include "binding/FormWindow.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <map>
#include <optional>

#include "binding/FaultWatch.h"
#include "binding/FittingArea.h"
#include "binding/LayoutLoader.h"
#include "binding/choice_buttons.h"
#include "binding/list_search.h"
#include "binding/pane_keys.h"
#include "platform/controls/Timer.h"
#include "qt_text.h"
#include "richtext/MergeFieldDelegate.h"
#include "richtext/MergeFieldHighlighter.h"
#include "richtext/RichTextEditor.h"

namespace autonotify::desktop {
namespace {

class RunningTimer : public QTimer {
 public:
  RunningTimer(Timer& model, QObject* parent) : QTimer(parent), model_(model) {
    callOnTimeout([this] { FaultWatch::guard([this] { model_.fire(); }); });
    model_.onRender = [this](Aspect) { obey(); };
    obey();
  }
  ~RunningTimer() override { model_.onRender = nullptr; }

 private:
  void obey() {
    setInterval(model_.interval());
    model_.enabled() && model_.interval() > 0 ? start() : stop();
  }

  Timer& model_;
};

}  // namespace

FormWindow::FormWindow(Form& form, QWidget* parent, const WindowNotes& notes,
                       const AskFieldNames& fieldNames)
    : ModalWindow(form, parent), form_(form) {
  QWidget* layout = loadLayout(shown(form.name()), this);
  setObjectName(shown(form.name()));
  auto* box = new QVBoxLayout(this);
  const QSize wanted = layout->size();
  box->addWidget(new FittingArea(*layout, this));
  resize(wanted.boundedTo(FittingArea::roomFor(*this)));
  bindAll(*layout);
  bindKeys(*layout);
  bindChoice(*layout);
  bindSearches(*layout);
  bindPanes(*layout);
  showFields(*layout, fieldNames);
  showNotes(*layout, notes);
  orderFocus();
  startTimers();
  form_.onRender = [this] { setWindowTitle(shown(form_.caption())); };
  form_.onRender();
}

FormWindow::~FormWindow() {
  form_.onRender = nullptr;
}

void FormWindow::bindAll(QWidget& layout) {
  for (Control* control : form_.controls()) {
    if (auto binding = bindControl(form_, *control, layout))
      bindings_.push_back(std::move(binding));
  }
  for (const auto& binding : bindings_) binding->render();
}

// Not as the button's own shortcut: that goes with the next caption. Of several buttons with one
// key the first that is in reach takes it.
void FormWindow::bindKeys(QWidget& layout) {
  std::map<QKeySequence, QList<QAbstractButton*>> buttons;
  for (auto* button : layout.findChildren<QAbstractButton*>()) {
    if (auto* push = qobject_cast<QPushButton*>(button)) push->setAutoDefault(false);
    const QString keys = button->property("keys").toString();
    for (const QKeySequence& sequence : QKeySequence::listFromString(keys))
      buttons[sequence].append(button);
  }
  for (const auto& row : buttons) {
    connect(new QShortcut(row.first, this), &QShortcut::activated, this, [pressed = row.second] {
      const auto found = std::ranges::find_if(
          pressed, [](auto* button) { return button->isVisible() && button->isEnabled(); });
      if (found != pressed.end()) (*found)->click();
    });
  }
}

void FormWindow::showFields(QWidget& layout, const AskFieldNames& fieldNames) {
  std::optional<FieldNames> names;
  for (QWidget* widget : layout.findChildren<QWidget*>()) {
    if (!widget->property("showsMergeFields").toBool()) continue;
    if (!names) names = fieldNames ? fieldNames() : FieldNames();
    if (auto* editor = qobject_cast<RichTextEditor*>(widget))
      new MergeFieldHighlighter(*editor->edit().document(), palette(), names->all);
    if (auto* list = qobject_cast<QListWidget*>(widget))
      list->setItemDelegate(new MergeFieldDelegate(names->dates, list));
  }
}

void FormWindow::orderFocus() {
  QWidget* before = nullptr;
  for (const auto& binding : bindings_) {
    if (!binding->control().takesFocus()) continue;
    if (before) setTabOrder(before, &binding->widget());
    before = &binding->widget();
  }
}

void FormWindow::startTimers() {
  for (Control* control : form_.controls()) {
    if (auto* model = dynamic_cast<Timer*>(control)) new RunningTimer(*model, this);
  }
}

// By the time that it is asked, the window has taken up what is written.
void FormWindow::follow(AskNotes notes) {
  following_ = std::move(notes);
  const auto show = [this] { followNotes(*this, following_()); };
  for (auto* field : findChildren<QLineEdit*>())
    connect(field, &QLineEdit::textChanged, this, show, Qt::QueuedConnection);
  show();
}

void FormWindow::begin() {
  for (const auto& binding : bindings_) binding->takeFocus();
}

void FormWindow::leave() {
  ModalWindow::leave();
  for (auto* timer : findChildren<QTimer*>(QString(), Qt::FindDirectChildrenOnly)) timer->stop();
}

void FormWindow::drawNow() {
  for (const auto& binding : bindings_) binding->render();
  repaint();
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (!form_.isVisible()) return;
  FaultWatch::guard([this] {
    if (!mayClose_ || mayClose_()) Person(form_).closeBox();
  });
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  auto* button = qobject_cast<QPushButton*>(focusWidget());
  if (button && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)) button->click();
}

}  // namespace autonotify::desktop
