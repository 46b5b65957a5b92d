#include "preview/PreviewWindow.h"

#include <QAction>
#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPageSize>
#include <QPdfPageNavigator>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressDialog>
#include <QScreen>
#include <QSpinBox>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "binding/FaultWatch.h"
#include "preview/PageStrip.h"
#include "preview/PdfPages.h"
#include "preview/print_pages.h"
#include "qt_text.h"

namespace autonotify::desktop {
namespace {

constexpr int printerFault = 482;
constexpr QSize wantedSize(900, 1000);
constexpr double shareOfScreen = 0.9;
constexpr int zoomSteps[] = {50, 75, 100, 125, 150, 200};  // percent
constexpr int searchWidth = 24;                            // characters
constexpr int progressPauseMs = 300;

}  // namespace

struct PreviewWindow::Command {
  /// The action's object name.
  const char* name;
  const char* text;
  QKeySequence keys;
  /// A name in the desktop's icon theme.
  const char* icon;
  void (*run)(PreviewWindow& window);
  QKeySequence otherKeys = {};
};

std::span<const PreviewWindow::Command> PreviewWindow::commands() {
  // Keys can be asked for when the toolkit is up.
  static const Command rows[] = {
      {"print", QT_TR_NOOP("Print..."), QKeySequence::Print, "document-print",
       [](PreviewWindow& window) { window.choosePrinter(); }},
      {"zoomOut", QT_TR_NOOP("Zoom Out"), QKeySequence::ZoomOut, "zoom-out",
       [](PreviewWindow& window) { window.pages_->reduce(); }},
      {"zoomIn", QT_TR_NOOP("Zoom In"), QKeySequence::ZoomIn, "zoom-in",
       [](PreviewWindow& window) { window.pages_->enlarge(); }, Qt::CTRL | Qt::Key_Equal},
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
      {"close", QT_TR_NOOP("Close"), QKeySequence::Close, "window-close",
       [](PreviewWindow& window) { window.close(); }},
  };
  return rows;
}

PreviewWindow::PreviewWindow(Report& report, const QByteArray& pdf, QWidget* parent,
                             const WindowNotes& notes)
    : ModalWindow(report, parent), report_(report), pdf_(pdf), file_(&pdf_) {
  setObjectName(shown(report.name()));
  setWindowTitle(shown(report.caption()));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  file_.open(QIODevice::ReadOnly);
  document_.load(&file_);
  pages_ = new PdfPages(document_, this);
  pages_->setAccessibleName(tr("Document"));
  strip_ = new PageStrip(document_, this);
  strip_->setVisible(pages_->pages() > 1);
  layOut(notes);
  connect(pages_->pageNavigator(), &QPdfPageNavigator::currentPageChanged, this,
          &PreviewWindow::showPage);
  connect(strip_, &PageStrip::pageChosen, pages_, &PdfPages::turnTo);
  connect(pages_, &PdfPages::foundChanged, this, &PreviewWindow::showFound);
  connect(pages_, &PdfPages::zoomed, this, &PreviewWindow::showZoom);
  showPage();
  showZoom();
  showFound();
  resize(wantedSize.boundedTo(screen()->availableSize() * shareOfScreen));
  pages_->setFocus();
}

PreviewWindow::~PreviewWindow() {
  // They look at the document to their end.
  delete strip_;
  delete pages_;
}

void PreviewWindow::layOut(const WindowNotes& notes) {
  auto* bar = new QToolBar(this);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->setSpacing(0);
  layout->addWidget(bar);
  auto* middle = new QHBoxLayout;
  middle->setSpacing(0);
  middle->addWidget(strip_);
  middle->addWidget(pages_, 1);
  layout->addLayout(middle, 1);
  layout->addWidget(makeStatus(notes));
  makeBar(*bar);
}

void PreviewWindow::makeBar(QToolBar& bar) {
  for (const Command& command : commands()) {
    auto* made = new QAction(QIcon::fromTheme(command.icon), tr(command.text), this);
    made->setObjectName(command.name);
    made->setShortcuts({command.keys, command.otherKeys});
    made->setToolTip(
        QString("%1 (%2)").arg(tr(command.text), command.keys.toString(QKeySequence::NativeText)));
    connect(made, &QAction::triggered, this,
            [this, run = command.run] { FaultWatch::guard([&] { run(*this); }); });
    bar.addAction(made);
  }
  addZoomField(bar);
  addPageField(bar);
  addSearchField(bar);
  for (const char* name : {"zoomOut", "previousPage"}) bar.insertSeparator(action(name));
  auto* space = new QWidget(&bar);
  space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  bar.insertWidget(action("close"), space);
  for (const char* name : {"print", "close"})
    qobject_cast<QToolButton*>(bar.widgetForAction(action(name)))
        ->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
}

QWidget* PreviewWindow::makeStatus(const WindowNotes& notes) {
  auto* bar = new QStatusBar(this);
  bar->setSizeGripEnabled(false);
  auto* filed = new QLabel(bar);
  filed->setObjectName("staticNoteFiled");
  bar->addWidget(filed, 1);
  place_ = new QLabel(bar);
  place_->setObjectName("place");
  bar->addPermanentWidget(place_);
  showNotes(*bar, notes);
  return bar;
}

void PreviewWindow::addZoomField(QToolBar& bar) {
  zoom_ = new QComboBox(&bar);
  zoom_->setObjectName("zoom");
  zoom_->setAccessibleName(tr("Zoom"));
  zoom_->setFocusPolicy(Qt::TabFocus);
  for (const int percent : zoomSteps) zoom_->addItem(tr("%L1 %").arg(percent), percent);
  connect(zoom_, &QComboBox::activated, this,
          [this](int step) { pages_->zoomTo(zoom_->itemData(step).toInt()); });
  bar.insertWidget(action("zoomIn"), zoom_);
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
  search_->setAccessibleName(search_->placeholderText());
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
  strip_->showPage(page);
  place_->setText(tr("Page %L1 of %L2").arg(page + 1).arg(pages_->pages()));
  action("previousPage")->setEnabled(page > 0);
  action("nextPage")->setEnabled(page + 1 < pages_->pages());
}

/// One that is no step stands in the closed field alone.
void PreviewWindow::showZoom() {
  const int percent = pages_->zoomPercent();
  zoom_->setCurrentIndex(zoom_->findData(percent));
  zoom_->setPlaceholderText(tr("%L1 %").arg(percent));
}

void PreviewWindow::showFound() {
  const int count = pages_->found();
  for (const char* name : {"findPrevious", "findNext"}) action(name)->setEnabled(count > 0);
  found_->setText(search_->text().isEmpty() ? QString()
                  : count == 0              ? tr("not found")
                               : tr("%L1 of %L2").arg(pages_->current() + 1).arg(count));
}

void PreviewWindow::begin() {
  report_.comeUp();
  if (!asksPrinterFirst_) return;
  QMetaObject::invokeMethod(
      this, [this] { FaultWatch::guard([this] { choosePrinter(); }); }, Qt::QueuedConnection);
}

void PreviewWindow::choosePrinter() {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(windowTitle());
  QSizeF paper = document_.pagePointSize(0);
  const bool isTurned = paper.width() > paper.height();
  if (isTurned) paper.transpose();
  printer.setPageSize(QPageSize(paper, QPageSize::Point));
  printer.setPageOrientation(isTurned ? QPageLayout::Landscape : QPageLayout::Portrait);
  QPrintDialog dialog(&printer, this);
  dialog.setMinMax(1, pages_->pages());
  dialog.setOption(QAbstractPrintDialog::PrintPageRange);
  if (dialog.exec() == QDialog::Accepted) printTo(printer);
}

void PreviewWindow::printTo(QPrinter& printer) {
  QProgressDialog progress(this);
  progress.setWindowTitle(windowTitle());
  progress.setWindowModality(Qt::WindowModal);
  progress.setMinimumDuration(progressPauseMs);
  const auto [fault, stoppedAfter] =
      printPages(document_, pdf_, printer, [&](int printed, int pages) {
        progress.setLabelText(tr("Printing page %L1 of %L2").arg(printed + 1).arg(pages));
        progress.setMaximum(pages);
        // Lets the windows breathe.
        progress.setValue(printed);
        return !progress.wasCanceled();
      });
  progress.reset();
  if (stoppedAfter)
    QMessageBox::information(
        this, windowTitle(),
        tr("The printing was stopped. Pages that went out before: %L1.").arg(*stoppedAfter));
  if (!fault.isEmpty() && report_.fail({report_job::printing, 0, printerFault, plain(fault)}))
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
