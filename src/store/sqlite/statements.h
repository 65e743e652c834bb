// The prepared statements of a store, each made when it is first used.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "schema/Catalog.h"
#include "store/RecordStore.h"
#include "store/sqlite/Statement.h"

namespace pactora::store::sqlite {

enum class Operation {
  Read,
  NextInParent,
  CountInParent,
  Count,
  Insert,
  Update,             // with keys and unique fields
  UpdateKeepingKeys,  // finds the row only if those are the same
  UpdateKeys,
  Erase,
};

// Columns of statements that find rows.
inline constexpr int kOidColumn = 0;
inline constexpr int kVersionColumn = 1;
inline constexpr int kOrderColumn = 2;
inline constexpr int kParentColumn = 3;
inline constexpr int kFirstCellColumn = 4;  // the keys follow the cells

// Parameters of statements that write rows. Those that find rows number theirs
// in the order of the operation's arguments; root tables leave out the parent.
inline constexpr int kOidParameter = 1;
inline constexpr int kVersionParameter = 2;  // as it is before the write
inline constexpr int kOrderParameter = 3;
inline constexpr int kParentParameter = 4;
inline constexpr int kFirstCellParameter = 5;  // the keys follow the cells

class Statements {
 public:
  // Both must outlive this.
  Statements(const Connection& connection, const schema::Catalog& catalog);

  Statement& Get(TableId table, Operation operation) {
    auto& place = tables_[table].by_operation[operation];
    if (place == nullptr) place = Prepare(OperationSql(table, operation));
    return *place;
  }
  Statement& NextByKey(TableId table, IndexId index) {
    auto& place = tables_[table].next_by_key[index];
    if (place == nullptr) place = Prepare(NextByKeySql(table, index));
    return *place;
  }

 private:
  struct TableStatements {
    std::map<Operation, std::unique_ptr<Statement>> by_operation;
    std::vector<std::unique_ptr<Statement>> next_by_key;
  };

  std::unique_ptr<Statement> Prepare(const std::string& sql) const;
  std::string OperationSql(TableId table, Operation operation) const;
  std::string NextByKeySql(TableId table, IndexId index) const;

  const Connection& connection_;
  const schema::Catalog& catalog_;
  std::vector<TableStatements> tables_;
};

}  // namespace pactora::store::sqlite
