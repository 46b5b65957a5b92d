#include <QAbstractButton>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QRadioButton>
#include <QTabWidget>
#include <QTreeWidget>
#include <stdexcept>

#include "binding/Binding.h"
#include "platform/controls/Button.h"
#include "platform/controls/CheckBox.h"
#include "platform/controls/ComboBox.h"
#include "platform/controls/DatePicker.h"
#include "platform/controls/Frame.h"
#include "platform/controls/Label.h"
#include "platform/controls/ListBox.h"
#include "platform/controls/OptionButton.h"
#include "platform/controls/ProgressBar.h"
#include "platform/controls/TabControl.h"
#include "platform/controls/TextBox.h"
#include "platform/controls/TreeView.h"
#include "richtext/RichTextBinding.h"
#include "text.h"

namespace autonotify::desktop {
namespace {

/// A binding that knows the kinds of both sides.
template <class ControlType, class WidgetType>
class BindingOf : public Binding {
 public:
  BindingOf(Form& form, ControlType& control, WidgetType& widget)
      : Binding(form, control, widget), control_(control), widget_(widget) {}

 protected:
  ControlType& control_;
  WidgetType& widget_;
};

/// The layout's caption stays where the program sets none.
template <class WidgetType>
void setCaption(WidgetType& widget, const std::string& caption) {
  if (!caption.empty()) widget.setText(shown(caption));
}

/// Buttons, ticks and options: the program learns of a click before the focus moves.
template <class ControlType, class WidgetType>
class ButtonBinding : public BindingOf<ControlType, WidgetType> {
 public:
  ButtonBinding(Form& form, ControlType& control, WidgetType& widget)
      : BindingOf<ControlType, WidgetType>(form, control, widget) {
    widget.setFocusPolicy(Qt::TabFocus);
    widget.setAutoExclusive(false);
    QObject::connect(&widget, &QAbstractButton::clicked, this, [this] {
      this->pass([this](Person& person) { person.click(this->control_); });
    });
  }

 protected:
  void drawState() override { setCaption(this->widget_, this->control_.caption()); }
  void drawValue() override {
    if constexpr (requires { this->control_.value(); })
      this->widget_.setChecked(this->control_.value());
  }
};

class LabelBinding : public BindingOf<Label, QLabel> {
 public:
  LabelBinding(Form& form, Label& control, QLabel& widget) : BindingOf(form, control, widget) {
    widget.setTextFormat(Qt::PlainText);
  }

 protected:
  void drawState() override { setCaption(widget_, control_.caption()); }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::MouseButtonRelease && control_.onClick)
      pass([this](Person& person) { person.click(control_); });
    return Binding::eventFilter(watched, event);
  }
};

class FrameBinding : public BindingOf<Frame, QWidget> {
 public:
  using BindingOf::BindingOf;

 protected:
  void drawState() override {
    auto* group = qobject_cast<QGroupBox*>(&widget_);
    if (group && !control_.caption().empty()) group->setTitle(shown(control_.caption()));
  }
};

class TextBinding : public BindingOf<TextBox, QLineEdit> {
 public:
  TextBinding(Form& form, TextBox& control, QLineEdit& widget) : BindingOf(form, control, widget) {
    connect(&widget, &QLineEdit::textEdited, this, [this](const QString& text) {
      pass([&](Person& person) { person.edit(control_, plain(text)); });
    });
  }

 protected:
  void drawValue() override {
    const QString text = shown(control_.text());
    if (widget_.text() != text) widget_.setText(text);
  }
};

class ComboBinding : public BindingOf<ComboBox, QComboBox> {
 public:
  ComboBinding(Form& form, ComboBox& control, QComboBox& widget)
      : BindingOf(form, control, widget) {
    widget.setEditable(control.isEditable());
    widget.setInsertPolicy(QComboBox::NoInsert);
    connect(&widget, &QComboBox::activated, this, [this](int position) {
      pass([=, this](Person& person) { person.choose(control_, position); });
    });
    if (!widget.lineEdit()) return;
    // A list is offered, not typed ahead.
    widget.setCompleter(nullptr);
    connect(widget.lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) {
      pass([&](Person& person) { person.edit(control_, plain(text)); });
    });
  }

 protected:
  void drawList() override {
    if (control_.entries() == drawn_ && widget_.count() == control_.listCount()) return;
    drawn_ = control_.entries();
    widget_.clear();
    for (const auto& entry : drawn_) widget_.addItem(shown(entry.text));
  }
  void drawValue() override {
    if (widget_.currentIndex() != control_.listIndex())
      widget_.setCurrentIndex(control_.listIndex());
    const QString text = shown(control_.text());
    if (widget_.isEditable() && widget_.currentText() != text) widget_.setEditText(text);
  }

 private:
  std::vector<ItemList::Entry> drawn_;
};

class ListBinding : public BindingOf<ListBox, QListWidget> {
 public:
  ListBinding(Form& form, ListBox& control, QListWidget& widget)
      : BindingOf(form, control, widget) {
    connect(&widget, &QListWidget::itemClicked, this, [this] { choose(); });
    connect(&widget, &QListWidget::itemActivated, this, [this] { choose(); });
    connect(&widget, &QListWidget::itemDoubleClicked, this,
            [this] { pass([this](Person& person) { person.doubleClick(control_); }); });
  }

 protected:
  void drawList() override {
    if (control_.entries() == drawn_ && widget_.count() == control_.listCount()) return;
    drawn_ = control_.entries();
    widget_.clear();
    for (const auto& entry : drawn_) widget_.addItem(shown(entry.text));
  }
  void drawValue() override { widget_.setCurrentRow(control_.listIndex()); }

 private:
  void choose() {
    const int position = widget_.currentRow();
    pass([=, this](Person& person) { person.choose(control_, position); });
  }
  std::vector<ItemList::Entry> drawn_;
};

class DateBinding : public BindingOf<DatePicker, QDateEdit> {
 public:
  DateBinding(Form& form, DatePicker& control, QDateEdit& widget)
      : BindingOf(form, control, widget) {
    widget.setCalendarPopup(true);
    calendar_ = widget.calendarWidget();
    calendar_->installEventFilter(this);
  }

 protected:
  void drawValue() override {
    const QDate date = qtDate(control_.value());
    if (!date.isValid()) return;
    widget_.setDate(date);
    calendar_->setSelectedDate(date);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched != calendar_) return Binding::eventFilter(watched, event);
    if (event->type() == QEvent::Show) pass([this](Person& person) { person.dropDown(control_); });
    if (event->type() == QEvent::Hide) {
      // The calendar goes first: what follows may ask a question.
      const DateTime picked = modelDate(calendar_->selectedDate());
      QMetaObject::invokeMethod(
          this, [=, this] { pass([&](Person& person) { person.closeUp(control_, picked); }); },
          Qt::QueuedConnection);
    }
    return false;
  }

 private:
  QCalendarWidget* calendar_ = nullptr;
};

class ProgressBinding : public BindingOf<ProgressBar, QProgressBar> {
 public:
  using BindingOf::BindingOf;

 protected:
  void drawValue() override {
    widget_.setRange(control_.minimum(), control_.maximum());
    widget_.setValue(std::clamp(control_.value(), control_.minimum(), control_.maximum()));
  }
};

class TabBinding : public BindingOf<TabControl, QTabWidget> {
 public:
  TabBinding(Form& form, TabControl& control, QTabWidget& widget)
      : BindingOf(form, control, widget) {
    connect(&widget, &QTabWidget::currentChanged, this, [this](int page) {
      pass([=, this](Person& person) { person.choose(control_, page); });
    });
  }

 protected:
  void drawList() override {
    const auto& pages = control_.pages();
    for (int page = 0; page < static_cast<int>(pages.size()) && page < widget_.count(); ++page)
      widget_.setTabText(page, shown(pages[static_cast<std::size_t>(page)]));
  }
  void drawValue() override { widget_.setCurrentIndex(control_.tab()); }
};

class TreeBinding : public BindingOf<TreeView, QTreeWidget> {
 public:
  TreeBinding(Form& form, TreeView& control, QTreeWidget& widget)
      : BindingOf(form, control, widget) {
    widget.setHeaderHidden(true);
    connect(&widget, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
      const int position = item->data(0, Qt::UserRole).toInt();
      pass([=, this](Person& person) { person.choose(control_, position); });
    });
  }

 protected:
  void drawList() override {
    if (items_.size() == control_.nodes().size() && !items_.empty()) return;
    widget_.clear();
    items_.clear();
    for (const TreeView::Node& node : control_.nodes()) {
      auto* item = new QTreeWidgetItem({shown(node.text)});
      item->setData(0, Qt::UserRole, static_cast<int>(items_.size()));
      if (node.parent < 0)
        widget_.addTopLevelItem(item);
      else
        items_[static_cast<std::size_t>(node.parent)]->addChild(item);
      items_.push_back(item);
    }
    widget_.expandAll();
  }
  void drawValue() override {
    const int selected = control_.selected();
    widget_.setCurrentItem(selected < 0 ? nullptr : items_.at(static_cast<std::size_t>(selected)));
  }

 private:
  std::vector<QTreeWidgetItem*> items_;
};

using Maker = std::unique_ptr<Binding> (*)(Form&, Control&, QWidget*);

/// Null when the control is of another kind than ControlType.
template <class BindingType, class ControlType, class WidgetType>
std::unique_ptr<Binding> make(Form& form, Control& control, QWidget* widget) {
  auto* typed = dynamic_cast<ControlType*>(&control);
  if (!typed) return nullptr;
  auto* drawn = qobject_cast<WidgetType*>(widget);
  if (!drawn) {
    throw std::logic_error(
        form.name() + "." + control.name() + ": " +
        (widget ? "the layout has another kind of widget" : "the layout has no such widget"));
  }
  return std::make_unique<BindingType>(form, *typed, *drawn);
}

/// One row for each kind of control that is drawn.
constexpr Maker makers[] = {
    make<ButtonBinding<Button, QAbstractButton>, Button, QAbstractButton>,
    make<ButtonBinding<CheckBox, QCheckBox>, CheckBox, QCheckBox>,
    make<ButtonBinding<OptionButton, QRadioButton>, OptionButton, QRadioButton>,
    make<LabelBinding, Label, QLabel>,
    make<FrameBinding, Frame, QWidget>,
    make<TextBinding, TextBox, QLineEdit>,
    make<ComboBinding, ComboBox, QComboBox>,
    make<ListBinding, ListBox, QListWidget>,
    make<DateBinding, DatePicker, QDateEdit>,
    make<ProgressBinding, ProgressBar, QProgressBar>,
    make<TabBinding, TabControl, QTabWidget>,
    make<TreeBinding, TreeView, QTreeWidget>,
    make<RichTextBinding, RichTextBox, RichTextEditor>,
};

}  // namespace

std::unique_ptr<Binding> bindControl(Form& form, Control& control, QWidget& root) {
  auto* widget = root.findChild<QWidget*>(shown(control.name()));
  for (const Maker maker : makers) {
    if (auto binding = maker(form, control, widget)) return binding;
  }
  return nullptr;
}

namespace {

const QDate dayZero(1899, 12, 30);

}  // namespace

QDate qtDate(DateTime date) {
  return date.isZero() ? QDate() : dayZero.addDays(date.days());
}

DateTime modelDate(const QDate& date) {
  return date.isValid() ? DateTime::fromSerial(static_cast<std::int32_t>(dayZero.daysTo(date)))
                        : DateTime();
}

}  // namespace autonotify::desktop
