#include "host/desk/claims.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <thread>

#include "host/database/dialect/DatabaseError.h"
#include "host/database/postgres/PostgresDatabase.h"
#include "host/desk/databases.h"
#include "host/services/Descriptor.h"

namespace autonotify::host {
namespace {

/// In the order of WorkItem, from 1.
constexpr std::array<const char*, 4> itemNames{"notification", "task", "appointment", "time entry"};

/// A lock on one byte of the file for each item; it ends when its descriptor is closed.
class FileClaim : public Claim {
 public:
  explicit FileClaim(int file) : file_(file) {}

  /// False when someone else has it.
  bool lock(WorkItem item, Id id) {
    constexpr off_t idsOfItem = off_t{1} << 32;
    struct flock range {};
    range.l_type = F_WRLCK;
    range.l_whence = SEEK_SET;
    range.l_start = static_cast<off_t>(item) * idsOfItem + id;
    range.l_len = 1;
    return ::fcntl(file_.get(), F_OFD_SETLK, &range) == 0;
  }

 private:
  Descriptor file_;
};

[[noreturn]] void failFile(const std::string& path) {
  throw DatabaseError(database_error::inputOutput,
                      "The file of claims " + path + " cannot be used: " + std::strerror(errno));
}

class FileClaims : public Claims {
 public:
  explicit FileClaims(const std::string& database)
      : database_(database), path_(database + ".claims") {}

  std::unique_ptr<Claim> tryTake(WorkItem item, Id id) override {
    auto claim = std::make_unique<FileClaim>(openFile());
    if (claim->lock(item, id)) return claim;
    if (errno != EAGAIN && errno != EACCES) failFile(path_);
    return nullptr;
  }

 private:
  // Whoever may write to the database may claim, whichever user made the file.
  int openFile() const {
    const int file = ::open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file < 0) failFile(path_);
    struct stat status {};
    if (::stat(database_.c_str(), &status) == 0) {
      [[maybe_unused]] const int ofAnotherUser = ::fchmod(file, status.st_mode & 0666);
    }
    return file;
  }

  std::string database_;
  std::string path_;
};

// The server's locks are of a whole database, whose schemas may hold several firms.
constexpr const char* lockKey = "(hashtext('autonotify ' || $1 || ' ' || current_schema()), $2)";

class ServerClaim : public Claim {
 public:
  ServerClaim(PostgresConnection& connection, std::vector<Value> key)
      : connection_(connection), key_(std::move(key)), generation_(connection.generation()) {}
  ~ServerClaim() override {
    if (generation_ != connection_.generation()) return;
    try {
      connection_.execute(std::string("SELECT pg_advisory_unlock") + lockKey, key_);
    } catch (const DatabaseError&) {
      // It went with the connection.
    }
  }
  ServerClaim(const ServerClaim&) = delete;
  ServerClaim& operator=(const ServerClaim&) = delete;

 private:
  PostgresConnection& connection_;
  std::vector<Value> key_;
  int generation_;
};

class ServerClaims : public Claims {
 public:
  explicit ServerClaims(PostgresDatabase& database) : connection_(database.connection()) {}

  std::unique_ptr<Claim> tryTake(WorkItem item, Id id) override {
    const std::vector<Value> key{std::to_string(static_cast<int>(item)), id};
    const auto taken =
        connection_.execute(std::string("SELECT pg_try_advisory_lock") + lockKey, key);
    if (!taken.front()[0].as<bool>()) return nullptr;
    return std::make_unique<ServerClaim>(connection_, key);
  }

 private:
  PostgresConnection& connection_;
};

}  // namespace

std::string subjectOf(WorkItem item, Id id) {
  return fmt::format("{} {}", itemNames.at(static_cast<std::size_t>(item) - 1), id);
}

std::unique_ptr<Claim> Claims::take(WorkItem item, Id id) {
  using std::chrono::steady_clock;
  const auto end = steady_clock::now() + std::chrono::seconds(2);
  while (true) {
    std::unique_ptr<Claim> claim = tryTake(item, id);
    if (claim || steady_clock::now() >= end) return claim;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
}

std::unique_ptr<Claims> claimsOf(RecordsetDatabase& database) {
  if (auto* server = dynamic_cast<PostgresDatabase*>(&database))
    return std::make_unique<ServerClaims>(*server);
  return std::make_unique<FileClaims>(fileOf(database));
}

}  // namespace autonotify::host
