#include "host/copy/accepted_values.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <utility>

#include "platform/text.h"

namespace autonotify::host {
namespace {

struct Rule {
  bool (*takes)(const Value&);
  const char* words;
};

bool isText(const Value& value) {
  const auto* text = value.getIf<std::string>();
  return text && text->find('\0') == text->npos && isValidUtf8(*text);
}

bool isNumber(const Value& value) {
  return !std::isnan(toDouble(value));
}

bool isAmount(const Value& value) {
  return std::abs(toDouble(value)) < 1e15;
}

template <class Held>
bool isHeld(const Value& value) {
  return value.getIf<Held>();
}

template <class Integer>
bool isWhole(const Value& value) {
  const auto* number = value.getIf<std::int64_t>();
  return number && std::in_range<Integer>(*number);
}

constexpr Rule any{[](const Value&) { return true; }, nullptr};
constexpr Rule number{isNumber, "numbers"};
constexpr Rule amount{isAmount, "amounts below 10^15"};
constexpr Rule text{isText, "text in UTF-8 without NUL characters"};
constexpr Rule moment{isHeld<DateTime>, "dates and times in whole seconds"};
constexpr Rule flag{isHeld<bool>, "flags"};
constexpr Rule whole16{isWhole<std::int16_t>, "whole numbers of 16 bits"};
constexpr Rule whole32{isWhole<std::int32_t>, "whole numbers of 32 bits"};

// By Engine and ColumnKind.
constexpr std::array<std::array<Rule, columnKindCount>, 2> rules{{
    {any, any, any, any, any, any, any, number, number},
    {whole32, whole32, whole16, flag, text, text, moment, number, amount},
}};

}  // namespace

const char* refusalOf(Engine engine, ColumnKind kind, const Value& value) {
  const Rule& rule = rules[static_cast<std::size_t>(engine)][static_cast<std::size_t>(kind)];
  return rule.takes(value) ? nullptr : rule.words;
}

}  // namespace autonotify::host
