#include "richtext/RichTextField.h"

#include <QFile>
#include <QFileInfo>
#include <QMessageBox>
#include <QMimeData>
#include <QTextDocumentFragment>
#include <QUrl>
#include <algorithm>
#include <optional>

#include "host/desk/work/template_file.h"
#include "platform/rich_text.h"
#include "qt_text.h"
#include "richtext/document_conversion.h"

namespace autonotify::desktop {
namespace {

/// What programs call RTF.
constexpr const char* rtfNames[] = {"text/rtf", "application/rtf", "text/richtext"};

const char* rtfNameIn(const QMimeData& data) {
  const auto* found =
      std::ranges::find_if(rtfNames, [&](const char* name) { return data.hasFormat(name); });
  return found == std::end(rtfNames) ? nullptr : *found;
}

QStringList filesIn(const QMimeData& data) {
  QStringList paths;
  for (const QUrl& url : data.urls())
    if (url.isLocalFile()) paths.append(url.toLocalFile());
  return paths;
}

/// Nothing where there is none, or none that can be read: then its plain text will do.
std::optional<RichText> richTextIn(const QMimeData& data) {
  const char* name = rtfNameIn(data);
  if (!name) return std::nullopt;
  const auto read = host::readTemplate(data.data(name).toStdString(), name);
  return read ? std::optional(readRichText(*read)) : std::nullopt;
}

}  // namespace

bool RichTextField::canInsertFromMimeData(const QMimeData* source) const {
  return rtfNameIn(*source) || !filesIn(*source).isEmpty() ||
         QTextEdit::canInsertFromMimeData(source);
}

void RichTextField::insertFromMimeData(const QMimeData* source) {
  if (isReadOnly()) return;
  if (const QStringList paths = filesIn(*source); !paths.isEmpty()) return insertFiles(paths);
  if (const auto text = richTextIn(*source)) return insert(*text);
  QTextEdit::insertFromMimeData(source);
}

QMimeData* RichTextField::createMimeDataFromSelection() const {
  QMimeData* data = QTextEdit::createMimeDataFromSelection();
  QTextDocument selected;
  QTextCursor(&selected).insertFragment(textCursor().selection());
  data->setData(rtfNames[0], QByteArray::fromStdString(writeRichText(richTextOf(selected))));
  return data;
}

void RichTextField::insertFiles(const QStringList& paths) {
  RichText all;
  all.paragraphs.clear();
  for (const QString& path : paths) {
    const auto read = host::readTemplateFile(QFile::encodeName(path).toStdString());
    if (!read) return tellUnreadable(path, shown(read.refused().errors));
    const RichText text = readRichText(*read);
    all.paragraphs.insert(all.paragraphs.end(), text.paragraphs.begin(), text.paragraphs.end());
  }
  insert(all);
}

void RichTextField::insert(const RichText& text) {
  QTextCursor cursor = textCursor();
  insertRichText(cursor, text);
  setTextCursor(cursor);
  ensureCursorVisible();
}

/// Whoever dropped it is not kept waiting for an answer.
void RichTextField::tellUnreadable(const QString& path, const QString& why) {
  auto* box = new QMessageBox(
      QMessageBox::Warning, window()->windowTitle(),
      tr("Nothing was inserted. %1 cannot be read: %2.").arg(QFileInfo(path).fileName(), why),
      QMessageBox::Ok, this);
  box->setTextFormat(Qt::PlainText);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->open();
}

}  // namespace autonotify::desktop
