// One prepared statement. Parameters count from 1, columns from 0.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <string_view>

#include "store/sqlite/Connection.h"

namespace pactora::store::sqlite {

// A cell of the row that a statement found.
class StoredValue {
 public:
  explicit StoredValue(sqlite3_value* value) : value_(value) {}

  bool IsNull() const { return sqlite3_value_type(value_) == SQLITE_NULL; }
  std::int64_t Integer() const { return sqlite3_value_int64(value_); }
  double Real() const;
  std::string_view Text() const {
    // A text is read like bytes: it may hold NUL characters, and no terminator
    // is needed.
    const auto* bytes = static_cast<const char*>(sqlite3_value_blob(value_));
    return {bytes, static_cast<std::size_t>(sqlite3_value_bytes(value_))};
  }
  std::string_view Key() const { return Text(); }

 private:
  sqlite3_value* value_;
};

class Statement {
 public:
  Statement(const Connection& connection, std::string_view sql);
  ~Statement() { sqlite3_finalize(statement_); }
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  void BindNull(int parameter) { sqlite3_bind_null(statement_, parameter); }
  void Bind(int parameter, std::int64_t number) {
    sqlite3_bind_int64(statement_, parameter, number);
  }
  void Bind(int parameter, bool flag) { Bind(parameter, std::int64_t{flag}); }
  void Bind(int parameter, double number);
  // The text is not copied: it must stay as it is until the last Step.
  void Bind(int parameter, std::string_view text);
  void BindKey(int parameter, std::string_view key) { Bind(parameter, key); }

  // Runs up to the next row. Returns false when there is none; the statement is
  // reset then and holds no lock. Raises the store's error.
  bool Step() {
    const int code = sqlite3_step(statement_);
    if (code == SQLITE_ROW) return true;
    Finish(code);
    return false;
  }
  // Runs a statement that gives no rows and returns SQLite's result code. The
  // statement is reset.
  int Run() {
    const int code = sqlite3_step(statement_);
    sqlite3_reset(statement_);
    return code;
  }
  void Reset() { sqlite3_reset(statement_); }

  // Columns of the row that Step found. A cell and a text are valid until the next
  // Step or Reset. SQLite looks a column up at each of its calls, so what reads many of
  // them takes the cell.
  StoredValue Cell(int column) const {
    return StoredValue(sqlite3_column_value(statement_, column));
  }
  bool IsNull(int column) const { return Cell(column).IsNull(); }
  std::int64_t Integer(int column) const { return Cell(column).Integer(); }
  double Real(int column) const { return Cell(column).Real(); }
  std::string_view Text(int column) const { return Cell(column).Text(); }

 private:
  void Finish(int code);

  const Connection& connection_;
  sqlite3_stmt* statement_ = nullptr;
};

// The first column of the first row, 0 where there is none.
std::int64_t ReadNumber(const Connection& connection, std::string_view sql);

// Resets a statement at the end of a block, so that no lock stays behind.
class ResetAtEnd {
 public:
  explicit ResetAtEnd(Statement& statement) : statement_(statement) {}
  ~ResetAtEnd() { statement_.Reset(); }
  ResetAtEnd(const ResetAtEnd&) = delete;
  ResetAtEnd& operator=(const ResetAtEnd&) = delete;

 private:
  Statement& statement_;
};

}  // namespace pactora::store::sqlite
