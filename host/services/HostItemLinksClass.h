#pragma once

#include <array>

#include "contract/ItemLinksClass.h"

namespace autonotify::host {

/// Thirteen ids; a new object has none of them set.
class HostItemLinksClass : public ItemLinksClass {
 public:
  HostItemLinksClass() { links_.fill(noId); }

  void put_errorClass(errorClass* value) override { errors_ = value; }
  void put_DatabaseReference(DatabaseReference* value) override { database_ = value; }
  Id get_link(ItemLink link) override { return links_.at(static_cast<std::size_t>(link)); }
  void put_link(ItemLink link, Id value) override {
    links_.at(static_cast<std::size_t>(link)) = value;
  }
  void resetAllValues() override { links_.fill(noId); }
  void Terminate() override {
    errors_ = nullptr;
    database_ = nullptr;
  }

 private:
  std::array<Id, itemLinkCount> links_;
  errorClass* errors_ = nullptr;
  DatabaseReference* database_ = nullptr;
};

}  // namespace autonotify::host
