#pragma once

namespace autonotify::console {

/// Sets memory aside that is given back when there is no other, once. What ends the program needs
/// some: JSON data allocates while it is destroyed, and so do messages. Where that is not enough,
/// the program ends with one line and without its destructors.
void keepMemoryReserve();

/// One line on standard error; allocates nothing.
void tellNoMemory();

}  // namespace autonotify::console
