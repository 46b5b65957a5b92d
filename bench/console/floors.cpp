#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <deque>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

// The least that a command of the console comes to, by hand. Usage:
//   console_floors send DATABASE FOLDER   the emails of the day as files, and marked
//   console_floors tasks DATABASE         all columns of the open tasks and their clients

namespace autonotify::bench {
namespace {

constexpr const char* today = "2026-04-15";
constexpr std::size_t filesTogether = 64;

struct Close {
  void operator()(sqlite3* connection) const { sqlite3_close(connection); }
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Connection = std::unique_ptr<sqlite3, Close>;
using Statement = std::unique_ptr<sqlite3_stmt, Close>;

void require(bool isDone, const std::string& what) {
  if (!isDone) throw std::runtime_error(what);
}

Connection open(const char* database) {
  sqlite3* opened = nullptr;
  const int code = sqlite3_open_v2(database, &opened, SQLITE_OPEN_READWRITE, nullptr);
  Connection connection(opened);
  require(code == SQLITE_OK, database);
  sqlite3_exec(opened, "PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL", nullptr, nullptr,
               nullptr);
  return connection;
}

Statement prepare(const Connection& connection, const std::string& sql) {
  sqlite3_stmt* statement = nullptr;
  const int code = sqlite3_prepare_v2(connection.get(), sql.c_str(), -1, &statement, nullptr);
  require(code == SQLITE_OK, sqlite3_errmsg(connection.get()));
  return Statement(statement);
}

std::string textOf(const Statement& row, int column) {
  const unsigned char* text = sqlite3_column_text(row.get(), column);
  return text ? reinterpret_cast<const char*>(text) : "";
}

struct Email {
  sqlite3_int64 id;
  std::string content;
  int file = -1;

  std::string name() const { return std::to_string(id) + ".eml"; }
  std::string hiddenName() const { return "." + name() + ".tmp"; }
};

/// Puts emails into a folder and marks them, some at a time.
class Sending {
 public:
  Sending(const char* database, const char* folder)
      : connection_(open(database)),
        mark_(prepare(connection_,
                      "UPDATE ClientNotification SET NotificationSent=1, NotificationSentStatus=2, "
                      "SentTime='2026-04-15 09:30:00', SentByUserIDNum=1, "
                      "ClientNotificationModifiedStamp='2026-04-15 09:30:00' WHERE "
                      "ClientNotificationID=?")),
        folder_(::open(folder, O_RDONLY | O_DIRECTORY)) {
    require(folder_ >= 0, folder);
  }

  void run() {
    for (Email& email : read()) {
      batch_.push_back(std::move(email));
      if (batch_.size() == filesTogether) settle();
    }
    settle();
  }

 private:
  std::deque<Email> read() {
    const Statement rows = prepare(
        connection_,
        std::string("SELECT ClientNotificationID, Field1, Field4, Memo FROM ClientNotification "
                    "WHERE NotificationType=1 AND NotificationSent=0 AND NotificationDate<='") +
            today + "' ORDER BY NotificationDate, ClientNotificationID");
    std::deque<Email> emails;
    while (sqlite3_step(rows.get()) == SQLITE_ROW)
      emails.push_back({sqlite3_column_int64(rows.get(), 0), "To: " + textOf(rows, 1) +
                                                                 "\r\nSubject: " + textOf(rows, 2) +
                                                                 "\r\n\r\n" + textOf(rows, 3)});
    return emails;
  }

  void settle() {
    for (Email& email : batch_) write(email);
    for (Email& email : batch_) ::sync_file_range(email.file, 0, 0, SYNC_FILE_RANGE_WRITE);
    for (Email& email : batch_) giveName(email);
    require(::fsync(folder_) == 0, "the folder");
    sqlite3_exec(connection_.get(), "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
    for (const Email& email : batch_) {
      sqlite3_bind_int64(mark_.get(), 1, email.id);
      require(sqlite3_step(mark_.get()) == SQLITE_DONE, "a mark");
      sqlite3_reset(mark_.get());
    }
    sqlite3_exec(connection_.get(), "COMMIT", nullptr, nullptr, nullptr);
    for (const Email& email : batch_) std::cout << email.id << "  sent\n" << std::flush;
    batch_.clear();
  }

  void write(Email& email) const {
    email.file = ::openat(folder_, email.hiddenName().c_str(), O_WRONLY | O_CREAT | O_EXCL, 0600);
    const auto size = static_cast<ssize_t>(email.content.size());
    require(::write(email.file, email.content.data(), email.content.size()) == size, email.name());
  }

  void giveName(const Email& email) const {
    require(::fsync(email.file) == 0, email.name());
    require(::renameat(folder_, email.hiddenName().c_str(), folder_, email.name().c_str()) == 0,
            email.name());
    ::close(email.file);
  }

  Connection connection_;
  Statement mark_;
  int folder_;
  std::deque<Email> batch_;
};

void readTasks(const char* database) {
  const Connection connection = open(database);
  const Statement rows = prepare(
      connection,
      "SELECT ScheduleID, DueDate, notifyType, COALESCE(Companies.CompanyName, "
      "Contacts.DisplayName), ClientNum, Schedule.ContactIDNum, scheduleName FROM Schedule LEFT "
      "JOIN ClientData ON ClientNum=ClientDataID LEFT JOIN Companies ON CompanyIDNum=CompanyID "
      "LEFT JOIN Contacts ON Schedule.ContactIDNum=ContactID WHERE Schedule.Closed=0 ORDER BY "
      "DueDate, ScheduleID");
  std::size_t bytes = 0;
  while (sqlite3_step(rows.get()) == SQLITE_ROW) {
    for (int column = 0; column < sqlite3_column_count(rows.get()); ++column) {
      sqlite3_column_text(rows.get(), column);
      bytes += static_cast<std::size_t>(sqlite3_column_bytes(rows.get(), column));
    }
  }
  std::cout << bytes << '\n';
}

bool run(int argc, char** argv) {
  const std::string_view work = argc > 1 ? argv[1] : "";
  if (work == "send" && argc == 4) {
    Sending(argv[2], argv[3]).run();
  } else if (work == "tasks" && argc == 3) {
    readTasks(argv[2]);
  } else {
    return false;
  }
  return true;
}

}  // namespace
}  // namespace autonotify::bench

int main(int argc, char** argv) try {
  if (autonotify::bench::run(argc, argv)) return 0;
  std::cerr << "usage: console_floors send DATABASE FOLDER | tasks DATABASE\n";
  return 2;
} catch (const std::runtime_error& error) {
  std::cerr << error.what() << '\n';
  return 1;
}
