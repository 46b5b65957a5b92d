#include "merge/templates/token_removal.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "platform/text.h"

namespace autonotify {
namespace {

/// From an opening mark to the next closing one.
struct Token {
  std::size_t begin = 0;
  std::size_t end = 0;
  /// Where further opening marks stand in it.
  std::vector<std::size_t> innerOpens;
};

/// The tokens from left to right, none within another one.
std::vector<Token> tokensOf(std::string_view text, const MergeMarks& marks) {
  std::vector<Token> tokens;
  MarkScanner scanner(text, marks);
  bool isInside = false;
  Token token;
  while (const std::optional<FoundMark> mark = scanner.next()) {
    if (mark->isOpen && isInside) {
      token.innerOpens.push_back(mark->begin);
    } else if (mark->isOpen) {
      token.begin = mark->begin;
      isInside = true;
    } else if (isInside) {
      token.end = mark->end;
      tokens.push_back(std::exchange(token, {}));
      isInside = false;
    }
  }
  return tokens;
}

/// True when texts that come together where a token was may make up a mark.
bool mayLeaveMark(std::string_view text, const std::vector<Token>& tokens) {
  std::size_t from = 0;
  for (const Token& token : tokens) {
    if (endsInsideMark(text.substr(from, token.begin - from))) return true;
    from = token.end;
  }
  return false;
}

/// Hashes of a token's ends: of those that begin with an inner opening mark, the shortest first,
/// and of the whole at last.
std::vector<std::uint64_t> hashesOfEnds(std::string_view text, const Token& token) {
  constexpr std::uint64_t factor = 1099511628211u;
  std::vector<std::uint64_t> hashes;
  std::uint64_t hash = 0;
  auto open = token.innerOpens.rbegin();
  for (std::size_t at = token.end; at-- > token.begin;) {
    hash = hash * factor + static_cast<unsigned char>(text[at]) + 1;
    if (open == token.innerOpens.rend() || *open != at) continue;
    hashes.push_back(hash);
    ++open;
  }
  hashes.push_back(hash);
  return hashes;
}

/// True when a token may end with what is another token.
bool mayEndWithToken(std::string_view text, const std::vector<Token>& tokens) {
  if (std::ranges::all_of(tokens, &std::vector<std::size_t>::empty, &Token::innerOpens))
    return false;
  std::unordered_set<std::uint64_t> whole;
  std::vector<std::uint64_t> ends;
  for (const Token& token : tokens) {
    const std::vector<std::uint64_t> hashes = hashesOfEnds(text, token);
    whole.insert(hashes.back());
    ends.insert(ends.end(), hashes.begin(), hashes.end() - 1);
  }
  return std::ranges::any_of(ends, [&](std::uint64_t end) { return whole.contains(end); });
}

std::string without(std::string_view text, const std::vector<Token>& tokens) {
  std::string result;
  std::size_t copied = 0;
  for (const Token& token : tokens) {
    result.append(text, copied, token.begin - copied);
    copied = token.end;
  }
  return result.append(text, copied);
}

/// False when there is no token.
bool removeFirst(std::string& text, const MergeMarks& marks) {
  MarkScanner scanner(text, marks);
  const std::optional<FoundMark> open = scanner.nextOpen();
  const std::optional<FoundMark> close = scanner.nextClose();
  if (!close) return false;
  const std::string token = text.substr(open->begin, close->end - open->begin);
  text = replaceAll(text, token, "");
  return true;
}

}  // namespace

// Where no token takes part in another one, their order makes no difference and they go at once.
// Whether it is so is asked ever more seldom: that costs more than to take one of them out.
bool removeTokens(std::string& text, const MergeMarks& marks) {
  for (unsigned round = 1;; ++round) {
    if (std::has_single_bit(round)) {
      const std::vector<Token> tokens = tokensOf(text, marks);
      if (!mayLeaveMark(text, tokens) && !mayEndWithToken(text, tokens)) {
        text = without(text, tokens);
        return round > 1 || !tokens.empty();
      }
    }
    if (!removeFirst(text, marks)) return round > 1;
  }
}

}  // namespace autonotify
