#pragma once

class QWidget;

namespace autonotify::desktop {

/// Of the buttons of the layout with the property "choice" one at a time stays pressed; at first
/// the one where it is "first". A button with the property "endsChoice" makes another choice than
/// any of them, if the words of the label which that names have changed when it is done.
void bindChoice(QWidget& layout);

}  // namespace autonotify::desktop
