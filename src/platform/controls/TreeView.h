#pragma once

#include <algorithm>

#include "platform/controls/Control.h"

namespace autonotify {

/// A tree of nodes with texts and keys. Selecting a node by the program raises no click.
class TreeView : public Control {
 public:
  struct Node {
    std::string key;
    std::string text;
    int parent = -1;  ///< position of the parent, -1 for a root
  };

  using Control::Control;

  void clear() {
    nodes_.clear();
    selected_ = -1;
    render(Aspect::list);
  }
  /// Appends a node, below the parent at that position, and gives its position.
  int addNode(int parent, std::string key, std::string text) {
    const int position = static_cast<int>(nodes_.size());
    nodes_.push_back({std::move(key), std::move(text), parent});
    renderRows({RowChange::Kind::added, position});
    return position;
  }
  const std::vector<Node>& nodes() const { return nodes_; }
  /// Throws std::out_of_range for a position without a node.
  void setKey(int position, std::string key) {
    nodes_.at(static_cast<std::size_t>(position)).key = std::move(key);
  }
  /// Position of the node with this key, -1 when there is none.
  int find(const std::string& key) const {
    const auto found = std::ranges::find(nodes_, key, &Node::key);
    return found == nodes_.end() ? -1 : static_cast<int>(found - nodes_.begin());
  }

  /// Position of the selected node, -1 when none is.
  int selected() const { return selected_; }
  const Node* selectedNode() const {
    return selected_ < 0 ? nullptr : &nodes_.at(static_cast<std::size_t>(selected_));
  }
  /// -1 selects none. Throws std::out_of_range for a position without a node.
  void select(int position) {
    if (position >= 0) nodes_.at(static_cast<std::size_t>(position));
    change(selected_, position, Aspect::value);
  }
  /// A person clicks a node.
  bool acceptChoice(int position) override { return acceptMove(position) && raise(onClick); }
  bool acceptMove(int position) override {
    if (position < 0 || position >= static_cast<int>(nodes_.size())) return false;
    select(position);
    return true;
  }

 private:
  std::vector<Node> nodes_;
  int selected_ = -1;
};

}  // namespace autonotify
