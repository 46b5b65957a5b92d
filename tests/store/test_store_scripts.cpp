#include "store_acts.h"

namespace autonotify::test {
namespace {

constexpr const char* scripts = "store_scripts.txt";

class StoreScripts : public Scripted<HostTest> {
 protected:
  StoreScripts() { acts.merge(storeActs()); }
};

TEST_P(StoreScripts, GiveWhatTheyTell) {
  follow(scripts);
}
INSTANTIATE_TEST_SUITE_P(Store, StoreScripts, testing::ValuesIn(rowsOf(scripts, "scripts", 1)));

}  // namespace
}  // namespace autonotify::test
