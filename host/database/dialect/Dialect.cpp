#include "host/database/dialect/Dialect.h"

#include <algorithm>
#include <optional>

#include "host/database/dialect/DatabaseError.h"
#include "host/database/dialect/Tokenizer.h"
#include "host/database/dialect/literals.h"
#include "host/words/Words.h"
#include "platform/text.h"

namespace autonotify::host {
namespace {

constexpr std::size_t npos = std::string::npos;

constexpr std::string_view aggregates[] = {"avg", "count", "max", "min", "sum"};
/// A function of this dialect: the others are those of all engines.
constexpr std::string_view dateTest = "IsDate";
constexpr std::string_view scalarFunctions[] = {"abs",   "coalesce", dateTest, "length",
                                                "lower", "round",    "trim",   "upper"};

template <class Names>
bool isOneOf(std::string_view word, const Names& names) {
  return std::any_of(std::begin(names), std::end(names),
                     [&](std::string_view name) { return equalIgnoreCase(word, name); });
}

/// Number literals become parameters inside a condition only: elsewhere they may be positions.
std::optional<bool> beginsCondition(Keyword keyword) {
  switch (keyword) {
    case Keyword::where:
    case Keyword::on:
    case Keyword::having:
      return true;
    case Keyword::select:
    case Keyword::from:
    case Keyword::join:
    case Keyword::group:
    case Keyword::order:
    case Keyword::limit:
    case Keyword::offset:
      return false;
    default:
      return std::nullopt;
  }
}

/// Words after which a result row has no keys of its own.
bool groupsRows(Keyword keyword) {
  switch (keyword) {
    case Keyword::distinct:
    case Keyword::group:
    case Keyword::having:
    case Keyword::union_:
    case Keyword::intersect:
    case Keyword::except:
      return true;
    default:
      return false;
  }
}

/// Words after which a result row no longer is one row of each table, though of none other.
bool mayLackRows(Keyword keyword) {
  switch (keyword) {
    case Keyword::left:
    case Keyword::right:
    case Keyword::full:
    case Keyword::cross:
    case Keyword::natural:
      return true;
    default:
      return false;
  }
}

bool endsFromClause(Keyword keyword) {
  return keyword == Keyword::where || keyword == Keyword::group || keyword == Keyword::having ||
         keyword == Keyword::order || keyword == Keyword::limit || keyword == Keyword::union_ ||
         keyword == Keyword::intersect || keyword == Keyword::except;
}

class Translator {
 public:
  Translator(std::string_view sql, Engine engine) : sql_(sql), tokens_(sql), engine_(engine) {
    result_.sql.reserve(sql.size() + 16);
  }

  Translation translate() {
    Token token = next();
    copied_ = token.begin;
    if (token.keyword != Keyword::select) refuse("only SELECT is allowed");
    while (token.kind != TokenKind::end && !token.is(';')) {
      take(token);
      const bool isSign = token.is('-') && !isOperand(previous_);
      sign_ = isSign ? token : Token();
      previous_ = token;
      token = next();
    }
    copyTo(previous_.end);
    if (token.is(';')) token = next();
    if (token.kind != TokenKind::end) refuse("one statement at a time");
    if (depth_ != 0) refuse("a parenthesis is not closed");
    endOrder();
    if (result_.from != npos && result_.fromEnd == npos) result_.fromEnd = result_.sql.size();
    return std::move(result_);
  }

 private:
  static constexpr std::size_t deepest = 64;

  Token next() {
    Token token = tokens_.next();
    if (previous_.is('.')) token.keyword = Keyword::none;
    return token;
  }

  [[noreturn]] void refuse(std::string_view why) const {
    throw DatabaseError(database_error::statementRefused,
                        "The statement is refused: " + std::string(why), 0, std::string(sql_));
  }

  void take(const Token& token) {
    switch (token.kind) {
      case TokenKind::word:
        return takeWord(token);
      case TokenKind::number:
        return takeNumber(token);
      case TokenKind::text:
        return takeText(token);
      case TokenKind::date:
        return takeDate(token);
      case TokenKind::symbol:
        return takeSymbol(token);
      case TokenKind::end:
        return;
    }
  }

  void takeWord(const Token& token) {
    const Keyword keyword = token.keyword;
    if (keyword == Keyword::none) return;
    if (keyword == Keyword::into || keyword == Keyword::for_)
      refuse("SELECT may not write or lock");
    if (const auto condition = beginsCondition(keyword)) inCondition_[depth_] = *condition;
    const bool isSubquery = keyword == Keyword::select && depth_ > 0;
    result_.hasSubquery = result_.hasSubquery || isSubquery;
    if (isSubquery && result_.fromEnd == npos) grouped();
    if (groupsRows(keyword)) grouped();
    if (mayLackRows(keyword)) mixed();
    if (depth_ == 0) markClause(token);
    if (keyword == Keyword::limit || keyword == Keyword::offset) endOrder();
    if (orderDepth_ == depth_) {
      descending_ = descending_ || keyword == Keyword::desc;
      orderTold_ = orderTold_ || keyword == Keyword::nulls;
    }
    if (keyword == Keyword::order) orderDepth_ = depth_;
  }

  void markClause(const Token& token) {
    if (token.keyword == Keyword::from && result_.from == npos)
      result_.from = copyTo(token.begin);
    else if (endsFromClause(token.keyword) && result_.from != npos && result_.fromEnd == npos)
      result_.fromEnd = copyTo(previous_.end);
    if (token.keyword == Keyword::order) result_.isOrdered = true;
  }

  void grouped() {
    mixed();
    result_.rowsHaveKeys = false;
  }
  void mixed() { result_.rowsAreTableRows = false; }

  void takeNumber(const Token& token) {
    const std::optional<Value> number = literalValue(token);
    const bool isParameter = inCondition_[depth_] && number;
    const bool isSigned = sign_.kind != TokenKind::end;
    if (!isParameter || isSigned) result_.literalsAreParameters = false;
    if (!isParameter) return;
    if (isSigned)
      parameter(sign_.begin, token.end, -toInteger(*number));
    else
      parameter(token.begin, token.end, *number);
  }

  void takeText(const Token& token) {
    const std::optional<Value> text = literalValue(token);
    if (!text)
      throw DatabaseError(database_error::invalidText,
                          Words::tr("Text in a statement holds a NUL byte or is no UTF-8"));
    parameter(token.begin, token.end, *text);
  }

  void takeDate(const Token& token) {
    const std::optional<Value> moment = literalValue(token);
    if (!moment) refuse("#" + std::string(token.content) + "# is no date");
    parameter(token.begin, token.end, *moment);
  }

  void takeSymbol(const Token& token) {
    if (token.is('(')) open();
    if (token.is(')')) close();
    if (token.is(',') && orderDepth_ == depth_) nextOrderTerm();
  }

  void open() {
    const bool isFunction = previous_.kind == TokenKind::word && previous_.keyword == Keyword::none;
    if (isFunction) {
      if (isOneOf(previous_.content, aggregates))
        grouped();
      else if (!isOneOf(previous_.content, scalarFunctions))
        refuse("the function " + std::string(previous_.content) + " is unknown");
    }
    if (depth_ + 1 == deepest) refuse("parentheses are nested too deep");
    inCondition_[depth_ + 1] = inCondition_[depth_];
    ++depth_;
    testsDate_[depth_] =
        isFunction && engine_ == Engine::postgres && equalIgnoreCase(previous_.content, dateTest);
    if (testsDate_[depth_]) openDateTest();
  }

  // A server's column holds dates alone, but also of years beyond those that are read.
  void openDateTest() {
    copyTo(previous_.begin);
    copied_ = previous_.end;
  }

  void closeDateTest() {
    copyTo(previous_.end);
    result_.sql += " < make_timestamp(10000,1,1,0,0,0)";
  }

  void close() {
    if (depth_ == 0) refuse("a parenthesis is closed that was not opened");
    if (orderDepth_ == depth_) endOrderTerm();
    if (testsDate_[depth_]) closeDateTest();
    --depth_;
  }

  static bool isOperand(const Token& token) {
    return token.kind == TokenKind::symbol ? token.is(')') : token.keyword == Keyword::none;
  }

  // NULL comes first in ascending order; an engine that has it last is told so at each term.
  void nextOrderTerm() {
    if (engine_ == Engine::postgres && !orderTold_) {
      copyTo(previous_.end);
      result_.sql += descending_ ? " NULLS LAST" : " NULLS FIRST";
    }
    descending_ = orderTold_ = false;
  }

  void endOrderTerm() {
    // A LIMIT inside a term ends no order but its own.
    if (orderDepth_ == npos || orderDepth_ < depth_) return;
    nextOrderTerm();
    orderDepth_ = npos;
  }

  void endOrder() {
    endOrderTerm();
    if (depth_ == 0 && result_.from != npos && result_.orderEnd == npos)
      result_.orderEnd = copyTo(previous_.end);
  }

  /// Copies the statement up to this place; gives the length of the result.
  std::size_t copyTo(std::size_t place) {
    if (place > copied_) result_.sql.append(sql_, copied_, place - copied_);
    copied_ = std::max(copied_, place);
    return result_.sql.size();
  }

  /// Puts a placeholder for what stands from `begin` to `end`.
  void parameter(std::size_t begin, std::size_t end, Value value) {
    if (result_.fromEnd == npos) mixed();
    if (result_.fromEnd == npos && result_.from != npos) grouped();
    copyTo(begin);
    copied_ = end;
    result_.parameters.push_back(std::move(value));
    result_.sql += placeholder(engine_, result_.parameters.size());
  }

  std::string_view sql_;
  Tokenizer tokens_;
  Engine engine_;
  Translation result_;
  Token previous_;
  std::size_t depth_ = 0;
  bool inCondition_[deepest] = {};
  bool testsDate_[deepest] = {};
  std::size_t orderDepth_ = npos;
  bool descending_ = false;
  bool orderTold_ = false;
  /// The token before, when it is a minus sign that belongs to the number to come.
  Token sign_;
  /// How much of the statement has gone into the result or was replaced.
  std::size_t copied_ = 0;
};

}  // namespace

Translation translate(std::string_view sql, Engine engine) {
  return Translator(sql, engine).translate();
}

// A sum is in no index. In PostgreSQL NULL would come last, and an index is read in order even
// where few rows fit the condition and all of them stand at its end.
std::string keyOrder(Engine engine, const std::vector<std::string>& keys, bool isWhole) {
  const char* const kept = engine == Engine::postgres && !isWhole ? "+0 NULLS FIRST" : "";
  std::string terms;
  for (const std::string& key : keys) terms += (terms.empty() ? "" : ", ") + key + kept;
  return terms;
}

std::string placeholder(Engine engine, std::size_t number) {
  return engine == Engine::sqlite ? "?" : '$' + std::to_string(number);
}

std::vector<TableReference> tablesOf(std::string_view fromClause) {
  std::vector<TableReference> tables;
  Tokenizer tokens(fromClause);
  bool tableNext = false;
  bool aliasNext = false;
  for (Token token = tokens.next(); token.kind != TokenKind::end; token = tokens.next()) {
    const bool isName = token.kind == TokenKind::word && token.keyword == Keyword::none;
    if (isName && tableNext) {
      tables.push_back({std::string(token.content), std::string(token.content)});
      tableNext = false;
      aliasNext = true;
    } else if (isName && aliasNext) {
      tables.back().alias = token.content;
      aliasNext = false;
    } else if (token.keyword == Keyword::from || token.keyword == Keyword::join || token.is(',')) {
      tableNext = true;
      aliasNext = false;
    } else if (token.keyword != Keyword::as && !token.is('(')) {
      aliasNext = false;
    }
  }
  return tables;
}

}  // namespace autonotify::host
