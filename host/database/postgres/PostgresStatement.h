#pragma once

#include <memory>
#include <string>
#include <vector>

#include "host/database/postgres/PostgresDriver.h"

namespace autonotify::host {

class PostgresStatement : public DriverStatement {
 public:
  /// Sends nothing yet. `name` tells it from the other statements of the driver.
  PostgresStatement(PostgresDriver& driver, std::string sql, const std::string& name);
  ~PostgresStatement() override;

  /// Asks the server, unless the statement has been executed.
  const std::vector<ResultColumn>& columns() const override;
  void execute(const std::vector<Value>& parameters) override;
  bool step() override;
  Value value(int column, const ColumnDef* origin) const override;
  Id key(int column) const override;
  void reset() noexcept override;
  int run(const std::vector<Value>& parameters) override;

 private:
  using Reader = Value (*)(const pqxx::field&);
  /// A text that the server keeps under a name from its second use on.
  struct Prepared {
    std::string name;
    std::string sql;
    int generation = 0;
    bool wasUsed = false;
  };

  pqxx::result executePrepared(Prepared& prepared, const std::vector<Value>& parameters);
  void describe(const pqxx::result& result) const;
  void openCursor(const std::vector<Value>& parameters);
  void fetch();
  void closeCursor() noexcept;
  static Reader readerOf(pqxx::oid type);

  PostgresDriver& driver_;
  std::string sql_;
  Prepared rows_;
  Prepared write_;
  mutable std::vector<ResultColumn> columns_;
  std::vector<Reader> readers_;
  pqxx::result chunk_;
  pqxx::result::size_type next_ = 0;
  /// While a cursor is open.
  std::shared_ptr<PostgresConnection::Scope> reading_;
};

}  // namespace autonotify::host
