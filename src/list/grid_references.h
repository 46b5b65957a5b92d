#pragma once

namespace autonotify {

class Grid;

/// Hands the grid what its dialogs need of the host, but for the database.
void halvornGridControlInit(Grid& grid);
void halvornGridControlInitDatabase(Grid& grid);

}  // namespace autonotify
