#include "GridOptionsDialog.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPainter>
#include <QPushButton>
#include <algorithm>
#include <utility>
#include <vector>

#include "colors.h"
#include "contract/DatabaseReference.h"
#include "contract/LocaleReference.h"
#include "host/clients/record_rows.h"
#include "qt_text.h"

namespace autonotify::desktop {
namespace {

constexpr const char* colorProperty = "color";
constexpr const char* alternatesField = "autoNotifyGridDisplayAltnGridLines";
constexpr const char* wrapsField = "autoNotifyGridWordWrap";
constexpr const char* totalsField = "autoNotifyGridFloatTotalBar";
constexpr const char* freezesField = "autoNotifyGridLockNameColumn";
constexpr const char* frozenField = "autoNotifyGridLockColumnNum";
constexpr const char* oddRowsField = "autoNotifyGridBackColour1";
constexpr const char* evenRowsField = "autoNotifyGridBackColour2";

/// An invalid colour is the desktop's own.
void setColor(QPushButton& button, const QColor& color) {
  QPixmap swatch(button.iconSize());
  swatch.fill(color);
  button.setIcon(color.isValid() ? QIcon(swatch) : QIcon());
  button.setText(color.isValid() ? color.name() : QObject::tr("As the desktop has it"));
  button.setAccessibleDescription(button.text());
  button.setProperty(colorProperty, color);
}

/// Black comes as its neighbour: 0 would be the desktop's own.
Id colorIn(const QPushButton& button) {
  const QColor color = button.property(colorProperty).value<QColor>();
  if (!color.isValid()) return 0;
  return std::max(color.red() | color.green() << 8 | color.blue() << 16, 1);
}

/// The greys that stand for no choice are none.
Id chosen(Id color, Id unchosen) {
  return color == unchosen ? 0 : color;
}

GridOptions readOptions(const host::Row& row) {
  return {.alternates = row.flag(alternatesField),
          .wraps = row.flag(wrapsField),
          .totals = row.flag(totalsField),
          .frozen = row.flag(freezesField) ? row.id(frozenField, -1) : -1,
          .oddRows = chosen(row.id(oddRowsField, 0), unchosenRowColor),
          .evenRows = chosen(row.id(evenRowsField, 0), unchosenEvenRowColor)};
}

void writeOptions(DatabaseReference& database, RecordsetHandle handle, const GridOptions& options) {
  std::vector<std::pair<const char*, Value>> fields{
      {alternatesField, options.alternates}, {wrapsField, options.wraps},
      {totalsField, options.totals},         {freezesField, options.frozen >= 0},
      {oddRowsField, options.oddRows},       {evenRowsField, options.evenRows}};
  if (options.frozen >= 0) fields.emplace_back(frozenField, options.frozen);
  for (const auto& [field, value] : fields)
    database.updateFieldValue(handle, field, toText(value), false, false);
}

}  // namespace

GridOptionsDialog::GridOptionsDialog(const GridOptions& options, const Grid& grid, QWidget* parent)
    : QDialog(parent) {
  setObjectName("gridOptions");
  setWindowTitle(tr("Grid Options"));
  auto* layout = new QFormLayout(this);
  alternates_ =
      addTick(*layout, tr("&Alternate the colours of the rows"), "alternates", options.alternates);
  oddRows_ = addColor(*layout, tr("&Odd rows:"), "oddRows", options.oddRows);
  evenRows_ = addColor(*layout, tr("&Even rows:"), "evenRows", options.evenRows);
  wraps_ = addTick(*layout, tr("&Wrap words in the rows"), "wraps", options.wraps);
  totals_ = addTick(*layout, tr("Show a line of &totals"), "totals", options.totals);
  addColumns(*layout, grid, options.frozen);
  addButtons(*layout);
}

QCheckBox* GridOptionsDialog::addTick(QFormLayout& layout, const QString& label, const char* name,
                                      bool isTicked) {
  auto* box = new QCheckBox(label, this);
  box->setObjectName(name);
  box->setChecked(isTicked);
  layout.addRow(box);
  return box;
}

QPushButton* GridOptionsDialog::addColor(QFormLayout& layout, const QString& label,
                                         const char* name, Id color) {
  auto* button = new QPushButton(this);
  button->setObjectName(name);
  button->setAutoDefault(false);
  button->setAccessibleName(QString(label).remove('&').remove(':'));
  setColor(*button, color == 0 ? QColor() : colorOf(color));
  connect(button, &QPushButton::clicked, this, [this, button] {
    const QColor before = button->property(colorProperty).value<QColor>();
    const QColor chosen = QColorDialog::getColor(before.isValid() ? before : Qt::white, this);
    if (chosen.isValid()) setColor(*button, chosen);
  });
  layout.addRow(label, button);
  return button;
}

void GridOptionsDialog::addColumns(QFormLayout& layout, const Grid& grid, int frozen) {
  frozen_ = new QComboBox(this);
  frozen_->setObjectName("frozen");
  frozen_->addItem(tr("None"), -1);
  for (int column = 0; column < grid.get_Cols(); ++column)
    if (grid.showsColumn(column) && !grid.get_ColHeading(column).empty())
      frozen_->addItem(shown(grid.get_ColHeading(column)), column);
  // A column that is hidden at present still bounds those before it.
  for (int i = 0; i < frozen_->count(); ++i)
    if (frozen_->itemData(i).toInt() <= frozen) frozen_->setCurrentIndex(i);
  layout.addRow(tr("&Columns that stay in sight, up to:"), frozen_);
}

void GridOptionsDialog::addButtons(QFormLayout& layout) {
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
  auto* reset = buttons->addButton(tr("&Reset Colours"), QDialogButtonBox::ResetRole);
  connect(reset, &QPushButton::clicked, this, &GridOptionsDialog::resetColors);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  layout.addRow(buttons);
}

void GridOptionsDialog::resetColors() {
  for (QPushButton* button : {oddRows_, evenRows_}) setColor(*button, {});
}

GridOptions GridOptionsDialog::options() const {
  return {.alternates = alternates_->isChecked(),
          .wraps = wraps_->isChecked(),
          .totals = totals_->isChecked(),
          .frozen = frozen_->currentData().toInt(),
          .oddRows = colorIn(*oddRows_),
          .evenRows = colorIn(*evenRows_)};
}

bool editGridOptions(const Grid& grid, QWidget* parent) {
  DatabaseReference* const database = grid.get_DatabaseReference();
  LocaleReference* const locale = grid.get_LocaleReference();
  if (!database || !locale) return true;
  const std::string sql = "SELECT UserGridSettings2.* FROM UserGridSettings2 WHERE UserIDNum = " +
                          std::to_string(locale->getCurrentUserID()) + ";";
  host::OpenRows stored(*database, sql, CursorMode::keyset, LockMode::updatable);
  if (stored.isAtEnd()) return true;
  GridOptionsDialog dialog(readOptions(stored.row()), grid, parent);
  if (dialog.exec() != QDialog::Accepted) return true;
  writeOptions(*database, stored.handle(), dialog.options());
  return false;
}

}  // namespace autonotify::desktop
