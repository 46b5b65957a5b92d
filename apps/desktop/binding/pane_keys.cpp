#include "binding/pane_keys.h"

#include <QApplication>
#include <QShortcut>
#include <QWidget>
#include <algorithm>

namespace autonotify::desktop {
namespace {

/// Where the focus is in no pane, the first is the next one.
void leadOn(const QList<QWidget*>& panes, int steps) {
  const auto here = std::ranges::find_if(panes, [](const QWidget* pane) {
    return pane->parentWidget()->isAncestorOf(QApplication::focusWidget());
  });
  const qsizetype count = panes.size();
  const qsizetype next = here == panes.end() ? 0 : here - panes.begin() + steps + count;
  panes[next % count]->setFocus(Qt::TabFocusReason);
}

}  // namespace

void bindPanes(QWidget& layout) {
  QList<QWidget*> panes;
  for (const QString& name : layout.property("panes").toString().split(' ', Qt::SkipEmptyParts))
    if (auto* pane = layout.findChild<QWidget*>(name)) panes.append(pane);
  if (panes.isEmpty()) return;
  for (const auto& [keys, steps] : {std::pair("F6", 1), std::pair("Shift+F6", -1)}) {
    auto* shortcut = new QShortcut(QKeySequence(keys), layout.window());
    QObject::connect(shortcut, &QShortcut::activated, &layout,
                     [panes, steps = steps] { leadOn(panes, steps); });
  }
}

}  // namespace autonotify::desktop
