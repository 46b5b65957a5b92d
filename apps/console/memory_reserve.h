#pragma once

namespace autonotify::console {

/// Sets memory aside that is given back when there is no other, once. What ends the program needs
/// some: JSON data allocates while it is destroyed, and so do messages.
void keepMemoryReserve();

}  // namespace autonotify::console
