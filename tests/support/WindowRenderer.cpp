#include "support/WindowRenderer.h"

#include "platform/controls/Person.h"

namespace autonotify::test {
namespace {

class PersonAlone : public WindowDriver {
 public:
  explicit PersonAlone(Form& form) : person_(form) {}

  bool click(Control& control) override { return person_.click(control); }
  bool type(Control& control, const std::string& text) override {
    return person_.type(control, text);
  }
  bool choose(Control& control, int position) override { return person_.choose(control, position); }
  bool pickDate(DatePicker& picker, DateTime date) override {
    return person_.pickDate(picker, date);
  }
  bool tabTo(Control& control) override { return person_.tabTo(control); }
  bool closeBox() override { return person_.closeBox(); }

 private:
  Person person_;
};

class NoRenderer : public WindowRenderer {
 public:
  void show(Form& form, const Use& use) override {
    PersonAlone driver(form);
    use(driver);
  }
};

WindowRenderer*& rendererInUse() {
  static NoRenderer none;
  static WindowRenderer* renderer = &none;
  return renderer;
}

}  // namespace

WindowRenderer& WindowRenderer::inUse() {
  return *rendererInUse();
}

void WindowRenderer::setInUse(WindowRenderer& renderer) {
  rendererInUse() = &renderer;
}

}  // namespace autonotify::test
