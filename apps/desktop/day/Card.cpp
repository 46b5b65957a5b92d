#include "day/Card.h"

#include <QVBoxLayout>

#include "day/ElidedLabel.h"

namespace autonotify::desktop {
namespace {

constexpr int marginAtSides = 16;
constexpr int marginAbove = 12;
constexpr double headingSize = 1.15;

}  // namespace

Card::Card(QWidget* parent) : QFrame(parent), layout_(new QVBoxLayout(this)) {
  setFrameShape(StyledPanel);
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
  layout_->setContentsMargins(marginAtSides, marginAbove, marginAtSides, marginAbove);
}

QLabel* Card::newLabel(const char* name, bool isSecondary) {
  auto* label = new ElidedLabel(this);
  label->setObjectName(name);
  if (isSecondary) label->setForegroundRole(QPalette::PlaceholderText);
  return label;
}

QLabel* Card::addLabel(const char* name, bool isSecondary) {
  QLabel* label = newLabel(name, isSecondary);
  layout_->addWidget(label);
  return label;
}

void Card::asHeading(QLabel& label) {
  QFont font = label.font();
  font.setPointSizeF(font.pointSizeF() * headingSize);
  font.setWeight(QFont::DemiBold);
  label.setFont(font);
}

void Card::addPair(QLabel* left, QLabel* right) {
  right->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
  auto* pair = new QHBoxLayout;
  pair->addWidget(left, 1);
  pair->addWidget(right);
  layout_->addLayout(pair);
}

void Card::addRule() {
  auto* rule = new QFrame(this);
  rule->setFrameShape(HLine);
  rule->setForegroundRole(QPalette::Mid);
  rule->setFrameShadow(Plain);
  layout_->addWidget(rule);
}

}  // namespace autonotify::desktop
