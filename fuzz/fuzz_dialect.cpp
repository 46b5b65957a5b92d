#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "fuzz/require.h"
#include "host/database/dialect/DatabaseError.h"
#include "host/database/dialect/Dialect.h"

using namespace autonotify::host;

namespace {

/// Whatever comes in, what goes to an engine holds no literal text, no second statement, no
/// comment.
void check(const Translation& result) {
  require(result.sql.find_first_of("'#;") == std::string::npos);
  require(result.sql.find("--") == std::string::npos);
  require(result.sql.find("/*") == std::string::npos);
  const auto placeholders = std::count(result.sql.begin(), result.sql.end(), '?');
  require(static_cast<std::size_t>(placeholders) == result.parameters.size());
  if (result.from == std::string::npos) return;
  require(result.from <= result.fromEnd && result.fromEnd <= result.sql.size());
  require(result.from <= result.orderEnd && result.orderEnd <= result.sql.size());
  require(!result.rowsAreTableRows || result.rowsHaveKeys);
  if (result.rowsHaveKeys)
    tablesOf(std::string_view(result.sql).substr(result.from, result.fromEnd - result.from));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view sql(reinterpret_cast<const char*>(data), size);
  try {
    check(translate(sql, Engine::sqlite));
  } catch (const DatabaseError&) {
    // Refused: so it must be for every engine.
    try {
      translate(sql, Engine::postgres);
    } catch (const DatabaseError&) {
      return 0;
    }
    require(false);
  }
  return 0;
}
