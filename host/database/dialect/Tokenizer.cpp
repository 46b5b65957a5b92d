#include "host/database/dialect/Tokenizer.h"

#include <array>
#include <cstdint>
#include <string>

#include "host/database/dialect/DatabaseError.h"
#include "host/database/schema/caseless.h"

namespace autonotify::host {
namespace {

struct KeywordName {
  std::string_view name;
  Keyword keyword;
};

// In alphabetical order: the first letter leads to its words.
constexpr KeywordName keywordNames[] = {
    {"and", Keyword::and_},
    {"as", Keyword::as},
    {"asc", Keyword::asc},
    {"between", Keyword::between},
    {"by", Keyword::by},
    {"case", Keyword::case_},
    {"cross", Keyword::cross},
    {"desc", Keyword::desc},
    {"distinct", Keyword::distinct},
    {"else", Keyword::else_},
    {"end", Keyword::end},
    {"except", Keyword::except},
    {"exists", Keyword::exists},
    {"false", Keyword::false_},
    {"for", Keyword::for_},
    {"from", Keyword::from},
    {"full", Keyword::full},
    {"group", Keyword::group},
    {"having", Keyword::having},
    {"in", Keyword::in},
    {"inner", Keyword::inner},
    {"intersect", Keyword::intersect},
    {"into", Keyword::into},
    {"is", Keyword::is},
    {"join", Keyword::join},
    {"left", Keyword::left},
    {"like", Keyword::like},
    {"limit", Keyword::limit},
    {"natural", Keyword::natural},
    {"not", Keyword::not_},
    {"null", Keyword::null},
    {"nulls", Keyword::nulls},
    {"offset", Keyword::offset},
    {"on", Keyword::on},
    {"or", Keyword::or_},
    {"order", Keyword::order},
    {"outer", Keyword::outer},
    {"right", Keyword::right},
    {"select", Keyword::select},
    {"then", Keyword::then},
    {"true", Keyword::true_},
    {"union", Keyword::union_},
    {"when", Keyword::when},
    {"where", Keyword::where},
};
constexpr std::size_t keywordCount = std::size(keywordNames);
constexpr std::size_t longestKeyword = 9;

/// firstWith[letter] is the first keyword that begins with the letter or a later one.
constexpr auto firstWith = [] {
  std::array<std::uint8_t, 27> result{};
  for (int letter = 0; letter < 27; ++letter) {
    std::uint8_t at = 0;
    while (at < keywordCount && keywordNames[at].name[0] - 'a' < letter) ++at;
    result[static_cast<std::size_t>(letter)] = at;
  }
  return result;
}();

enum CharacterClass : std::uint8_t { other, blank, letter, digit, punctuation, mark };

constexpr auto classes = [] {
  std::array<std::uint8_t, 256> result{};
  for (unsigned char c : {' ', '\t', '\r', '\n'}) result[c] = blank;
  for (int c = 'a'; c <= 'z'; ++c) result[static_cast<std::size_t>(c)] = letter;
  for (int c = 'A'; c <= 'Z'; ++c) result[static_cast<std::size_t>(c)] = letter;
  result['_'] = letter;
  for (int c = '0'; c <= '9'; ++c) result[static_cast<std::size_t>(c)] = digit;
  for (unsigned char c : std::string_view("=<>+-*/(),.;")) result[c] = punctuation;
  result['\''] = result['#'] = mark;
  return result;
}();

constexpr auto endsPlainText = [] {
  std::array<std::uint8_t, 256> result{};
  for (std::size_t c = 0; c < result.size(); ++c)
    result[c] = classes[c] == other || classes[c] == digit || classes[c] == mark;
  return result;
}();

std::uint8_t classOf(char character) {
  return classes[static_cast<unsigned char>(character)];
}

bool isOfWord(char character) {
  return classOf(character) == letter || classOf(character) == digit;
}

/// Where, from `at` on, the first character stands that is no letter, blank or punctuation. Most
/// statements are long and hold one literal: eight characters are looked at in a turn.
std::size_t plainTextEnd(std::string_view text, std::size_t at) {
  const auto ends = [&](std::size_t place) {
    return endsPlainText[static_cast<unsigned char>(text[place])];
  };
  const auto endsWithinFour = [&](std::size_t place) {
    return ends(place) | ends(place + 1) | ends(place + 2) | ends(place + 3);
  };
  while (at + 8 <= text.size() && !(endsWithinFour(at) | endsWithinFour(at + 4))) at += 8;
  while (at < text.size() && !ends(at)) ++at;
  return at;
}

bool sameWord(std::string_view word, std::string_view keyword) {
  if (word.size() != keyword.size()) return false;
  for (std::size_t i = 1; i < word.size(); ++i)
    if (lowerAscii(word[i]) != keyword[i]) return false;
  return true;
}

/// Length of the digits and the fraction at the beginning of the text.
std::size_t numberLength(std::string_view text) {
  std::size_t at = 0;
  const auto digits = [&] {
    while (at < text.size() && classOf(text[at]) == digit) ++at;
  };
  digits();
  if (at + 1 < text.size() && text[at] == '.' && classOf(text[at + 1]) == digit) {
    ++at;
    digits();
  }
  return at;
}

}  // namespace

Keyword keywordOf(std::string_view word) {
  if (word.empty() || word.size() > longestKeyword) return Keyword::none;
  const int first = lowerAscii(word[0]) - 'a';
  if (first < 0 || first >= 26) return Keyword::none;
  const auto bucket = static_cast<std::size_t>(first);
  for (std::size_t i = firstWith[bucket]; i < firstWith[bucket + 1]; ++i)
    if (sameWord(word, keywordNames[i].name)) return keywordNames[i].keyword;
  return Keyword::none;
}

void Tokenizer::refuse(std::string_view why) const {
  throw DatabaseError(
      database_error::statementRefused,
      "The statement is refused: " + std::string(why) + " at character " + std::to_string(at_ + 1),
      0, std::string(sql_));
}

Token Tokenizer::taken(TokenKind kind, std::size_t length) {
  const std::size_t begin = at_;
  at_ += length;
  return {kind, Keyword::none, sql_.substr(begin, length), begin, at_};
}

Token Tokenizer::number() {
  return taken(TokenKind::number, numberLength(sql_.substr(at_)));
}

/// Nothing, and no move, when the mark is not closed.
std::optional<Token> Tokenizer::quoted() {
  const char mark = sql_[at_];
  std::size_t close = at_;
  do {
    close = sql_.find(mark, close + 1);
    if (close == std::string_view::npos) return std::nullopt;
    // Two quotes inside a text stand for one.
    if (mark != '\'' || close + 1 >= sql_.size() || sql_[close + 1] != mark) break;
    ++close;
  } while (true);
  const std::size_t begin = at_;
  at_ = close + 1;
  const TokenKind kind = mark == '#' ? TokenKind::date : TokenKind::text;
  return Token{kind, Keyword::none, sql_.substr(begin + 1, close - begin - 1), begin, at_};
}

Token Tokenizer::symbol() {
  const std::string_view pair = sql_.substr(at_, 2);
  if (pair == "--" || pair == "/*") refuse("a comment");
  const bool isPair = pair == "<=" || pair == ">=" || pair == "<>";
  return taken(TokenKind::symbol, isPair ? 2 : 1);
}

Token Tokenizer::next() {
  while (at_ < sql_.size() && classOf(sql_[at_]) == blank) ++at_;
  if (at_ == sql_.size()) return taken(TokenKind::end, 0);
  switch (classOf(sql_[at_])) {
    case letter: {
      const std::size_t begin = at_;
      while (at_ < sql_.size() && isOfWord(sql_[at_])) ++at_;
      const std::string_view word = sql_.substr(begin, at_ - begin);
      return {TokenKind::word, keywordOf(word), word, begin, at_};
    }
    case digit: {
      const Token token = number();
      if (at_ < sql_.size() && classOf(sql_[at_]) == letter) refuse("a letter within a number");
      return token;
    }
    case punctuation:
      return symbol();
    case mark:
      if (const std::optional<Token> token = quoted()) return *token;
      refuse(sql_[at_] == '#' ? "a # mark is not closed" : "a quote is not closed");
    default:
      refuse("a character without a meaning");
  }
}

std::optional<Token> Tokenizer::nextLiteral() {
  for (;; ++at_) {
    at_ = plainTextEnd(sql_, at_);
    if (at_ == sql_.size()) return taken(TokenKind::end, 0);
    const std::uint8_t kind = classOf(sql_[at_]);
    if (kind == mark) return quoted();
    if (kind != digit) return std::nullopt;
    const bool isOfName = at_ > 0 && isOfWord(sql_[at_ - 1]);
    if (!isOfName) return number();
  }
}

}  // namespace autonotify::host
