#include "tests/database/conformance_suite.h"
#include "tests/postgres/PostgresSchema.h"

namespace autonotify::host::conformance {

INSTANTIATE_TYPED_TEST_SUITE_P(Postgres, Conformance, PostgresSchema);

}  // namespace autonotify::host::conformance
