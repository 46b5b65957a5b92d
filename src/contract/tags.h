#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace autonotify {

/// A string literal as an argument of a template.
template <std::size_t size>
struct FixedText {
  char text[size]{};
  constexpr FixedText(const char (&given)[size]) { std::copy_n(given, size, text); }
  constexpr std::string_view view() const { return {text, size - 1}; }
};

/// Stands before the tag of every procedure.
inline constexpr std::string_view tagStart = "Morvane.exe-";

namespace detail {

template <FixedText module, FixedText name>
struct ProcedureTag {
  static constexpr std::array parts{tagStart, module.view(), std::string_view("-"), name.view()};
  static constexpr std::size_t length = parts[0].size() + parts[1].size() + 1 + parts[3].size();
  /// Ends in a zero, as texts in the component's file do.
  static constexpr auto joined = [] {
    std::array<char, length + 1> all{};
    auto at = all.begin();
    for (const std::string_view part : parts) at = std::copy(part.begin(), part.end(), at);
    return all;
  }();
};

}  // namespace detail

/// The tag of a procedure, "Morvane.exe-modNotifyClients-cancelNotification". A file gives its own
/// module once:
///
///   template <FixedText name>
///   constexpr std::string_view tagOf = procedureTag<"modNotifyClients", name>;
template <FixedText module, FixedText name>
inline constexpr std::string_view procedureTag{detail::ProcedureTag<module, name>::joined.data(),
                                               detail::ProcedureTag<module, name>::length};

/// The tag of a window's procedure.
inline std::string windowTag(const std::string& window, const std::string& name) {
  return std::string(tagStart) + window + "-" + name;
}

}  // namespace autonotify
