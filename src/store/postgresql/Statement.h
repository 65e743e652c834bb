// One prepared statement. Parameters count from 1, columns from 0.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "store/postgresql/Connection.h"

namespace pactora::store::postgresql {

// The server keeps no NUL character in a text, and only UTF-8. What else a text holds is
// kept as the character 0x1A and two hexadecimal digits for each byte; so is 0x1A.
std::string Escaped(std::string_view text);
std::string Unescaped(std::string_view text);

// A cell of the row that a statement found.
class StoredValue {
 public:
  StoredValue(const PGresult* result, int row, int column)
      : result_(result), row_(row), column_(column) {}

  bool IsNull() const { return PQgetisnull(result_, row_, column_) != 0; }
  std::int64_t Integer() const;  // of a Boolean: 0 or 1
  double Real() const;
  std::string Text() const;
  std::string_view Key() const { return Bytes(); }

 private:
  std::string_view Bytes() const {
    return {PQgetvalue(result_, row_, column_),
            static_cast<std::size_t>(PQgetlength(result_, row_, column_))};
  }

  const PGresult* result_;
  int row_;
  int column_;
};

class Statement {
 public:
  Statement(Connection& connection, std::string sql);
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  void BindNull(int parameter);
  void Bind(int parameter, std::int64_t number);
  void Bind(int parameter, bool flag);
  void Bind(int parameter, double number);
  // Neither is copied, unless it has to be escaped: it must stay as it is until the last Step.
  void Bind(int parameter, std::string_view text);
  void BindKey(int parameter, std::string_view key);
  void BindCopy(int parameter, std::string text);  // is copied

  // Runs up to the next row. Returns false when there is none; all rows are fetched by the
  // first call. Raises the store's error.
  bool Step();
  // Runs it and returns the number of rows that it wrote.
  std::int64_t Run();
  void Reset() { result_.reset(); }

  // Columns of the row that Step found, valid until the next Step or Reset.
  StoredValue Cell(int column) const { return {result_.get(), row_, column}; }
  bool IsNull(int column) const { return Cell(column).IsNull(); }
  std::int64_t Integer(int column) const { return Cell(column).Integer(); }
  double Real(int column) const { return Cell(column).Real(); }
  std::string Text(int column) const { return Cell(column).Text(); }

 private:
  // A parameter's own bytes, where it does not point to the caller's.
  struct Held {
    std::array<char, 8> number;
    std::string text;
  };

  Held& Hold(int parameter);
  void Point(int parameter, const char* bytes, std::size_t size);

  Connection& connection_;
  std::string sql_;
  std::deque<Held> held_;  // one for each parameter; they stay where they are
  Parameters parameters_;
  Result result_;
  int row_ = -1;
};

// The first column of the first row, 0 where there is none.
std::int64_t ReadNumber(Connection& connection, std::string_view sql);

}  // namespace pactora::store::postgresql
