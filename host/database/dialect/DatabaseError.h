#pragma once

#include <string>
#include <utility>

#include "host/words/Words.h"
#include "platform/PlatformError.h"

namespace autonotify::host {

/// Numbers of a database's own failures. A value that cannot be read as its column wants it keeps
/// the platform's numbers: type mismatch (13) and overflow (6).
namespace database_error {
// The caller asked for what cannot be done.
inline constexpr int closed = 4001;            ///< the database is closed
inline constexpr int statementRefused = 4002;  ///< not a plain SELECT of the dialect
inline constexpr int statementFailed = 4003;   ///< the engine does not accept the statement
inline constexpr int badHandle = 4004;         ///< a handle that is not open
inline constexpr int noCurrentRow = 4005;      ///< past the last row, or no row being added
inline constexpr int rowGone = 4006;           ///< the current row has been deleted
inline constexpr int unknownColumn = 4007;     ///< no such column in the recordset
inline constexpr int notUpdatable = 4008;      ///< opened read-only, or no column of one table
inline constexpr int invalidText = 4009;       ///< text with a NUL byte, no UTF-8 or too long
// The file or the server does not serve.
inline constexpr int missing = 4020;         ///< no such file
inline constexpr int cannotOpen = 4021;      ///< a folder, no permission, no connection
inline constexpr int locked = 4022;          ///< someone else holds it: trying again may help
inline constexpr int diskFull = 4023;        ///< no room to write: trying again may help
inline constexpr int readOnly = 4024;        ///< the file may only be read
inline constexpr int corrupt = 4025;         ///< damaged, or no database at all
inline constexpr int foreign = 4026;         ///< the database of another program
inline constexpr int newerSchema = 4027;     ///< written by a newer version of the program
inline constexpr int alreadyExists = 4028;   ///< will not be overwritten
inline constexpr int keysExhausted = 4029;   ///< no 32-bit key is left in the table
inline constexpr int inputOutput = 4030;     ///< the medium failed: trying again may help
inline constexpr int connectionLost = 4031;  ///< the server went away: trying again may help
inline constexpr int constraint = 4032;      ///< a key twice, or NULL where none may stand
inline constexpr int engineFailure = 4033;   ///< any other failure of the engine
inline constexpr int notPermitted = 4034;    ///< the database user has no right to do this
inline constexpr int unfinished = 4035;      ///< was never filled to its end
}  // namespace database_error

/// A failure of a database. The description names the fault in words, and where they are known the
/// engine's own words and code and the statement.
class DatabaseError : public PlatformError {
 public:
  explicit DatabaseError(int number, const std::string& description, int nativeCode = 0,
                         std::string sql = {})
      : PlatformError(number, composed(description, nativeCode, sql), "Database"),
        nativeCode_(nativeCode),
        sql_(std::move(sql)) {}

  /// The engine's code, or 0 when the engine was not asked.
  int nativeCode() const noexcept { return nativeCode_; }
  const std::string& sql() const noexcept { return sql_; }
  /// Whether the same call may succeed later with nothing changed by the caller.
  bool mayRetry() const noexcept {
    return number() == database_error::locked || number() == database_error::diskFull ||
           number() == database_error::inputOutput || number() == database_error::connectionLost;
  }

 private:
  static std::string composed(const std::string& description, int nativeCode,
                              const std::string& sql) {
    std::string text = description;
    if (nativeCode != 0)
      text = Words::tr("%1 (engine code %2)", {text, std::to_string(nativeCode)});
    if (!sql.empty()) text = Words::tr("%1\nStatement: %2", {text, sql});
    return text;
  }

  int nativeCode_;
  std::string sql_;
};

}  // namespace autonotify::host
