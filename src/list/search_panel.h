#pragma once

#include <memory>

#include "contract/procedure.h"

namespace autonotify {

class frmAutoNotifySearch;

/// The search panel, which the host keeps between two uses; a new one when it keeps none that can
/// be shown. Null when it could not be made.
std::shared_ptr<frmAutoNotifySearch> keptSearchPanel(Step& step);

/// Has the host give the panel back. It holds code of the component, which may be unloaded once its
/// last object is gone.
void giveBackSearchPanel();

}  // namespace autonotify
