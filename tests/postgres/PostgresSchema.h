#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>

#include "host/database/postgres/PostgresDatabase.h"

namespace autonotify::host {

/// A schema of its own on the server that AUTONOTIFY_TEST_DATABASE names, with a finished database
/// without rows; both go with the object.
class PostgresSchema {
 public:
  PostgresSchema() : PostgresSchema(true) {}
  explicit PostgresSchema(bool withTables) {
    static int number = 0;
    name_ = "test_" + std::to_string(getpid()) + "_" + std::to_string(++number);
    execute("CREATE SCHEMA " + name_);
    if (withTables) finishPostgres(*createPostgres(url()));
  }
  ~PostgresSchema() { execute("DROP SCHEMA " + name_ + " CASCADE"); }
  PostgresSchema(const PostgresSchema&) = delete;
  PostgresSchema& operator=(const PostgresSchema&) = delete;

  static std::string server() {
    const char* given = std::getenv("AUTONOTIFY_TEST_DATABASE");
    if (!given)
      throw std::runtime_error(
          "AUTONOTIFY_TEST_DATABASE names no server; tools/private_postgres starts one");
    return given;
  }
  const std::string& name() const { return name_; }
  std::string url() const {
    const char joint = server().find('?') == std::string::npos ? '?' : '&';
    return server() + joint + "options=-csearch_path%3D" + name_;
  }
  std::unique_ptr<DatabaseReference> connect() { return openPostgres(url()); }

  /// Behind the back of all connections.
  pqxx::result execute(const std::string& sql) const {
    return PostgresConnection(ServerAddress(server())).execute(sql);
  }

 private:
  std::string name_;
};

}  // namespace autonotify::host
