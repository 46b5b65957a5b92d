#include <gtest/gtest.h>

#include <QAccessible>
#include <QLabel>
#include <QSet>
#include <functional>

#include "CallDialog.h"
#include "GridOptionsDialog.h"
#include "MainWindow.h"
#include "OptionsDialog.h"
#include "binding/FittingArea.h"
#include "binding/FormWindow.h"
#include "bulk/frmSendNotificationBulk.h"
#include "day/WeeksCard.h"
#include "editor/frmTaskAutoNotification.h"
#include "editor/frmTestComment.h"
#include "list/frmAutoNotifyChangeListColumns.h"
#include "list/frmAutoNotifyList.h"
#include "list/frmAutoNotifySearch.h"
#include "list/frmSendAutoNotifyCustomFields.h"
#include "list/frmSendAutoNotifyListOptions.h"
#include "platform/controls/Menu.h"
#include "platform/controls/Timer.h"
#include "preview/PreviewWindow.h"
#include "preview/report_pdf.h"
#include "qt_text.h"
#include "support/HostTest.h"
#include "wizards/frmSendNotificationWizard.h"
#include "wizards/frmSendNotificationWizardApptNotifyNow.h"
#include "wizards/frmSendNotificationWizardEmail.h"
#include "wizards/frmSendNotificationWizardFax.h"
#include "wizards/frmSendNotificationWizardLetter.h"
#include "wizards/frmSendNotificationWizardPhone.h"

namespace autonotify::test {
namespace {

class Layouts : public HostTest {};

/// What 1366 x 768 dots at 150 % leave to a window inside its frame and above the task bar.
constexpr QSize room(896, 440);

/// Without scroll bars.
void expectToFit(const QWidget& window) {
  const auto* area = window.findChild<desktop::FittingArea*>();
  const QSize least = area ? area->widget()->minimumSizeHint() : window.minimumSizeHint();
  EXPECT_EQ(least.boundedTo(room), least) << least.width() << " x " << least.height();
}

/// What a screen reader says of all that takes the focus.
void expectNames(const QWidget& window) {
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    bool isPart = widget->objectName().startsWith("qt_") || widget->focusPolicy() == Qt::NoFocus;
    for (const char* inner : {"QScrollBar", "QComboBoxListView", "QCalendarWidget"})
      isPart = isPart || widget->inherits(inner);
    for (const char* outer : {"QComboBox", "QAbstractSpinBox", "QCalendarWidget",
                              "QComboBoxPrivateContainer", "QGraphicsView"})
      isPart = isPart || widget->parentWidget()->inherits(outer);
    if (isPart) continue;
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(widget);
    EXPECT_NE(spoken->text(QAccessible::Name), QString())
        << widget->metaObject()->className() << ' ' << widget->objectName().toStdString() << " in "
        << widget->parentWidget()->metaObject()->className();
  }
}

/// One row for each window of the component.
const std::function<std::unique_ptr<Form>()> windows[] = {
    [] {
      auto wizard = std::make_unique<frmSendNotificationWizard>();
      wizard->Frame2.setVisible(false);
      return wizard;
    },
    [] {
      auto bulk = std::make_unique<frmSendNotificationBulk>();
      bulk->fraStep[1].setVisible(false);
      return bulk;
    },
    [] { return std::make_unique<frmAutoNotifyChangeListColumns>(); },
    [] { return std::make_unique<frmAutoNotifyList>(); },
    [] { return std::make_unique<frmAutoNotifySearch>(); },
    [] { return std::make_unique<frmSendAutoNotifyCustomFields>(); },
    [] { return std::make_unique<frmSendAutoNotifyListOptions>(); },
    [] { return std::make_unique<frmSendNotificationWizardApptNotifyNow>(); },
    [] { return std::make_unique<frmSendNotificationWizardEmail>(); },
    [] { return std::make_unique<frmSendNotificationWizardFax>(); },
    [] { return std::make_unique<frmSendNotificationWizardLetter>(); },
    [] { return std::make_unique<frmSendNotificationWizardPhone>(); },
    [] { return std::make_unique<frmTaskAutoNotification>(); },
    [] { return std::make_unique<frmTestComment>(); },
};

bool isDrawn(const Control& control) {
  return !dynamic_cast<const Timer*>(&control) && !dynamic_cast<const Menu*>(&control);
}

/// The names that the layout gives itself: what only decorates begins with "static".
QSet<QString> namesIn(const QWidget& layout) {
  QSet<QString> names;
  for (const QWidget* widget : layout.findChildren<QWidget*>()) {
    const QString name = widget->objectName();
    const bool isPart = name.startsWith("qt_") || name.startsWith("static") || name.isEmpty();
    bool isInner = false;
    for (const QWidget* parent = widget->parentWidget(); parent && parent != &layout;
         parent = parent->parentWidget())
      isInner = isInner || parent->inherits("QComboBox") ||
                parent->inherits("autonotify::desktop::CalendarButton") ||
                parent->inherits("QTabBar") ||
                parent->inherits("autonotify::desktop::RichTextEditor");
    if (!isPart && !isInner) names.insert(name);
  }
  return names;
}

TEST_F(Layouts, NameWhatTheWindowsNameAndNothingElse) {
  for (const auto& makeWindow : windows) {
    const std::unique_ptr<Form> form = makeWindow();
    SCOPED_TRACE(form->name());
    // Some captions come when the window is filled.
    for (Control* control : form->controls())
      if (control->caption().empty()) control->setCaption("told");
    desktop::FormWindow window(*form, nullptr);
    expectToFit(window);
    expectNames(window);
    QSet<QString> controls;
    for (const Control* control : form->controls())
      if (isDrawn(*control)) controls.insert(desktop::shown(control->name()));
    QSet<QString> drawn = namesIn(window);
    drawn.remove(desktop::shown(form->name()));
    EXPECT_EQ(QStringList((controls - drawn).values()).join(" ").toStdString(), "") << "no widget";
    EXPECT_EQ(QStringList((drawn - controls).values()).join(" ").toStdString(), "") << "no control";
    form->unload();
  }
}

TEST_F(Layouts, KeepTheLabelOfARowBesideItsBox) {
  frmSendNotificationBulk bulk;
  desktop::FormWindow window(bulk, nullptr);
  for (std::size_t row = 0; row < bulk.lblText.size(); ++row) {
    const auto* label = window.findChild<QLabel*>(desktop::shown(bulk.lblText[row].name()));
    EXPECT_EQ(label->buddy()->objectName(), desktop::shown(bulk.chkAutoNotify[row].name()));
  }
}

TEST_F(Layouts, OfTheProgramFitASmallScreenAndNameTheirControls) {
  Report report(screen, "drLetter", "Letter");
  const desktop::PreviewWindow preview(report, desktop::pdfOf(report), nullptr);
  const desktop::CallDialog call({}, "Somebody", nullptr);
  const desktop::OptionsDialog options(nullptr, nullptr);
  const desktop::MainWindow main({});
  Form owner(screen, "frmGrid");
  const Grid grid(owner, screen, "flexGrid");
  const desktop::GridOptionsDialog gridOptions({}, grid, nullptr);
  desktop::WeeksCard weeks(nullptr);
  weeks.showDay({});
  for (const QWidget* window : std::initializer_list<const QWidget*>{&preview, &call, &options,
                                                                     &main, &gridOptions, &weeks}) {
    SCOPED_TRACE(window->metaObject()->className());
    expectToFit(*window);
    expectNames(*window);
  }
}

}  // namespace
}  // namespace autonotify::test
