#pragma once

class QWidget;

namespace autonotify::desktop {

/// Ties each search field of the layout (a line edit whose property "searches" names a list) to its
/// list: while something is written there, the list shows the entries that hold it, under their
/// headings. A label with the field for its buddy tells how many there are. Ctrl+F goes to the
/// field, Enter or Down from there to the first entry.
void bindSearches(QWidget& layout);

}  // namespace autonotify::desktop
