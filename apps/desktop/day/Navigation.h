#pragma once

#include <QListWidget>
#include <optional>

namespace autonotify::desktop {

/// The pages of the program under their headings, with how much waits in each.
class Navigation : public QListWidget {
  Q_OBJECT

 public:
  /// A page, or a window that comes up; in the order of the keys that lead there.
  enum class Place { today, tasks, list, letters, faxes, calls, clients, templates };
  static constexpr int places = 8;

  explicit Navigation(QWidget* parent);

  /// Marks the place without going there.
  void mark(Place place);
  void setBadge(Place place, std::optional<std::size_t> count);
  static QString textOf(Place place);

 signals:
  /// A person chose the place.
  void chosen(Place place);

 protected:
  QSize sizeHint() const override;

 private:
  QListWidgetItem* itemOf(Place place) const;
};

}  // namespace autonotify::desktop
