#include "binding/LayoutLoader.h"

#include <QFile>
#include <QUiLoader>
#include <stdexcept>

#include "binding/CalendarButton.h"
#include "qt_text.h"
#include "richtext/RichTextEditor.h"

namespace autonotify::desktop {
namespace {

/// Knows the program's own widgets besides Qt's.
class LayoutLoader : public QUiLoader {
 public:
  QWidget* createWidget(const QString& className, QWidget* parent, const QString& name) override {
    QWidget* own = newOwn(className, parent);
    if (!own) return QUiLoader::createWidget(className, parent, name);
    own->setObjectName(name);
    return own;
  }

 private:
  static QWidget* newOwn(const QString& className, QWidget* parent) {
    if (className == "RichTextEditor") return new RichTextEditor(parent);
    if (className == "CalendarButton") return new CalendarButton(parent);
    return nullptr;
  }
};

}  // namespace

QWidget* loadLayout(const QString& name, QWidget* parent) {
  QFile file(":/forms/" + name + ".ui");
  if (!file.open(QIODevice::ReadOnly))
    throw std::logic_error("there is no layout for " + plain(name));
  LayoutLoader loader;
  QWidget* layout = loader.load(&file, parent);
  if (!layout) throw std::logic_error(plain(name) + ": " + plain(loader.errorString()));
  return layout;
}

}  // namespace autonotify::desktop
