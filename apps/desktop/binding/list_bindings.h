#pragma once

#include <QComboBox>
#include <QListWidget>
#include <QTabWidget>
#include <QTreeWidget>
#include <vector>

#include "binding/Binding.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/ListBox.h"
#include "platform/controls/TabControl.h"
#include "platform/controls/TreeView.h"

namespace autonotify::desktop {

class ComboBinding : public BindingOf<ComboBox, QComboBox> {
 public:
  ComboBinding(Form& form, ComboBox& control, QComboBox& widget);

 protected:
  void drawList() override;
  void drawRows(const RowChange& change) override;
  void drawValue() override;
  QWidget& colored() override;
  /// The wheel moves the page below, never the choice in a box that is closed.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void bindField(QLineEdit& field);
};

/// In a list or tree the mouse and the enter key choose; the arrow keys only lead there. Each act
/// is passed once.
template <class ControlType, class WidgetType>
class ItemViewBinding : public BindingOf<ControlType, WidgetType> {
 public:
  ItemViewBinding(Form& form, ControlType& control, WidgetType& widget);

 protected:
  /// The current item has changed, by a key or a press.
  void itemMoved(int position);
  /// The mouse has let go of the item.
  void itemClicked(int position);
  void itemDoubleClicked();
  /// -1 where nothing is selected.
  virtual int currentPosition() const = 0;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void choose(int position);
  bool passEnter(const QEvent& event);

  /// Since the mouse was pressed.
  bool wasPassed_ = false;
  bool isPressed_ = false;
};

/// An entry with a number below 0 is a heading or an empty line, which cannot be chosen.
class ListBinding : public ItemViewBinding<ListBox, QListWidget> {
 public:
  ListBinding(Form& form, ListBox& control, QListWidget& widget);

 protected:
  void drawList() override;
  void drawRows(const RowChange& change) override;
  void drawValue() override { widget_.setCurrentRow(control_.listIndex()); }
  int currentPosition() const override { return widget_.currentRow(); }

 private:
  void drawHeading(int row);
};

class TreeBinding : public ItemViewBinding<TreeView, QTreeWidget> {
 public:
  TreeBinding(Form& form, TreeView& control, QTreeWidget& widget);

 protected:
  void drawList() override;
  void drawRows(const RowChange& change) override;
  void drawValue() override;
  int currentPosition() const override;

 private:
  QTreeWidgetItem* itemAt(int position) const;
  void addItem(const TreeView::Node& node);

  std::vector<QTreeWidgetItem*> items_;
};

class TabBinding : public BindingOf<TabControl, QTabWidget> {
 public:
  TabBinding(Form& form, TabControl& control, QTabWidget& widget);

 protected:
  void drawList() override;
  void drawValue() override { widget_.setCurrentIndex(control_.tab()); }
};

}  // namespace autonotify::desktop
