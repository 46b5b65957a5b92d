#include <fstream>

#include "contract/ClientDocumentFolder.h"
#include "contract/FileSystemObject.h"
#include "contract/windows.h"
#include "platform/format.h"
#include "platform/rich_text.h"
#include "platform/text.h"
#include "store/modNotificationLinks.h"
#include "wizards/documents/DocumentReport.h"
#include "wizards/documents/document_kinds.h"
#include "wizards/documents/document_templates.h"
#include "wizards/documents/made_object.h"

namespace autonotify {
namespace {

constexpr int templateNumber = 101;
constexpr int endOfFile = 62;
constexpr int cannotWriteFile = 75;

using TextFiles = std::unique_ptr<FileSystemObject>;

void writeBytes(const std::string& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary);
  file << bytes;
  file.close();
  if (!file) throw PlatformError(cannotWriteFile, "Cannot write the file " + path);
}

/// Of a file that is not empty: one that is was lost on the way.
std::string contentOf(TextFile& file) {
  std::string content = file.readAll();
  if (content.empty()) throw PlatformError(endOfFile, "The file holds no template");
  return content;
}

/// The template as a text of the host's text files, by way of a file in the working folder; where
/// that fails and the person goes on, as it is.
std::string readTemplate(Step& step, TextFiles& files, const char* type) {
  std::string_view bytes;
  step.assign(bytes, documentTemplate, templateNumber, type);
  std::string path;
  step.assign(path, [] {
    return fileUtility().addTrailingBackslash(workingFolder().getWorkingFolder()) + "temp.txt";
  });
  step.run([&] { writeBytes(path, bytes); });
  yieldToHost(step, 2);
  step.assign(files, createHostObject<FileSystemObject>);
  std::unique_ptr<TextFile> file;
  step.assign(file, [&] {
    return made(files).openTextFile(path, FileSystemObject::OpenFor::reading, true);
  });
  std::string text(bytes);
  step.assign(text, [&] { return contentOf(made(file)); });
  step.run([&] { made(file).close(); });
  step.run([&] { fileUtility().deleteFile(path); });
  return text;
}

void writeDocument(Step& step, TextFiles& files, const std::string& path, const std::string& text) {
  std::unique_ptr<TextFile> file;
  step.assign(file, [&] { return made(files).createTextFile(path, true); });
  step.run([&] { made(file).write(text); });
  step.run([&] { made(file).close(); });
}

constexpr const char* openingMark = "\\'ab";
constexpr const char* closingMark = "\\'bb";

/// A mark as placeholders spell it, and as values do, so that none of them holds a placeholder.
struct Mark {
  std::string_view ofPlaceholder;
  std::string_view ofValue;
};
constexpr Mark marks[] = {{openingMark, "\\u171?"}, {closingMark, "\\u187?"}};

const Mark* markAtStart(std::string_view text) {
  for (const Mark& mark : marks)
    if (text.starts_with(mark.ofPlaceholder)) return &mark;
  return nullptr;
}

/// What follows an escaped backslash is no mark, however it looks.
std::string respellMarks(std::string_view escaped) {
  std::string result;
  for (std::string_view rest = escaped; !rest.empty();) {
    const Mark* mark = markAtStart(rest);
    const std::size_t length = mark ? mark->ofPlaceholder.size() : rest[0] == '\\' ? 2 : 1;
    result += mark ? mark->ofValue : rest.substr(0, length);
    rest.remove_prefix(length);
  }
  return result;
}

/// The path, or one beside it when it is taken. Whoever goes on past a failure replaces no document
/// either: then nothing can be written.
std::string freePath(Step& step, const std::string& path) {
  if (!step.value(true, [&] { return fileUtility().fileExists(path); })) return path;
  return step.value(std::string{}, [&] { return fileUtility().getUniqueFileName(path); });
}

/// Where a document is filed.
struct Filing {
  bool (ClientDocumentFolder::*open)(Id client);
  Id client;
  const char* nameMiddle;
};

Filing filingOf(Step& step, Id notification, Id company, Id contact) {
  if (isListedContact(step, contact)) {
    return {&ClientDocumentFolder::openForContact, contact, " - "};
  }
  if (isListedCompany(step, company)) {
    return {&ClientDocumentFolder::openForCompany, company, " - "};
  }
  return {&ClientDocumentFolder::openForCompany, getCompanyIDFromAutoNotificationID(notification),
          " Notification - "};
}

}  // namespace

void DocumentReport::save() {
  procedure(tag(kind_.saveProcedure), [&](Step& step) {
    step.run(setPointer, Pointer::busy);
    TextFiles files;
    const std::string text = merged(readTemplate(step, files, kind_.templateType));
    writeDocument(step, files, freePath(step, documentPath(step)), text);
    step.run(setPointer, Pointer::standard);
  });
}

std::string DocumentReport::merged(std::string text) const {
  auto shown = texts_.begin();
  for (const DocumentPart& part : kind_.parts) {
    const std::string field = convertFieldName(part.placeholder);
    text = replaceAll(text, field, convertToRTF((shown++)->caption()));
  }
  return text;
}

std::string DocumentReport::convertFieldName(const std::string& placeholder) const {
  return procedure(tag("convertFieldName"), std::string{}, [&](Step&, std::string& result) {
    result = openingMark + placeholder + closingMark;
  });
}

std::string DocumentReport::convertToRTF(const std::string& value) const {
  return procedure(tag("convertToRTF"), std::string{}, [&](Step&, std::string& result) {
    result = respellMarks(escapeForRichText(value));
  });
}

/// Empty when the client has no folder that can be opened: nothing can be written there.
std::string DocumentReport::documentPath(Step& step) const {
  const Filing filing = filingOf(step, notificationID_, companyID_, contactID_);
  std::unique_ptr<ClientDocumentFolder> folder;
  step.assign(folder, createHostObject<ClientDocumentFolder>);
  if (!step.holds([&] { return (made(folder).*filing.open)(filing.client); })) return {};
  step.run([&] { made(folder).selectFolderKind(document_folder_kind::correspondence); });
  std::string path;
  step.assign(path, [&] {
    const std::string date = formatDateTime(platformClock().today(), "mmm d yyyy");
    return fileUtility().addTrailingBackslash(made(folder).getFolderPath()) + kind_.word +
           filing.nameMiddle + date + ".mvw";
  });
  return path;
}

}  // namespace autonotify
