#pragma once

#include <QDialog>

#include "platform/controls/Grid.h"

class QCheckBox;
class QComboBox;
class QFormLayout;
class QPushButton;

namespace autonotify::desktop {

/// How the rows of the list look to one user.
struct GridOptions {
  bool alternates = true;
  bool wraps = false;
  bool totals = false;
  /// Columns up to this one stay in sight; -1 for none.
  int frozen = -1;
  /// As controls have colours; 0 is the desktop's own.
  Id oddRows = 0;
  Id evenRows = 0;
};

/// Lets a person choose how the rows look.
class GridOptionsDialog : public QDialog {
  Q_OBJECT

 public:
  /// `grid` tells which columns there are.
  GridOptionsDialog(const GridOptions& options, const Grid& grid, QWidget* parent);
  GridOptions options() const;

 private:
  QCheckBox* addTick(QFormLayout& layout, const QString& label, const char* name, bool isTicked);
  QPushButton* addColor(QFormLayout& layout, const QString& label, const char* name, Id color);
  void addColumns(QFormLayout& layout, const Grid& grid, int frozen);
  void addButtons(QFormLayout& layout);
  void resetColors();

  QCheckBox* alternates_ = nullptr;
  QCheckBox* wraps_ = nullptr;
  QCheckBox* totals_ = nullptr;
  QComboBox* frozen_ = nullptr;
  QPushButton* oddRows_ = nullptr;
  QPushButton* evenRows_ = nullptr;
};

/// Shows the dialog for what is stored of the grid's user, and stores what was chosen. True when
/// the person cancelled, or nothing is stored. Throws PlatformError when the database fails.
bool editGridOptions(const Grid& grid, QWidget* parent);

}  // namespace autonotify::desktop
