#pragma once

#include <map>

#include "support/HostTest.h"

namespace autonotify::test {

/// An act or a look of a script: the word, the control or what else it is about, a text, and what
/// comes of it. An act that goes through gives nothing.
using ToldAct = std::vector<std::string>;

/// What comes of an act in an open window.
inline std::string outcomeIn(WindowInUse& window, const ToldAct& told) {
  const std::string &about = told[1], &text = told[2];
  const auto went = [](bool isThrough) { return isThrough ? "" : "refused"; };
  const auto word = [](bool isSo) { return isSo ? "yes" : "no"; };
  const std::map<std::string, std::function<std::string()>> acts = {
      {"click", [&] { return went(window.click(about)); }},
      {"tick", [&] { return window.click(about), ""; }},  // the focus may go on from it
      {"type", [&] { return went(window.type(about, text)); }},
      {"tab to", [&] { return went(window.tabTo(about)); }},
      {"choose", [&] { return went(window.choose(about, text)); }},
      {"pick", [&] { return went(window.pickDate(about, toDateTime(text))); }},
      {"close box", [&] { return window.closeBox(), ""; }},
      {"read", [&] { return window.read(about); }},
      {"list", [&] { return testing::PrintToString(window.entries(about)); }},
      {"see", [&] { return word(window.sees(about)); }},
      {"use", [&] { return word(window.canUse(about)); }},
      {"focus", [&] { return window.focus(); }},
      {"on screen", [&] { return word(window.form().isVisible()); }},
      {"caption", [&] { return window.form().caption(); }}};
  return acts.at(told[0])();
}

}  // namespace autonotify::test
