#include "binding/LayoutLoader.h"

#include <QFile>
#include <QUiLoader>
#include <stdexcept>

#include "text.h"

namespace autonotify::desktop {

QWidget* loadLayout(const QString& name, QWidget* parent) {
  QFile file(":/forms/" + name + ".ui");
  if (!file.open(QIODevice::ReadOnly))
    throw std::logic_error("there is no layout for " + plain(name));
  QUiLoader loader;
  QWidget* layout = loader.load(&file, parent);
  if (!layout) throw std::logic_error(plain(name) + ": " + plain(loader.errorString()));
  return layout;
}

}  // namespace autonotify::desktop
