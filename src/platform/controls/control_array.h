#pragma once

#include <array>
#include <string>
#include <utility>

namespace autonotify {

/// The controls name(i) for each index i given, in place:
///
///   std::array<TextBox, 3> txtField = controlArray<TextBox>(*this, "txtField", std::array{1, 4,
///   7});
template <class ControlType, class Owner, std::size_t count>
std::array<ControlType, count> controlArray(Owner& owner, const std::string& name,
                                            const std::array<int, count>& indexes) {
  return [&]<std::size_t... position>(std::index_sequence<position...>) {
    return std::array<ControlType, count>{
        {ControlType(owner, name + "(" + std::to_string(indexes[position]) + ")")...}};
  }
  (std::make_index_sequence<count>{});
}

/// The controls name(first) to name(first + count - 1).
template <class ControlType, std::size_t count, class Owner>
std::array<ControlType, count> controlArray(Owner& owner, const std::string& name, int first = 0) {
  std::array<int, count> indexes{};
  for (int& index : indexes) index = first++;
  return controlArray<ControlType>(owner, name, indexes);
}

}  // namespace autonotify
