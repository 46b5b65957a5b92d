#include <atomic>
#include <filesystem>
#include <string>

#include <unistd.h>

#include "host/database/sqlite/SqliteDatabase.h"
#include "tests/database/conformance_suite.h"

namespace autonotify::host::conformance {

namespace {

class SqliteFile {
 public:
  SqliteFile() {
    static std::atomic<int> number{0};
    folder_ =
        std::filesystem::temp_directory_path() /
        ("autonotify-conformance-" + std::to_string(getpid()) + "-" + std::to_string(++number));
    std::filesystem::create_directories(folder_);
    createSqlite(folder_ / "firm.db");
  }
  ~SqliteFile() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  std::unique_ptr<DatabaseReference> connect() { return openSqlite(folder_ / "firm.db"); }

 private:
  std::filesystem::path folder_;
};

}  // namespace

INSTANTIATE_TYPED_TEST_SUITE_P(SqliteFile, Conformance, SqliteFile);

}  // namespace autonotify::host::conformance
