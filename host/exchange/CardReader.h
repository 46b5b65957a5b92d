#pragma once

#include <set>

#include "host/exchange/BlockReader.h"
#include "host/exchange/EntryReader.h"
#include "host/exchange/card_property.h"

namespace autonotify::host {

/// Reads the cards of an address book (vCard 2.1, 3.0 and 4.0) as contacts. A card of a company is
/// a record with a fault.
class CardReader : public EntryReader {
 public:
  explicit CardReader(TextFile file);

  bool next(FileRecord& record) override;
  const std::string& path() const override { return cards_.file().path(); }
  std::string kind() const override { return "contacts"; }
  std::vector<std::string> leftOut() const override;

 private:
  void readCard(const TextBlock& card, FileRecord& record);

  BlockReader cards_;
  bool hasToldHeadings_ = false;
  std::set<std::string> leftOut_;
};

}  // namespace autonotify::host
