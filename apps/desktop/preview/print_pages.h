#pragma once

#include <QByteArray>
#include <QString>
#include <functional>
#include <optional>

class QPdfDocument;
class QPrinter;

namespace autonotify::desktop {

/// Asked before each page; False stops the printing.
using GoOnPrinting = std::function<bool(int printed, int pages)>;

struct Printing {
  /// The words of what went wrong; empty when nothing did.
  QString fault = {};
  /// How many pages went out before it was stopped; unset when it was not.
  std::optional<int> stoppedAfter = std::nullopt;
};

/// Prints the document as it is seen, in its own size; of its pages those that the printer is to
/// print. A printer that writes a PDF file is given the whole one as it is; of one that was stopped
/// no file stays.
Printing printPages(QPdfDocument& document, const QByteArray& pdf, QPrinter& printer,
                    const GoOnPrinting& mayGoOn);

}  // namespace autonotify::desktop
