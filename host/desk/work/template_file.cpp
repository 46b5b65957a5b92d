#include "host/desk/work/template_file.h"

#include <filesystem>
#include <fstream>
#include <sstream>

#include "host/words/Words.h"
#include "platform/rich_text.h"
#include "platform/richtext/RichText.h"
#include "platform/text.h"
#include "platform/utf8.h"

namespace autonotify::host {
namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view openMark = "«";
constexpr std::string_view closeMark = "»";
constexpr std::string_view olderOpenMark = "<<";
constexpr std::string_view olderCloseMark = ">>";

struct Spelling {
  std::string_view typographic;
  std::string_view plain;
};
constexpr Spelling spellings[] = {
    {"\u00A0", " "}, {"\u202F", " "}, {"\u2009", " "}, {"\u2018", "'"}, {"\u2019", "'"},
    {"\u2010", "-"}, {"\u2011", "-"}, {"\u00AD", ""},  {"\u200B", ""},  {"\uFEFF", ""},
};

std::string plainlySpelled(std::string name) {
  for (const Spelling& spelling : spellings)
    name = replaceAll(name, spelling.typographic, spelling.plain);
  return std::string(trim(name));
}

/// A text with marks of both kinds would not be filled.
std::string withMarksOfToday(std::string_view text) {
  return replaceAll(replaceAll(text, olderOpenMark, openMark), olderCloseMark, closeMark);
}

std::string withPlainNames(std::string_view text) {
  std::string result;
  for (std::size_t open = text.find(openMark); open != text.npos; open = text.find(openMark)) {
    const std::size_t name = open + openMark.size();
    const std::size_t close = text.find(closeMark, name);
    if (close == text.npos) break;
    result += text.substr(0, name);
    result += plainlySpelled(std::string(text.substr(name, close - name)));
    text.remove_prefix(close);
  }
  return result.append(text);
}

/// A merge puts a blank ahead of a value unless it sees one there, also at the start of a line. The
/// blank that ends a word of format is one that nobody sees else.
std::string withWordsAheadOfMarks(std::string_view rtf) {
  constexpr std::string_view mark = "\\'ab";
  std::string result;
  for (std::size_t at = rtf.find(mark); at != rtf.npos; at = rtf.find(mark)) {
    result += rtf.substr(0, at);
    const bool takesBlank = !result.empty() && result.back() != ' ' && result.back() != '\\';
    result.append(takesBlank ? "\\uc1 " : "").append(mark);
    rtf.remove_prefix(at + mark.size());
  }
  return result.append(rtf);
}

std::string utf8Of(std::string_view text) {
  if (isValidUtf8(text)) return std::string(text);
  std::string result;
  for (const char byte : text)
    appendUtf8(result, characterOfCodePage1252(static_cast<unsigned char>(byte)));
  return result;
}

std::string tidied(std::string_view rtf) {
  RichText text = readRichText(rtf);
  for (Paragraph& paragraph : text.paragraphs)
    for (Run& run : paragraph.runs) run.text = withPlainNames(withMarksOfToday(run.text));
  return writeRichText(text);
}

/// In one look, without a paragraph in memory for each of a great many lines.
std::string asRichText(std::string_view plainText) {
  std::string rtf = writeRichText({});
  const std::string text = withPlainNames(withMarksOfToday(utf8Of(plainText)));
  return rtf.insert(rtf.rfind('}'), escapeForRichText(text));
}

std::string tooLarge() {
  return Words::tr("it is larger than 16 MiB");
}

std::string readAll(const std::string& path, std::string& fault) {
  std::error_code error;
  const std::uintmax_t size = std::filesystem::file_size(path, error);
  if (error) fault = error.message();
  if (!error && size > largestTemplateFile) fault = tooLarge();
  if (!fault.empty()) return {};
  std::ifstream file(path, std::ios::binary);
  std::ostringstream content;
  if (size > 0) content << file.rdbuf();
  if (!file) fault = Words::tr("the file does not let itself be read");
  return std::move(content).str();
}

Refused unreadable(const std::string& path, std::string why) {
  return {Refused::Why::failed, "cannot read " + path, std::move(why)};
}

}  // namespace

std::string templateOf(std::string_view content) {
  if (content.starts_with(byteOrderMark)) content.remove_prefix(byteOrderMark.size());
  return withWordsAheadOfMarks(isRichText(content) ? tidied(content) : asRichText(content));
}

Outcome<std::string> readTextFile(const std::string& path) {
  std::string fault;
  std::string content = readAll(path, fault);
  if (!fault.empty()) return unreadable(path, fault);
  return content;
}

Outcome<std::string> readTemplate(std::string_view content, const std::string& name) {
  if (content.size() > largestTemplateFile) return unreadable(name, tooLarge());
  const bool isText = isRichText(content) || content.find('\0') == std::string_view::npos;
  if (!isText) return unreadable(name, Words::tr("it is no text; save it as RTF or plain text"));
  std::string text = templateOf(content);
  if (plainTextOf(text).find_first_not_of(" \t\n") == std::string::npos)
    return unreadable(name, Words::tr("it holds no words"));
  return text;
}

Outcome<std::string> readTemplateFile(const std::string& path) {
  const auto content = readTextFile(path);
  if (!content) return content.refused();
  return readTemplate(*content, path);
}

}  // namespace autonotify::host
