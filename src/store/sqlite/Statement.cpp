#include "store/sqlite/Statement.h"

#include <cmath>
#include <limits>

#include "store/errors.h"

namespace pactora::store::sqlite {
namespace {

// SQLite keeps whole floating-point numbers as integers, which have no negative
// zero, and takes "not a number" for NULL. Both are kept as their texts in bytes.
constexpr std::string_view kNegativeZero = "-0.0";
constexpr std::string_view kNotANumber = "NaN";

}  // namespace

Statement::Statement(const Connection& connection, std::string_view sql) : connection_(connection) {
  const int code = sqlite3_prepare_v3(connection.Handle(), sql.data(), static_cast<int>(sql.size()),
                                      SQLITE_PREPARE_PERSISTENT, &statement_, nullptr);
  // The statements are our own, so what they name is missing in the file.
  if (code == SQLITE_ERROR) {
    Raise(StoreError::NotADatabase, sqlite3_errmsg(connection.Handle()));
  }
  if (code != SQLITE_OK) connection.Fail(code);
}

void Statement::Bind(int parameter, double number) {
  if (std::isnan(number) || (number == 0.0 && std::signbit(number))) [[unlikely]] {
    const std::string_view text = std::isnan(number) ? kNotANumber : kNegativeZero;
    sqlite3_bind_blob(statement_, parameter, text.data(), static_cast<int>(text.size()),
                      SQLITE_STATIC);
  } else {
    sqlite3_bind_double(statement_, parameter, number);
  }
}

void Statement::Bind(int parameter, std::string_view text) {
  // A null pointer would bind NULL.
  const char* const bytes = text.data() == nullptr ? "" : text.data();
  const int code =
      sqlite3_bind_text64(statement_, parameter, bytes, text.size(), SQLITE_STATIC, SQLITE_UTF8);
  if (code != SQLITE_OK) [[unlikely]]
    connection_.Fail(code);  // longer than SQLite's limit
}

std::int64_t ReadNumber(const Connection& connection, std::string_view sql) {
  Statement statement(connection, sql);
  return statement.Step() ? statement.Integer(0) : 0;
}

double StoredValue::Real() const {
  if (sqlite3_value_type(value_) == SQLITE_BLOB) [[unlikely]] {
    return Text() == kNegativeZero ? -0.0 : std::numeric_limits<double>::quiet_NaN();
  }
  return sqlite3_value_double(value_);
}

void Statement::Finish(int code) {
  if (code == SQLITE_DONE) {
    sqlite3_reset(statement_);
    return;
  }
  const ResetAtEnd reset(*this);
  connection_.Fail(code);
}

}  // namespace pactora::store::sqlite
