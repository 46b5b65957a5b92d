#include "day/ClientsPage.h"

#include <QAction>
#include <QClipboard>
#include <QCollator>
#include <QDate>
#include <QGuiApplication>
#include <QLabel>
#include <QScrollBar>
#include <QSortFilterProxyModel>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <optional>

#include "SortHeader.h"
#include "binding/DateBinding.h"
#include "day/row_acts.h"
#include "platform/rich_text.h"
#include "qt_text.h"

namespace autonotify::desktop {
namespace {

constexpr int pageMargin = 16;
/// The rest of a client of many years is in the list of notifications.
constexpr std::size_t mostTold = 2000;
/// Of a column, in a narrow window.
constexpr int leastLetters = 8;
/// By which the width of a column goes.
constexpr int measuredClients = 100;

using ClientColumn = RecordColumn<host::ClientLine>;
constexpr ClientColumn clientColumns[] = {
    {QT_TRANSLATE_NOOP("QObject", "Client"),
     [](const host::ClientLine& line) { return QVariant(shown(line.name)); }},
    {QT_TRANSLATE_NOOP("QObject", "Number"),
     [](const host::ClientLine& line) { return QVariant(shown(line.number)); }},
    {QT_TRANSLATE_NOOP("QObject", "Phone"),
     [](const host::ClientLine& line) { return QVariant(shown(line.phone)); }},
    {QT_TRANSLATE_NOOP("QObject", "Email"),
     [](const host::ClientLine& line) { return QVariant(shown(line.email)); }},
    {QT_TRANSLATE_NOOP("QObject", "Accountant"),
     [](const host::ClientLine& line) { return QVariant(shown(line.accountant)); }},
};

enum ClientPlace { clientNumber = 1, clientPhone = 2 };
enum ToldPlace { toldDate = 0, toldChannel = 2, toldState = 3, toldSent = 4 };

QVariant dateOrNothing(DateTime day) {
  return day.isZero() ? QVariant() : QVariant(qtDate(day));
}

using ToldColumn = RecordColumn<host::NotificationLine>;
constexpr ToldColumn toldColumns[] = {
    {QT_TRANSLATE_NOOP("QObject", "Notify on"),
     [](const host::NotificationLine& line) { return dateOrNothing(line.row.date); }},
    {QT_TRANSLATE_NOOP("QObject", "Task"),
     [](const host::NotificationLine& line) { return QVariant(shown(line.item)); }},
    {QT_TRANSLATE_NOOP("QObject", "Channel"),
     [](const host::NotificationLine& line) { return QVariant(channelText(line.row.channel)); }},
    {QT_TRANSLATE_NOOP("QObject", "State"),
     [](const host::NotificationLine& line) { return QVariant(textOfState(line.row)); }},
    {QT_TRANSLATE_NOOP("QObject", "Sent"),
     [](const host::NotificationLine& line) { return dateOrNothing(line.row.sentTime); }},
    {QT_TRANSLATE_NOOP("QObject", "Address"),
     [](const host::NotificationLine& line) { return QVariant(shown(addressOf(line.row))); }},
    {QT_TRANSLATE_NOOP("QObject", "Sent by"),
     [](const host::NotificationLine& line) { return QVariant(shown(line.sentBy)); }},
};

/// Words in the order of the language, numbers in them by what they count.
class SortedRows : public QSortFilterProxyModel {
 public:
  explicit SortedRows(QObject* parent) : QSortFilterProxyModel(parent) {
    order_.setNumericMode(true);
    order_.setCaseSensitivity(Qt::CaseInsensitive);
  }

 protected:
  bool lessThan(const QModelIndex& left, const QModelIndex& right) const override {
    const QVariant first = left.data();
    if (first.typeId() != QMetaType::QString) return QSortFilterProxyModel::lessThan(left, right);
    return order_.compare(first.toString(), right.data().toString()) < 0;
  }

 private:
  QCollator order_;
};

QSortFilterProxyModel* sortedRows(QAbstractItemModel& model, QObject* parent) {
  auto* rows = new SortedRows(parent);
  rows->setSourceModel(&model);
  rows->setFilterCaseSensitivity(Qt::CaseInsensitive);
  rows->setFilterKeyColumn(-1);
  return rows;
}

void copy(const std::string& text) {
  if (!text.empty()) QGuiApplication::clipboard()->setText(shown(text));
}

host::Client clientOf(const host::ClientLine& line) {
  if (line.contact >= 0) return {enumAutoNotifyContact, line.contact};
  return {enumAutoNotifyCompany, line.company};
}

}  // namespace

ClientsPage::ClientsPage(QWidget* parent)
    : QWidget(parent),
      clients_(clientColumns, nullptr),
      told_(toldColumns, nullptr),
      foundClients_(sortedRows(clients_, this)),
      sortedTold_(sortedRows(told_, this)),
      clientTable_(newTable("clients", tr("Clients"), *foundClients_)) {
  setFocusProxy(clientTable_);
  auto* panes = new QSplitter(Qt::Vertical, this);
  panes->setChildrenCollapsible(false);
  panes->addWidget(clientTable_);
  panes->addWidget(makeHistory());
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(pageMargin, pageMargin / 2, pageMargin, pageMargin);
  layout->addWidget(panes);
  for (const int narrow : {clientNumber, clientPhone})
    clientTable_->horizontalHeader()->setSectionResizeMode(narrow, QHeaderView::ResizeToContents);
  addNote();
  connect(clientTable_->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
          &ClientsPage::showChosen);
  addCommands();
}

void ClientsPage::addNote() {
  auto* nothing = new QLabel(tr("No client fits."), clientTable_->viewport());
  nothing->hide();
  (new QVBoxLayout(clientTable_->viewport()))->addWidget(nothing, 0, Qt::AlignCenter);
  const auto show = [this, nothing] {
    nothing->setVisible(desk_ && foundClients_->rowCount() == 0);
  };
  for (const auto changed : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
    connect(foundClients_, changed, this, show);
  connect(foundClients_, &QAbstractItemModel::modelReset, this, show);
}

void ClientsPage::addCommands() {
  addTo(*clientTable_, tr("Show &Tasks"), &ClientsPage::showTasks);
  addTo(*clientTable_, tr("Copy &Phone Number"), &ClientsPage::copyPhone);
  addTo(*clientTable_, tr("Copy &Email Address"), &ClientsPage::copyEmail);
  addTo(*toldTable_, tr("Copy &Address"), &ClientsPage::copyAddress);
  addTo(*toldTable_, tr("Copy Te&xt"), &ClientsPage::copyText);
  connect(clientTable_, &QTableView::activated, this, &ClientsPage::showTasks);
}

void ClientsPage::addTo(QTableView& table, const QString& text, void (ClientsPage::*act)()) {
  auto* command = new QAction(text, &table);
  connect(command, &QAction::triggered, this, act);
  table.addAction(command);
}

void ClientsPage::addCommand(QAction* command) {
  clientTable_->addAction(command);
}

void ClientsPage::showTasks() {
  if (const host::ClientLine* line = chosen()) emit tasksWanted(shown(line->name));
}

void ClientsPage::copyPhone() {
  if (const host::ClientLine* line = chosen()) copy(line->phone);
}

void ClientsPage::copyEmail() {
  if (const host::ClientLine* line = chosen()) copy(line->email);
}

void ClientsPage::copyAddress() {
  if (const host::NotificationLine* line = chosenTold()) copy(addressOf(line->row));
}

void ClientsPage::copyText() {
  const host::NotificationLine* line = chosenTold();
  if (!line) return;
  try {
    if (const auto row = host::findNotification(*desk_, line->row.id)) copy(plainTextOf(row->memo));
  } catch (const PlatformError& error) {
    emit failed(faultOf(error.description()));
  }
}

QTableView* ClientsPage::newTable(const char* name, const QString& accessibleName,
                                  QAbstractItemModel& model) {
  auto* table = new QTableView(this);
  table->setObjectName(name);
  table->setAccessibleName(accessibleName);
  table->setModel(&model);
  table->setSelectionBehavior(QAbstractItemView::SelectRows);
  table->setSelectionMode(QAbstractItemView::SingleSelection);
  table->setAlternatingRowColors(true);
  table->setShowGrid(false);
  table->setTabKeyNavigation(false);
  table->setWordWrap(false);
  table->setContextMenuPolicy(Qt::ActionsContextMenu);
  table->verticalHeader()->hide();
  table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 8);
  QHeaderView& header = SortHeader::giveTo(*table);
  header.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  header.setSectionResizeMode(QHeaderView::Stretch);
  header.setResizeContentsPrecision(measuredClients);
  header.setMinimumSectionSize(leastLetters * fontMetrics().horizontalAdvance('0'));
  header.setSortIndicator(-1, Qt::AscendingOrder);
  table->setSortingEnabled(true);
  return table;
}

QWidget* ClientsPage::makeHistory() {
  auto* page = new QWidget(this);
  auto* layout = new QVBoxLayout(page);
  layout->setContentsMargins({});
  title_ = new QLabel(page);
  title_->setObjectName("clientTitle");
  summary_ = new QLabel(page);
  summary_->setObjectName("clientSummary");
  summary_->setForegroundRole(QPalette::PlaceholderText);
  QFont bold = title_->font();
  bold.setWeight(QFont::DemiBold);
  title_->setFont(bold);
  for (QLabel* label : {title_, summary_}) {
    label->setTextFormat(Qt::PlainText);
    layout->addWidget(label);
  }
  toldTable_ = newTable("told", tr("Notifications of the client"), *sortedTold_);
  for (const int narrow : {toldDate, toldChannel, toldState, toldSent})
    toldTable_->horizontalHeader()->setSectionResizeMode(narrow, QHeaderView::ResizeToContents);
  layout->addWidget(toldTable_);
  return page;
}

void ClientsPage::clear() {
  desk_ = nullptr;
  unreadable_ = {};
  shownClient_.reset();
  clients_.show({});
  showHistory();
}

void ClientsPage::readFrom(host::Desk& desk) {
  desk_ = &desk;
  const auto client = shownClient_;
  try {
    readClients();
  } catch (const PlatformError& error) {
    return emit failed(faultOf(error.description()));
  }
  client ? showClient(*client) : clientTable_->selectRow(0);
  showHistory();
}

void ClientsPage::readClients() {
  std::vector<host::ClientLine> lines;
  unreadable_ =
      host::listClients(*desk_, {}, [&](const host::ClientLine& line) { lines.push_back(line); });
  clients_.show(std::move(lines));
}

void ClientsPage::setFilter(const QString& text) {
  foundClients_->setFilterFixedString(text.trimmed());
}

void ClientsPage::goToFirstRow() {
  if (!clientTable_->currentIndex().isValid()) clientTable_->selectRow(0);
  clientTable_->setFocus(Qt::OtherFocusReason);
}

void ClientsPage::showClient(const host::Client& client) {
  const auto isMeant = [&](const host::ClientLine& line) {
    const host::Client each = clientOf(line);
    return each.type == client.type && each.id == client.id;
  };
  const auto found = std::ranges::find_if(clients_.records(), isMeant);
  shownClient_ = client;
  if (found == clients_.records().end()) {
    clientTable_->setCurrentIndex({});
    return showHistory();
  }
  const int row = static_cast<int>(found - clients_.records().begin());
  const QModelIndex index = foundClients_->mapFromSource(clients_.index(row, 0));
  clientTable_->setCurrentIndex(index);
  clientTable_->scrollTo(index, QAbstractItemView::PositionAtCenter);
}

const host::ClientLine* ClientsPage::chosen() const {
  const QModelIndex index = foundClients_->mapToSource(clientTable_->currentIndex());
  return index.isValid() ? &clients_.at(index.row()) : nullptr;
}

const host::NotificationLine* ClientsPage::chosenTold() const {
  const QModelIndex index = sortedTold_->mapToSource(toldTable_->currentIndex());
  return index.isValid() ? &told_.at(index.row()) : nullptr;
}

std::optional<host::Client> ClientsPage::chosenClient() const {
  const host::ClientLine* line = chosen();
  return line ? std::optional(clientOf(*line)) : std::nullopt;
}

void ClientsPage::showChosen() {
  if (const host::ClientLine* line = chosen()) shownClient_ = clientOf(*line);
  showHistory();
}

QString ClientsPage::nameOf(const host::Client& client) const {
  if (const host::ClientLine* line = chosen()) return shown(line->name);
  return desk_ ? shown(host::readClientCard(*desk_, client).name) : QString();
}

void ClientsPage::showHistory() {
  QString name;
  std::vector<host::NotificationLine> told;
  if (desk_ && shownClient_) {
    try {
      name = nameOf(*shownClient_);
      const host::NotificationQuery query{
          .client = *shownClient_, .descending = true, .limit = mostTold};
      unreadable_.name(host::listNotifications(
          *desk_, query, [&](const host::NotificationLine& each) { told.push_back(each); }));
    } catch (const PlatformError& error) {
      emit failed(faultOf(error.description()));
    }
  }
  const auto waiting = std::ranges::count_if(told, [](const host::NotificationLine& each) {
    return stateOf(each.row) == host::NotificationState::pending;
  });
  title_->setText(name);
  summary_->setText(shownClient_ ? tr("%Ln notifications, %L1 of them still to come", "",
                                      static_cast<int>(told.size()))
                                       .arg(waiting)
                                 : tr("Choose a client to see all that it was told"));
  told_.show(std::move(told));
  emit changed();
}

}  // namespace autonotify::desktop
