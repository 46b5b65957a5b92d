#include <gmock/gmock.h>

#include <QPageRanges>
#include <QPrinter>

#include "FormHostTest.h"
#include "preview/PageStrip.h"
#include "preview/PdfPages.h"
#include "preview/PreviewWindow.h"
#include "preview/print_pages.h"
#include "preview/report_pdf.h"

namespace autonotify::test {
namespace {

using desktop::PageStrip;
using desktop::PdfPages;
using desktop::plain;
using desktop::PreviewWindow;

class PreviewTest : public FormHostTest {
 protected:
  PreviewTest() {
    std::string text;
    for (int line = 0; line < 150; ++line) text += "The needle is in the hay.\n";
    body_.setCaption(text);
    report_.onTerminate = [this] { ++ends_; };
  }

  /// Shows the report and runs `act` before it; somebody must close it.
  void preview(const std::function<void(PreviewWindow&)>& act) {
    QObject scope;
    QTimer::singleShot(0, &scope, [&] {
      const auto close = qScopeGuard([this] { report_.unload(); });
      QApplication::setActiveWindow(&window());
      act(dynamic_cast<PreviewWindow&>(window()));
    });
    report_.showModal(nullptr);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(ends_, 1);
  }
  static void trigger(PreviewWindow& preview, const char* command) {
    preview.findChild<QAction*>(command)->trigger();
  }
  static std::string read(PreviewWindow& preview, const char* label) {
    return plain(preview.findChild<QLabel*>(label)->text());
  }

  Report report_{host_, "drLetter", "Letter"};
  ReportLabel body_{report_, "Section1", "lblBody"};
  int ends_ = 0;
};

TEST_F(PreviewTest, IsPagedThroughZoomedSearchedAndLeftByEscape) {
  preview([this](PreviewWindow& preview) {
    auto& pages = *preview.findChild<PdfPages*>();
    auto& page = *preview.findChild<QSpinBox*>("page");
    ASSERT_GT(pages.pages(), 1);
    for (const auto& [command, number] :
         {std::pair("nextPage", 2), {"previousPage", 1}, {"previousPage", 1}}) {
      trigger(preview, command);
      EXPECT_EQ(page.value(), number) << command;
    }
    EXPECT_FALSE(preview.findChild<QAction*>("previousPage")->isEnabled());
    page.setValue(2);
    EXPECT_EQ(pages.page(), 1);
    auto& strip = *preview.findChild<PageStrip*>();
    EXPECT_EQ(strip.currentIndex().row(), 1);
    strip.setCurrentIndex(strip.model()->index(0, 0));
    EXPECT_EQ(pages.page(), 0);
    trigger(preview, "fitPage");
    const int whole = pages.verticalScrollBar()->maximum();
    QTest::keyClick(&preview, Qt::Key_Equal, Qt::ControlModifier);
    EXPECT_GT(pages.verticalScrollBar()->maximum(), whole);
    for (const char* command : {"zoomOut", "zoomOut"}) trigger(preview, command);
    EXPECT_LT(pages.verticalScrollBar()->maximum(), whole);
    QTest::keyClicks(preview.findChild<QLineEdit*>("search"), "NEEDLE");
    QTRY_COMPARE(pages.found(), 150);
    EXPECT_EQ(read(preview, "found"), "1 of 150");
    trigger(preview, "findPrevious");
    EXPECT_EQ(read(preview, "found"), "150 of 150");
    EXPECT_EQ(page.value(), pages.pages());
    preview.findChild<QLineEdit*>("search")->setText("thread");
    EXPECT_EQ(read(preview, "found"), "not found");
    for (const bool isLeft : {false, true}) {
      QTest::keyClick(&preview, Qt::Key_Escape);
      EXPECT_EQ(report_.isShown(), !isLeft);
    }
  });
}

TEST_F(PreviewTest, AFaultInItClosesTheReport) {
  const auto fail = [] { desktop::FaultWatch::guard([] { throw std::bad_alloc(); }); };
  QTimer::singleShot(0, fail);
  EXPECT_THROW(report_.showModal(nullptr), std::bad_alloc);
  EXPECT_EQ(ends_, 1);
}

TEST_F(PreviewTest, APrinterThatFailsIsToldToTheReport) {
  const QTemporaryDir folder;
  std::vector<std::string> faults;
  report_.onError = [&](ReportFault& fault) {
    EXPECT_EQ(fault.jobType, report_job::printing);
    faults.push_back(fault.description);
    fault.showsError = false;
    report_.unload();
  };
  preview([&](PreviewWindow& preview) {
    for (const auto& [ranges, pages] : {std::pair("", 3), {"1", 1}, {"1,3-4", 2}, {"9", 2}}) {
      QPrinter printer;
      printer.setOutputFormat(QPrinter::PdfFormat);
      printer.setPageRanges(QPageRanges::fromString(ranges));
      for (const QString& name :
           {folder.filePath("out.pdf"), QString("/nowhere/out.pdf"), QString()}) {
        printer.setOutputFileName(name);
        preview.printTo(printer);
      }
      QPdfDocument printed;
      printed.load(folder.filePath("out.pdf"));
      EXPECT_EQ(printed.pageCount(), pages) << ranges;
    }
  });
  EXPECT_EQ(std::ranges::count(faults, "There is no printer to print on."), 4);
  EXPECT_EQ(faults.size(), 4u + 5) << "nowhere, and for the page 9 everywhere";
}

TEST_F(PreviewTest, PrintingCanBeStopped) {
  const QTemporaryDir folder;
  QPrinter printer;
  printer.setOutputFileName(folder.filePath("out.pdf"));
  printer.setPageRanges(QPageRanges::fromString("1-3"));
  preview([&](PreviewWindow& preview) {
    QPdfDocument& document = *preview.findChild<PdfPages*>()->document();
    for (const int last : {1, 3}) {
      const auto mayGoOn = [&](int printed, int pages) { return pages == 3 && printed < last; };
      const auto printing = desktop::printPages(document, {}, printer, mayGoOn);
      EXPECT_EQ(printing.stoppedAfter.has_value(), last == 1);
      EXPECT_EQ(QFile::exists(folder.filePath("out.pdf")), last == 3);
    }
  });
}

}  // namespace
}  // namespace autonotify::test
