#include "list/grid_references.h"

#include "contract/procedure.h"
#include "contract/references.h"
#include "contract/tags.h"
#include "platform/controls/Grid.h"

namespace autonotify {
namespace {

template <FixedText name>
constexpr std::string_view tagOf = procedureTag<"modHalvornGridControl", name>;

}  // namespace

void halvornGridControlInit(Grid& grid) {
  procedure(tagOf<"halvornGridControlInit">, [&](Step& step) {
    const References& host = references();
    step.run(&Grid::put_errorClass, grid, host.errors);
    step.run(&Grid::put_MsgboxClass, grid, host.msgboxClass);
    step.run(&Grid::put_LocaleReference, grid, host.localeReference);
    step.run(&Grid::put_WorkingFolderReference, grid, host.workingFolderReference);
  });
}

void halvornGridControlInitDatabase(Grid& grid) {
  procedure(tagOf<"halvornGridControlInitDatabase">, [&](Step& step) {
    step.run(&Grid::put_DatabaseReference, grid, references().databaseReference);
  });
}

}  // namespace autonotify
