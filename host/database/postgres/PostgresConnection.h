#pragma once

#include <memory>
#include <pqxx/connection>
#include <pqxx/nontransaction>
#include <pqxx/result>
#include <pqxx/transaction>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/database/postgres/ServerAddress.h"
#include "platform/Value.h"

namespace autonotify::host {

/// A connection that is made anew, at the next call, after the server went away.
///
/// Nothing is ever repeated: a call that meets the loss fails with `connectionLost`, unless the
/// loss could be seen before anything was sent. All failures are thrown as DatabaseError.
class PostgresConnection {
 public:
  /// Connects. Throws DatabaseError (cannotOpen).
  explicit PostgresConnection(ServerAddress address);
  PostgresConnection(const PostgresConnection&) = delete;
  PostgresConnection& operator=(const PostgresConnection&) = delete;

  /// One transaction on one connection; while it lives, all calls go through it.
  class Scope;
  /// For reading by cursors; several readers share it, and the last one to let go ends it.
  std::shared_ptr<Scope> beginReading();
  /// For writes that stand or fall together; rolled back when it goes uncommitted.
  std::shared_ptr<Scope> beginWriting();
  void commit(Scope& scope);

  /// Runs `call` with the transaction under way, or with one for each statement of its own.
  template <class Call>
  auto perform(const std::string& sql, Call&& call);
  /// The same in a scope of the caller's.
  template <class Call>
  auto perform(Scope& scope, const std::string& sql, Call&& call);

  pqxx::result execute(const std::string& sql);
  pqxx::result execute(const std::string& sql, const std::vector<Value>& parameters);

  /// The same; a failure does not end the transaction under way.
  pqxx::result executeApart(const std::string& sql, const std::vector<Value>& parameters);

  /// Rises with each connection; what was prepared for an older one is gone.
  int generation() const { return generation_; }

 private:
  /// Connects as the library does. From the server's first word on none of its notices reaches the
  /// standard error stream: the reason why it hangs up may come with its welcome.
  class QuietPolicy : public pqxx::connectionpolicy {
   public:
    using connectionpolicy::connectionpolicy;
    handle do_startconnect(handle connection) override;
  };
  struct Link {
    explicit Link(const std::string& parameters) : connection(parameters) {}
    pqxx::basic_connection_base<QuietPolicy> connection;
  };

  Link& link();
  void connect(int failure);
  void drop() noexcept;
  template <class Transaction>
  std::shared_ptr<Scope> begin();
  /// Throws the exception being handled as a DatabaseError.
  [[noreturn]] void fail(const std::string& sql);
  /// Lets go of the connection and throws connectionLost.
  [[noreturn]] void failLost(const std::exception& error, const std::string& sql);

  ServerAddress address_;
  std::shared_ptr<Link> link_;
  std::weak_ptr<Scope> scope_;
  int generation_ = 0;
};

class PostgresConnection::Scope {
 public:
  Scope(std::shared_ptr<Link> link, std::unique_ptr<pqxx::transaction_base> transaction)
      : link_(std::move(link)), transaction_(std::move(transaction)) {}

  pqxx::transaction_base& transaction() { return *transaction_; }

 private:
  std::shared_ptr<Link> link_;
  std::unique_ptr<pqxx::transaction_base> transaction_;
};

/// Values as the server reads them, bound to the places of one statement.
class PostgresParameters {
 public:
  explicit PostgresParameters(const std::vector<Value>& values);
  auto all() const { return pqxx::prepare::make_dynamic_params(pointers_); }

 private:
  std::vector<std::string> texts_;
  std::vector<const char*> pointers_;
};

template <class Call>
auto PostgresConnection::perform(const std::string& sql, Call&& call) {
  if (const std::shared_ptr<Scope> scope = scope_.lock()) return perform(*scope, sql, call);
  try {
    pqxx::nontransaction transaction(link().connection);
    return call(static_cast<pqxx::transaction_base&>(transaction));
  } catch (...) {
    fail(sql);
  }
}

template <class Call>
auto PostgresConnection::perform(Scope& scope, const std::string& sql, Call&& call) {
  try {
    return call(scope.transaction());
  } catch (...) {
    fail(sql);
  }
}

}  // namespace autonotify::host
