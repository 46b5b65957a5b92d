#include "host/desk/claims.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <set>
#include <thread>
#include <utility>

#include "host/database/dialect/DatabaseError.h"
#include "host/database/postgres/PostgresDatabase.h"
#include "host/desk/databases.h"
#include "host/services/Descriptor.h"
#include "host/words/Words.h"

namespace autonotify::host {
namespace {

/// In the order of WorkItem, from 1.
constexpr std::array<const char*, 7> itemNames{
    Words::later("notification %1"), Words::later("task %1"),      Words::later("appointment %1"),
    Words::later("time entry %1"),   Words::later("print run %1"), Words::later("templates %1"),
    Words::later("import %1")};

/// The file of claims while this desk holds any, with a lock on one byte for each item. A desk may
/// claim what it has claimed already, as on a server.
struct ClaimFile {
  explicit ClaimFile(int number) : file(number) {}

  bool setLock(off_t byte, short kind) const {
    struct flock range {};
    range.l_type = kind;
    range.l_whence = SEEK_SET;
    range.l_start = byte;
    range.l_len = 1;
    return ::fcntl(file.get(), F_OFD_SETLK, &range) == 0;
  }

  Descriptor file;
  std::multiset<off_t> own;
};

off_t byteOf(WorkItem item, Id id) {
  constexpr off_t idsOfItem = off_t{1} << 32;
  return static_cast<off_t>(item) * idsOfItem + id;
}

class FileClaim : public Claim {
 public:
  FileClaim(std::shared_ptr<ClaimFile> file, off_t byte) : file_(std::move(file)), byte_(byte) {
    file_->own.insert(byte_);
  }
  ~FileClaim() override {
    file_->own.erase(file_->own.find(byte_));
    if (!file_->own.contains(byte_)) file_->setLock(byte_, F_UNLCK);
  }
  FileClaim(const FileClaim&) = delete;
  FileClaim& operator=(const FileClaim&) = delete;

 private:
  std::shared_ptr<ClaimFile> file_;
  off_t byte_;
};

[[noreturn]] void failFile(const std::string& path) {
  throw DatabaseError(
      database_error::inputOutput,
      Words::tr("The file of claims %1 cannot be used: %2", {path, std::strerror(errno)}));
}

class FileClaims : public Claims {
 public:
  explicit FileClaims(const std::string& database)
      : database_(database), path_(database + ".claims") {}

  std::unique_ptr<Claim> tryTake(WorkItem item, Id id) override {
    std::shared_ptr<ClaimFile> file = file_.lock();
    if (!file) file_ = file = std::make_shared<ClaimFile>(openFile());
    const off_t byte = byteOf(item, id);
    if (file->setLock(byte, F_WRLCK)) return std::make_unique<FileClaim>(file, byte);
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
  std::weak_ptr<ClaimFile> file_;
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
  return Words::tr(itemNames.at(static_cast<std::size_t>(item) - 1), {std::to_string(id)});
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
