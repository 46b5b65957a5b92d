#include "preview/PreviewWindow.h"

#include <QAction>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPageSize>
#include <QPdfPageNavigator>
#include <QPrintDialog>
#include <QPrinter>
#include <QScreen>
#include <QSpinBox>
#include <QToolBar>
#include <QVBoxLayout>

#include "binding/FaultWatch.h"
#include "preview/PdfPages.h"
#include "preview/print_pages.h"
#include "qt_text.h"

namespace autonotify::desktop {
namespace {

constexpr int printerFault = 482;
constexpr QSize wantedSize(900, 1000);
constexpr double shareOfScreen = 0.9;
constexpr int searchWidth = 24;  // characters

}  // namespace

struct PreviewWindow::Command {
  /// The action's object name.
  const char* name;
  const char* text;
  QKeySequence keys;
  /// A name in the desktop's icon theme.
  const char* icon;
  void (*run)(PreviewWindow& window);
};

std::span<const PreviewWindow::Command> PreviewWindow::commands() {
  // Keys can be asked for when the toolkit is up.
  static const Command rows[] = {
      {"print", QT_TR_NOOP("Print..."), QKeySequence::Print, "document-print",
       [](PreviewWindow& window) { window.choosePrinter(); }},
      {"zoomOut", QT_TR_NOOP("Zoom Out"), QKeySequence::ZoomOut, "zoom-out",
       [](PreviewWindow& window) { window.pages_->reduce(); }},
      {"zoomIn", QT_TR_NOOP("Zoom In"), QKeySequence::ZoomIn, "zoom-in",
       [](PreviewWindow& window) { window.pages_->enlarge(); }},
      {"fitWidth", QT_TR_NOOP("Page Width"), Qt::CTRL | Qt::Key_1, "zoom-fit-width",
       [](PreviewWindow& window) { window.pages_->setZoomMode(PdfPages::ZoomMode::FitToWidth); }},
      {"fitPage", QT_TR_NOOP("Whole Page"), Qt::CTRL | Qt::Key_0, "zoom-fit-page",
       [](PreviewWindow& window) { window.pages_->setZoomMode(PdfPages::ZoomMode::FitInView); }},
      {"previousPage", QT_TR_NOOP("Previous Page"), Qt::CTRL | Qt::Key_PageUp, "go-previous",
       [](PreviewWindow& window) { window.pages_->turnTo(window.pages_->page() - 1); }},
      {"nextPage", QT_TR_NOOP("Next Page"), Qt::CTRL | Qt::Key_PageDown, "go-next",
       [](PreviewWindow& window) { window.pages_->turnTo(window.pages_->page() + 1); }},
      {"find", QT_TR_NOOP("Find"), QKeySequence::Find, "edit-find",
       [](PreviewWindow& window) { window.startSearch(); }},
      {"findPrevious", QT_TR_NOOP("Find Previous"), QKeySequence::FindPrevious, "go-up",
       [](PreviewWindow& window) { window.pages_->showFound(true); }},
      {"findNext", QT_TR_NOOP("Find Next"), QKeySequence::FindNext, "go-down",
       [](PreviewWindow& window) { window.pages_->showFound(false); }},
  };
  return rows;
}

PreviewWindow::PreviewWindow(Report& report, const QByteArray& pdf, QWidget* parent)
    : ModalWindow(report, parent), report_(report), pdf_(pdf), file_(&pdf_) {
  setObjectName(shown(report.name()));
  setWindowTitle(shown(report.caption()));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  file_.open(QIODevice::ReadOnly);
  document_.load(&file_);
  pages_ = new PdfPages(document_, this);
  auto* bar = new QToolBar(this);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->setSpacing(0);
  layout->addWidget(bar);
  layout->addWidget(pages_);
  makeBar(*bar);
  connect(pages_->pageNavigator(), &QPdfPageNavigator::currentPageChanged, this,
          &PreviewWindow::showPage);
  connect(pages_, &PdfPages::foundChanged, this, &PreviewWindow::showFound);
  showPage();
  showFound();
  resize(wantedSize.boundedTo(screen()->availableSize() * shareOfScreen));
  pages_->setFocus();
}

PreviewWindow::~PreviewWindow() {
  // The pages look at the document to their end.
  delete pages_;
}

void PreviewWindow::makeBar(QToolBar& bar) {
  for (const Command& command : commands()) {
    auto* made = new QAction(QIcon::fromTheme(command.icon), tr(command.text), this);
    made->setObjectName(command.name);
    made->setShortcut(command.keys);
    made->setToolTip(
        QString("%1 (%2)").arg(tr(command.text), command.keys.toString(QKeySequence::NativeText)));
    connect(made, &QAction::triggered, this,
            [this, run = command.run] { FaultWatch::guard([&] { run(*this); }); });
    bar.addAction(made);
  }
  addPageField(bar);
  addSearchField(bar);
  for (const char* name : {"zoomOut", "previousPage"}) bar.insertSeparator(action(name));
}

void PreviewWindow::addPageField(QToolBar& bar) {
  page_ = new QSpinBox(&bar);
  page_->setObjectName("page");
  page_->setRange(1, pages_->pages());
  page_->setSuffix(tr(" of %L1").arg(pages_->pages()));
  page_->setButtonSymbols(QAbstractSpinBox::NoButtons);
  page_->setKeyboardTracking(false);
  page_->setAccessibleName(tr("Page"));
  connect(page_, &QSpinBox::valueChanged, this, [this](int page) { pages_->turnTo(page - 1); });
  bar.insertWidget(action("nextPage"), page_);
}

void PreviewWindow::addSearchField(QToolBar& bar) {
  search_ = new QLineEdit(&bar);
  search_->setObjectName("search");
  search_->setPlaceholderText(tr("Find in the document"));
  search_->setClearButtonEnabled(true);
  search_->setMaximumWidth(search_->fontMetrics().averageCharWidth() * searchWidth);
  connect(search_, &QLineEdit::textChanged, pages_, &PdfPages::find);
  connect(search_, &QLineEdit::returnPressed, action("findNext"), &QAction::trigger);
  found_ = new QLabel(&bar);
  found_->setObjectName("found");
  found_->setMinimumWidth(found_->fontMetrics().horizontalAdvance(tr("not found")));
  bar.removeAction(action("find"));
  addAction(action("find"));
  bar.insertSeparator(action("findPrevious"));
  bar.insertWidget(action("findPrevious"), search_);
  bar.insertWidget(action("findPrevious"), found_);
}

QAction* PreviewWindow::action(const char* name) const {
  return findChild<QAction*>(name, Qt::FindDirectChildrenOnly);
}

void PreviewWindow::startSearch() {
  search_->setFocus(Qt::ShortcutFocusReason);
  search_->selectAll();
}

void PreviewWindow::showPage() {
  const int page = pages_->page();
  const QSignalBlocker quiet(page_);
  page_->setValue(page + 1);
  action("previousPage")->setEnabled(page > 0);
  action("nextPage")->setEnabled(page + 1 < pages_->pages());
}

void PreviewWindow::showFound() {
  const int count = pages_->found();
  for (const char* name : {"findPrevious", "findNext"}) action(name)->setEnabled(count > 0);
  found_->setText(search_->text().isEmpty() ? QString()
                  : count == 0              ? tr("not found")
                               : tr("%L1 of %L2").arg(pages_->current() + 1).arg(count));
}

void PreviewWindow::choosePrinter() {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(windowTitle());
  printer.setPageSize(QPageSize(document_.pagePointSize(0), QPageSize::Point));
  QPrintDialog dialog(&printer, this);
  dialog.setMinMax(1, pages_->pages());
  dialog.setOption(QAbstractPrintDialog::PrintPageRange);
  if (dialog.exec() == QDialog::Accepted) printTo(printer);
}

void PreviewWindow::printTo(QPrinter& printer) {
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  const QString fault = printPages(document_, pdf_, printer);
  QGuiApplication::restoreOverrideCursor();
  if (fault.isEmpty()) return;
  if (report_.fail({report_job::printing, 0, printerFault, plain(fault)}))
    QMessageBox::critical(this, windowTitle(), fault);
}

void PreviewWindow::reject() {
  if (search_->text().isEmpty()) {
    close();
  } else {
    search_->clear();
    pages_->setFocus();
  }
}

void PreviewWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  FaultWatch::guard([this] { report_.unload(); });
}

}  // namespace autonotify::desktop
