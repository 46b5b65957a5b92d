#include "day/ClientCardView.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "day/inked_icons.h"
#include "host/desk/work/client_card.h"
#include "platform/rich_text.h"
#include "qt_text.h"

namespace autonotify::desktop {
namespace {

constexpr int iconBesideText = 16;
/// More is read in the notification itself.
constexpr qsizetype mostOfText = 240;

QString beginningOf(const std::string& memo) {
  const QString text = shown(plainTextOf(memo)).simplified();
  return text.size() > mostOfText ? text.left(mostOfText) + QChar(0x2026) : text;
}

}  // namespace

ClientCardView::ClientCardView(QWidget* parent) : Card(parent) {
  setObjectName("clientCard");
  name_ = newLabel("cardName");
  asHeading(*name_);
  number_ = newLabel("cardNumber", true);
  addPair(name_, number_);
  accountant_ = addLabel("cardAccountant", true);
  email_ = addReach("cardEmail", nt_Email);
  phone_ = addReach("cardPhone", nt_Phone);
  addRule();
  text_ = addLabel("cardText");
  text_->setWordWrap(true);
  text_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  layout_->setStretchFactor(text_, 1);
  auto* buttons = new QHBoxLayout;
  QPushButton* edit = newButton("cardEdit", tr("Edit Notification"));
  QPushButton* history = newButton("cardHistory", tr("History..."));
  buttons->addWidget(edit, 2);
  buttons->addWidget(history, 1);
  layout_->addLayout(buttons);
  connect(edit, &QPushButton::clicked, this, &ClientCardView::editWanted);
  connect(history, &QPushButton::clicked, this, &ClientCardView::historyWanted);
  showClient(nullptr, nullptr);
}

QPushButton* ClientCardView::newButton(const char* name, const QString& text) {
  auto* button = new QPushButton(text, this);
  button->setObjectName(name);
  return button;
}

QLabel* ClientCardView::addReach(const char* name, int channel) {
  auto* line = new QHBoxLayout;
  auto* icon = new QLabel(this);
  icon->setPixmap(channelIcon(channel).pixmap(iconBesideText));
  QLabel* label = newLabel(name);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  line->addWidget(icon);
  line->addWidget(label, 1);
  layout_->addLayout(line);
  return label;
}

void ClientCardView::showClient(host::Desk* desk, const host::DayLine* line) {
  setEnabled(line != nullptr);
  host::ClientCard card;
  QString text;
  if (desk && line) {
    card = host::readClientCard(*desk, host::clientOf(line->row));
    if (const auto row = host::findNotification(*desk, line->row.id)) text = beginningOf(row->memo);
  }
  name_->setText(shown(card.name));
  number_->setText(shown(card.number));
  accountant_->setText(card.accountant.empty()
                           ? QString()
                           : tr("Managing accountant: %1").arg(shown(card.accountant)));
  const QString none = line ? tr("none on file") : QString();
  email_->setText(card.email.empty() ? none : shown(card.email));
  phone_->setText(card.phone.empty() ? none : shown(card.phone));
  for (QLabel* label : {name_, accountant_, email_, phone_}) label->setToolTip(label->text());
  email_->setAccessibleName(tr("Email: %1").arg(email_->text()));
  phone_->setAccessibleName(tr("Phone: %1").arg(phone_->text()));
  text_->setText(text);
}

}  // namespace autonotify::desktop
