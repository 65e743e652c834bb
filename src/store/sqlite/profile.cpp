#include "store/sqlite/profile.h"

#include "store/sql/profile_tables.h"
#include "store/sqlite/Statement.h"

namespace pactora::store::sqlite {

using host::Kind;
using host::Value;

static void BindValue(Statement& statement, int parameter, const Value& value) {
  switch (value.GetKind()) {
    case Kind::Integer:
      return statement.Bind(parameter, std::int64_t{value.AsInteger()});
    case Kind::Long:
      return statement.Bind(parameter, std::int64_t{value.AsLong()});
    case Kind::Double:
      return statement.Bind(parameter, value.AsDouble());
    case Kind::Date:
      return statement.Bind(parameter, value.AsDate().days);
    case Kind::Text:
      return statement.Bind(parameter, std::string_view(value.AsText()));
    case Kind::Boolean:
      return statement.Bind(parameter, std::int64_t{value.AsBoolean()});
    case Kind::Empty:
    case Kind::Object:
    case Kind::Array:
      return statement.BindNull(parameter);
  }
}

static Value ReadValue(const Statement& statement, Kind kind, int column) {
  switch (kind) {
    case Kind::Integer:
      return static_cast<std::int16_t>(statement.Integer(column));
    case Kind::Long:
      return static_cast<std::int32_t>(statement.Integer(column));
    case Kind::Double:
      return statement.Real(column);
    case Kind::Date:
      return host::Date{statement.Real(column)};
    case Kind::Text:
      return statement.Text(column);
    case Kind::Boolean:
      return statement.Integer(column) != 0;
    case Kind::Empty:
    case Kind::Object:
    case Kind::Array:
      break;
  }
  return {};
}

Profile ReadProfile(const Connection& connection) {
  return sql::ReadProfile<Statement>(connection);
}

void WriteProfile(Connection& connection, const Profile& profile) {
  sql::WriteProfile<Statement>(connection, profile);
}

void WriteSetting(Connection& connection, const Setting& setting) {
  sql::WriteSetting<Statement>(connection, setting);
}

}  // namespace pactora::store::sqlite
