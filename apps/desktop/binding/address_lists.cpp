#include "binding/address_lists.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTimer>
#include <algorithm>

namespace autonotify::desktop {
namespace {

constexpr int wordsRole = Qt::UserRole + 1;
constexpr int ofFirmRole = Qt::UserRole + 2;
constexpr int roomBesideWords = 16;

/// An address with its words at the other end of the line, and a rule above the first one of the
/// firm's own.
class RecipientDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    const bool isSelected = option.state & QStyle::State_Selected;
    painter->save();
    if (isFirstOfFirm(index)) {
      painter->setPen(option.palette.color(QPalette::Mid));
      painter->drawLine(option.rect.topLeft(), option.rect.topRight());
    }
    painter->setPen(
        option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::PlaceholderText));
    painter->drawText(option.rect.adjusted(0, 0, -roomBesideWords / 2, 0),
                      Qt::AlignRight | Qt::AlignVCenter, index.data(wordsRole).toString());
    painter->restore();
  }

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    const QString words = index.data(wordsRole).toString();
    size.rwidth() += option.fontMetrics.horizontalAdvance(words) + 2 * roomBesideWords;
    return size;
  }

 private:
  static bool isFirstOfFirm(const QModelIndex& index) {
    return index.row() > 0 && index.data(ofFirmRole).toBool() &&
           !index.siblingAtRow(index.row() - 1).data(ofFirmRole).toBool();
  }
};

QString wordsOf(const RecipientName& recipient) {
  return recipient.isOfFirm ? QObject::tr("%1 (our firm)").arg(recipient.name) : recipient.name;
}

/// The list may be wider than its box, not wider than the screen.
void makeRoom(QComboBox& box) {
  QAbstractItemView& list = *box.view();
  const int beside = list.verticalScrollBar()->sizeHint().width() + 2 * list.frameWidth();
  list.setMinimumWidth(std::min(list.sizeHintForColumn(0) + beside, box.screen()->size().width()));
}

void nameEntries(QComboBox& box, const AskRecipients& ask) {
  QStringList addresses;
  for (int row = 0; row < box.count(); ++row) addresses.append(box.itemText(row));
  const std::map<QString, RecipientName> names = ask(addresses);
  for (int row = 0; row < box.count(); ++row) {
    const auto found = names.find(addresses[row]);
    if (found == names.end()) continue;
    const QString words = wordsOf(found->second);
    box.setItemData(row, words, wordsRole);
    box.setItemData(row, found->second.isOfFirm, ofFirmRole);
    box.setItemData(row, addresses[row] + ", " + words, Qt::AccessibleTextRole);
  }
  makeRoom(box);
}

}  // namespace

void nameRecipients(QWidget& layout, const AskRecipients& ask) {
  for (auto* box : layout.findChildren<QComboBox*>()) {
    if (!box->property("listsRecipients").toBool()) continue;
    box->setItemDelegate(new RecipientDelegate(box));
    nameEntries(*box, ask);
    // A list that is drawn anew comes without names, row by row.
    auto* pause = new QTimer(box);
    pause->setSingleShot(true);
    pause->callOnTimeout([box, ask] { nameEntries(*box, ask); });
    QObject::connect(box->model(), &QAbstractItemModel::rowsInserted, pause,
                     [pause] { pause->start(0); });
  }
}

}  // namespace autonotify::desktop
