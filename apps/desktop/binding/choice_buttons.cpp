#include "binding/choice_buttons.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QLabel>
#include <memory>

namespace autonotify::desktop {
namespace {

void pressNone(QButtonGroup& group) {
  group.setExclusive(false);
  if (auto* pressed = group.checkedButton()) pressed->setChecked(false);
  group.setExclusive(true);
}

void endChoice(QButtonGroup& group, QAbstractButton& button, const QLabel& words) {
  auto before = std::make_shared<QString>();
  QObject::connect(&button, &QAbstractButton::pressed, &group,
                   [before, &words] { *before = words.text(); });
  QObject::connect(&button, &QAbstractButton::clicked, &group, [before, &group, &words] {
    if (*before != words.text()) pressNone(group);
  });
}

}  // namespace

void bindChoice(QWidget& layout) {
  auto* group = new QButtonGroup(&layout);
  for (auto* button : layout.findChildren<QAbstractButton*>()) {
    const QString choice = button->property("choice").toString();
    if (!choice.isEmpty()) {
      group->addButton(button);
      button->setCheckable(true);
      button->setChecked(choice == "first");
    }
    const auto* words = layout.findChild<QLabel*>(button->property("endsChoice").toString());
    if (words && button->property("endsChoice").isValid()) endChoice(*group, *button, *words);
  }
}

}  // namespace autonotify::desktop
