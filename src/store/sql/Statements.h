// The prepared statements of a store, each made when it is first used.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "schema/Catalog.h"
#include "store/RecordStore.h"
#include "store/sql/row_statements.h"

namespace pactora::store::sql {

template <typename Statement>
class Statements {
 public:
  using SqlOf = std::string (*)(const schema::Catalog&, TableId, Operation);

  // All must outlive this.
  template <typename Connection>
  Statements(Connection& connection, const schema::Catalog& catalog, const Dialect& dialect,
             SqlOf operation_sql)
      : prepare_([&connection](const std::string& sql) {
          return std::make_unique<Statement>(connection, sql);
        }),
        catalog_(catalog),
        dialect_(dialect),
        operation_sql_(operation_sql),
        tables_(catalog.tables.size()) {}

  Statement& Get(TableId table, Operation operation) {
    auto& place = tables_[table].by_operation[operation];
    if (place == nullptr) place = prepare_(operation_sql_(catalog_, table, operation));
    return *place;
  }
  Statement& NextByKey(TableId table, IndexId index) {
    auto& place = tables_[table].next_by_key[index];
    if (place == nullptr) place = prepare_(NextByKeySql(dialect_, catalog_.tables[table], index));
    return *place;
  }

 private:
  struct TableStatements {
    std::map<Operation, std::unique_ptr<Statement>> by_operation;
    std::map<IndexId, std::unique_ptr<Statement>> next_by_key;
  };

  std::function<std::unique_ptr<Statement>(const std::string&)> prepare_;
  const schema::Catalog& catalog_;
  const Dialect& dialect_;
  SqlOf operation_sql_;
  std::vector<TableStatements> tables_;
};

}  // namespace pactora::store::sql
