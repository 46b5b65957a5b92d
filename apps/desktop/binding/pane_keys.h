#pragma once

class QWidget;

namespace autonotify::desktop {

/// F6 leads from pane to pane of the layout, whose property "panes" names the widget of each that
/// takes the focus; Shift+F6 leads back.
void bindPanes(QWidget& layout);

}  // namespace autonotify::desktop
