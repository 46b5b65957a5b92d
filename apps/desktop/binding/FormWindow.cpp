#include "binding/FormWindow.h"

#include <QCloseEvent>
#include <QEventLoop>
#include <QTimer>
#include <QVBoxLayout>

#include "binding/LayoutLoader.h"
#include "platform/controls/Timer.h"
#include "text.h"

namespace autonotify::desktop {

FormWindow::FormWindow(Form& form, QWidget* parent) : QDialog(parent), form_(form) {
  QWidget* layout = loadLayout(shown(form.name()), this);
  setObjectName(shown(form.name()));
  auto* box = new QVBoxLayout(this);
  box->addWidget(layout);
  resize(layout->size());
  const auto drawCaption = [this] { setWindowTitle(shown(form_.caption())); };
  form_.onRender = drawCaption;
  drawCaption();
  bindAll(*layout);
  startTimers();
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

void FormWindow::startTimers() {
  for (Control* control : form_.controls()) {
    auto* model = dynamic_cast<Timer*>(control);
    if (!model) continue;
    auto* timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, [model] { model->fire(); });
    const auto draw = [model, timer](Aspect) {
      timer->setInterval(model->interval());
      model->enabled() ? timer->start() : timer->stop();
    };
    model->onRender = draw;
    draw(Aspect::state);
    connect(this, &QObject::destroyed, timer, [model] { model->onRender = nullptr; });
  }
}

void FormWindow::runModally() {
  QEventLoop loop;
  loop_ = &loop;
  setWindowModality(Qt::ApplicationModal);
  show();
  for (const auto& binding : bindings_) binding->takeFocus();
  if (form_.isVisible()) loop.exec(QEventLoop::DialogExec);
  loop_ = nullptr;
  hide();
}

void FormWindow::leave() {
  hide();
  if (loop_) loop_->quit();
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  reject();
}

void FormWindow::reject() {
  if (form_.isVisible()) Person(form_).closeBox();
}

}  // namespace autonotify::desktop
