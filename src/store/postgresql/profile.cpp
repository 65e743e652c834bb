#include "store/postgresql/profile.h"

#include <charconv>

#include "store/postgresql/Statement.h"
#include "store/sql/profile_tables.h"

namespace pactora::store::postgresql {

using host::Kind;
using host::Value;

// A value of any kind stands as text; numbers in the shortest text that gives them again.
static void BindValue(Statement& statement, int parameter, const Value& value) {
  switch (value.GetKind()) {
    case Kind::Text:
      return statement.Bind(parameter, std::string_view(value.AsText()));
    case Kind::Boolean:
    case Kind::Integer:
    case Kind::Long:
    case Kind::Double:
    case Kind::Date: {
      std::array<char, 32> digits{};
      const double number = value.GetKind() == Kind::Boolean ? (value.AsBoolean() ? 1.0 : 0.0)
                                                             : host::ToDouble(value);
      const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
      return statement.BindCopy(parameter, {digits.data(), end});
    }
    case Kind::Empty:
    case Kind::Object:
    case Kind::Array:
      return statement.BindNull(parameter);
  }
}

static Value ReadValue(const Statement& statement, Kind kind, int column) {
  if (kind == Kind::Empty || kind == Kind::Object || kind == Kind::Array) return {};
  std::string text = statement.Text(column);
  if (kind == Kind::Text) return text;
  double number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  switch (kind) {
    case Kind::Integer:
      return static_cast<std::int16_t>(number);
    case Kind::Long:
      return static_cast<std::int32_t>(number);
    case Kind::Boolean:
      return number != 0;
    case Kind::Date:
      return host::Date{number};
    default:
      return number;
  }
}

Profile ReadProfile(Connection& connection) { return sql::ReadProfile<Statement>(connection); }

void WriteProfile(Connection& connection, const Profile& profile) {
  sql::WriteProfile<Statement>(connection, profile);
}

void WriteSetting(Connection& connection, const Setting& setting) {
  sql::WriteSetting<Statement>(connection, setting);
}

}  // namespace pactora::store::postgresql
