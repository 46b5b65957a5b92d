#pragma once

#include <QByteArray>
#include <QString>

class QPdfDocument;
class QPrinter;

namespace autonotify::desktop {

/// Prints the document as it is seen, in its own size; of its pages those that the printer is to
/// print. A printer that writes a PDF file is given the whole one as it is. Gives the words of what
/// went wrong; empty when all went well.
QString printPages(QPdfDocument& document, const QByteArray& pdf, QPrinter& printer);

}  // namespace autonotify::desktop
