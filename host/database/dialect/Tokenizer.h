#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace autonotify::host {

enum class TokenKind {
  word,    ///< a name or a keyword
  number,  ///< unsigned
  text,    ///< between single quotes, which `content` leaves out; two inside stand for one
  date,    ///< between # marks, which `content` leaves out
  symbol,  ///< one character of punctuation, or <=, >=, <>
  end,
};

/// The words with a meaning of their own. `none` is any other word.
enum class Keyword {
  none,
  and_,
  as,
  asc,
  between,
  by,
  case_,
  cross,
  desc,
  distinct,
  else_,
  end,
  except,
  exists,
  false_,
  for_,
  from,
  full,
  group,
  having,
  in,
  inner,
  intersect,
  into,
  is,
  join,
  left,
  like,
  limit,
  natural,
  not_,
  null,
  nulls,
  offset,
  on,
  or_,
  order,
  outer,
  right,
  select,
  then,
  true_,
  union_,
  when,
  where,
};

/// The keyword in any case.
Keyword keywordOf(std::string_view word);

struct Token {
  TokenKind kind = TokenKind::end;
  Keyword keyword = Keyword::none;
  std::string_view content;
  /// Where it stands in the statement, with its marks.
  std::size_t begin = 0;
  std::size_t end = 0;

  bool is(char symbol) const {
    return kind == TokenKind::symbol && content.size() == 1 && content[0] == symbol;
  }
};

/// Splits a statement; the text must outlive the tokens.
///
/// next() throws DatabaseError (statementRefused) for a quote or # mark that is never closed, for a
/// comment, and for a character that has no place in the dialect.
class Tokenizer {
 public:
  explicit Tokenizer(std::string_view sql) : sql_(sql) {}

  /// The next token; `end` for ever once the text is used up.
  Token next();
  /// The next number, text or date, or the end, without a look at the words between. Nothing where
  /// next() would refuse a mark or a character.
  std::optional<Token> nextLiteral();

 private:
  [[noreturn]] void refuse(std::string_view why) const;
  Token number();
  std::optional<Token> quoted();
  Token symbol();
  Token taken(TokenKind kind, std::size_t length);

  std::string_view sql_;
  std::size_t at_ = 0;
};

}  // namespace autonotify::host
