#pragma once

#include <memory>

#include "contract/ClientIDClass.h"
#include "contract/ItemLinksClass.h"

namespace autonotify {

// Host classes ready for use: created by their names and handed the services that they work with.
// Null when the person at the error dialog went on without the object.

/// With errorClass and DatabaseReference.
std::unique_ptr<ItemLinksClass> ItemLinksClassInit();
/// With errorClass, DatabaseReference and clientDropDownCtrlReference.
std::unique_ptr<ClientIDClass> ClientIDClassInit();

}  // namespace autonotify
