#include "host/exchange/card_property.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <charconv>

#include "platform/text.h"

namespace autonotify::host {
namespace {

/// Its name and parameters, and where the value begins.
struct Head {
  std::vector<std::string> words;
  std::size_t end = 0;
};

/// The words between semicolons up to the colon; what is in quotation marks is whole.
Head headOf(std::string_view line) {
  Head head{{""}, line.size()};
  bool isQuoted = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '"')
      isQuoted = !isQuoted;
    else if (line[i] == ';' && !isQuoted)
      head.words.emplace_back();
    else if (line[i] == ':' && !isQuoted)
      return head.end = i + 1, head;
    else
      head.words.back() += line[i];
  }
  return head;
}

struct Parameter {
  std::string name;
  std::string value;
};

/// Without a name it is a type or an encoding, as the oldest cards have them.
Parameter parameterOf(const std::string& word) {
  const std::size_t sign = word.find('=');
  if (sign == word.npos) return {"", upperCase(trim(word))};
  return {upperCase(trim(word.substr(0, sign))), upperCase(trim(word.substr(sign + 1)))};
}

bool isQuotedPrintable(const Head& head) {
  return std::ranges::any_of(head.words, [](const std::string& word) {
    const Parameter parameter = parameterOf(word);
    return parameter.value == "QUOTED-PRINTABLE" &&
           (parameter.name.empty() || parameter.name == "ENCODING");
  });
}

/// A line that ends with "=" goes on in the next one.
bool goesOn(const std::string& line) {
  return line.ends_with('=') && isQuotedPrintable(headOf(line));
}

std::vector<std::string> wholeLines(const TextBlock& card) {
  std::vector<std::string> whole;
  for (const std::string& line : card.lines) {
    const bool isFolded = line.starts_with(' ') || line.starts_with('\t');
    if (!whole.empty() && goesOn(whole.back())) {
      whole.back().pop_back();
      whole.back() += line;
    } else if (!whole.empty() && isFolded) {
      whole.back() += line.substr(1);
    } else {
      whole.push_back(line);
    }
  }
  return whole;
}

std::string decoded(const std::string& quotedPrintable) {
  std::string bytes;
  for (std::size_t i = 0; i < quotedPrintable.size(); ++i) {
    unsigned char byte = 0;
    const char* const digits = quotedPrintable.data() + i + 1;
    const bool isCode = quotedPrintable[i] == '=' && i + 2 < quotedPrintable.size() &&
                        std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2;
    bytes += isCode ? static_cast<char>(byte) : quotedPrintable[i];
    i += isCode ? 2 : 0;
  }
  return replaceAll(bytes, "\r\n", "\n");
}

/// The bytes of a character set that the system knows; as they are for others.
std::string converted(std::string bytes, const std::string& characterSet) {
  const iconv_t way = ::iconv_open("UTF-8", characterSet.c_str());
  if (way == reinterpret_cast<iconv_t>(-1)) return bytes;
  std::string text(bytes.size() * 4, '\0');
  char* from = bytes.data();
  char* to = text.data();
  std::size_t left = bytes.size();
  std::size_t room = text.size();
  const bool isWhole = ::iconv(way, &from, &left, &to, &room) != static_cast<std::size_t>(-1);
  ::iconv_close(way);
  text.resize(text.size() - room);
  return isWhole ? text : bytes;
}

void addTypes(const std::string& value, std::set<std::string>& types) {
  for (std::size_t at = 0; at <= value.size();) {
    const std::size_t end = std::min(value.find(',', at), value.size());
    types.insert(value.substr(at, end - at));
    at = end + 1;
  }
}

CardProperty propertyOf(const std::string& line) {
  const Head head = headOf(line);
  CardProperty property;
  property.name = upperCase(trim(head.words.front().substr(head.words.front().rfind('.') + 1)));
  std::string characterSet;
  for (std::size_t i = 1; i < head.words.size(); ++i) {
    const auto [name, value] = parameterOf(head.words[i]);
    if (name == "CHARSET") characterSet = value;
    if (name.empty() || name == "TYPE") addTypes(value, property.types);
    property.isBinary |=
        (name.empty() || name == "ENCODING") && (value == "BASE64" || value == "B");
  }
  property.value = line.substr(head.end);
  if (isQuotedPrintable(head)) property.value = decoded(property.value);
  if (!characterSet.empty()) property.value = converted(property.value, characterSet);
  property.value = utf8Of(property.value);
  return property;
}

/// What stands behind a backslash.
char unescaped(char c) {
  return c == 'n' || c == 'N' ? '\n' : c;
}

}  // namespace

std::vector<CardProperty> propertiesOf(const TextBlock& card) {
  std::vector<CardProperty> properties;
  for (const std::string& line : wholeLines(card))
    if (!line.empty()) properties.push_back(propertyOf(line));
  return properties;
}

CardParts::CardParts(const std::string& value) : parts_(1) {
  for (std::size_t i = 0; i < value.size(); ++i) {
    const bool isEscape = value[i] == '\\' && i + 1 < value.size();
    if (value[i] == ';')
      parts_.emplace_back();
    else
      parts_.back() += isEscape ? unescaped(value[++i]) : value[i];
  }
  for (std::string& part : parts_) part = trim(part);
}

const std::string& CardParts::operator[](std::size_t part) const {
  static const std::string none;
  return part < parts_.size() ? parts_[part] : none;
}

std::string cardText(const std::string& value) {
  return CardParts(replaceAll(replaceAll(value, "\\;", ";"), ";", "\\;"))[0];
}

}  // namespace autonotify::host
