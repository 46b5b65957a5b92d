#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "host/exchange/BlockReader.h"

namespace autonotify::host {

/// One line of a card: "TEL;TYPE=work,fax:555-0100".
struct CardProperty {
  /// In capitals, without its group.
  std::string name;
  /// What its parameters say it is, in capitals: "WORK", "FAX".
  std::set<std::string> types;
  /// Decoded, in UTF-8; commas, semicolons and line breaks within it still have their backslashes.
  std::string value;
  /// A picture, a sound or a key.
  bool isBinary = false;
};

/// The properties of a card of version 2.1, 3.0 or 4.0, folded ones made whole.
std::vector<CardProperty> propertiesOf(const TextBlock& card);

/// The value in its parts between semicolons, each as text. One that is not there is empty.
class CardParts {
 public:
  explicit CardParts(const std::string& value);
  const std::string& operator[](std::size_t part) const;

 private:
  std::vector<std::string> parts_;
};

/// A value as one text.
std::string cardText(const std::string& value);

}  // namespace autonotify::host
