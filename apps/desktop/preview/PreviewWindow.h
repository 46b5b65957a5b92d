#pragma once

#include <QBuffer>
#include <QPdfDocument>
#include <span>

#include "binding/ModalWindow.h"
#include "binding/window_notes.h"
#include "platform/controls/Report.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QPrinter;
class QSpinBox;
class QToolBar;

namespace autonotify::desktop {

class PageStrip;
class PdfPages;

/// A report as it is printed: its pages on the screen, which can be paged through, searched and
/// printed. The close box unloads the report, and so does Escape, which leaves a search first.
class PreviewWindow : public ModalWindow {
  Q_OBJECT

 public:
  /// `pdf` holds the report's pages.
  PreviewWindow(Report& report, const QByteArray& pdf, QWidget* parent,
                const WindowNotes& notes = {});
  ~PreviewWindow() override;

  /// Asks for a printer as soon as the pages have come up.
  void askPrinterFirst() { asksPrinterFirst_ = true; }
  /// Page by page, and the person can stop it. What goes wrong is told to the report, and to the
  /// person if that wants it.
  void printTo(QPrinter& printer);

 protected:
  void begin() override;
  void closeEvent(QCloseEvent* event) override;
  void reject() override;

 private:
  struct Command;
  static std::span<const Command> commands();

  void layOut(const WindowNotes& notes);
  void makeBar(QToolBar& bar);
  QWidget* makeStatus(const WindowNotes& notes);
  void addZoomField(QToolBar& bar);
  void addPageField(QToolBar& bar);
  void addSearchField(QToolBar& bar);
  QAction* action(const char* name) const;
  void choosePrinter();
  void startSearch();
  void showPage();
  void showZoom();
  void showFound();

  Report& report_;
  bool asksPrinterFirst_ = false;
  QByteArray pdf_;
  QBuffer file_;
  QPdfDocument document_;
  PdfPages* pages_ = nullptr;
  PageStrip* strip_ = nullptr;
  QComboBox* zoom_ = nullptr;
  QSpinBox* page_ = nullptr;
  QLineEdit* search_ = nullptr;
  QLabel* found_ = nullptr;
  QLabel* place_ = nullptr;
};

}  // namespace autonotify::desktop
