#include "store/sqlite/profile.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

#include "platform/Text.h"
#include "store/errors.h"
#include "store/sqlite/Statement.h"

namespace pactora::store::sqlite {
namespace {

using host::Kind;
using host::Value;

// How kinds and scopes read in the file.
constexpr std::array<std::pair<Kind, std::string_view>, 8> kKinds = {{
    {Kind::Empty, "empty"},
    {Kind::Integer, "integer"},
    {Kind::Long, "long"},
    {Kind::Double, "double"},
    {Kind::Date, "date"},
    {Kind::Text, "text"},
    {Kind::Boolean, "boolean"},
    {Kind::Array, "array"},
}};
constexpr std::array<std::pair<SettingScope, std::string_view>, 5> kScopes = {{
    {SettingScope::Database, "database"},
    {SettingScope::PublicUser, "public user"},
    {SettingScope::PrivateUser, "private user"},
    {SettingScope::Table, "table"},
    {SettingScope::PersistVar, "variable"},
}};

template <typename Names, typename T>
std::string_view NameOf(const Names& names, T value) {
  for (const auto& [known, name] : names) {
    if (known == value) return name;
  }
  platform::Raise(platform::RuntimeError::TypeMismatch);
}

template <typename Names>
auto ByName(const Names& names, std::string_view text) {
  for (const auto& [known, name] : names) {
    if (name == text) return known;
  }
  Raise(StoreError::NotADatabase, std::string(text));
}

void BindValue(Statement& statement, int parameter, const Value& value) {
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

Value ReadValue(const Statement& statement, Kind kind, int column) {
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

// Runs a statement that gives no rows.
void Execute(Statement& statement) { statement.Step(); }

host::ValueArray ReadElements(Statement& elements, std::int64_t setting) {
  host::ValueArray array;
  elements.Bind(1, setting);
  while (elements.Step()) {
    array.push_back(ReadValue(elements, ByName(kKinds, elements.Text(0)), 1));
  }
  return array;
}

void WriteElements(const Connection& connection, std::int64_t setting,
                   const host::ValueArray& array) {
  Statement insert(connection,
                   "INSERT INTO pactora_setting_elements (setting, position, kind, value) "
                   "VALUES (?1, ?2, ?3, ?4)");
  std::int64_t position = 0;
  for (const Value& element : array) {
    // The elements of a list are plain values.
    if (element.GetKind() == Kind::Array) platform::Raise(platform::RuntimeError::TypeMismatch);
    insert.Bind(1, setting);
    insert.Bind(2, ++position);
    insert.Bind(3, NameOf(kKinds, element.GetKind()));
    BindValue(insert, 4, element);
    Execute(insert);
  }
}

std::vector<Setting> ReadSettings(const Connection& connection) {
  std::vector<Setting> settings;
  Statement rows(connection,
                 "SELECT position, scope, owner, name, kind, value, read_only "
                 "FROM pactora_settings ORDER BY position");
  Statement elements(connection,
                     "SELECT kind, value FROM pactora_setting_elements "
                     "WHERE setting = ?1 ORDER BY position");
  while (rows.Step()) {
    Setting setting;
    setting.scope = ByName(kScopes, rows.Text(1));
    setting.owner = rows.Text(2);
    setting.name = rows.Text(3);
    const Kind kind = ByName(kKinds, rows.Text(4));
    setting.value = kind == Kind::Array ? Value(ReadElements(elements, rows.Integer(0)))
                                        : ReadValue(rows, kind, 5);
    setting.read_only = rows.Integer(6) != 0;
    settings.push_back(std::move(setting));
  }
  return settings;
}

}  // namespace

Profile ReadProfile(const Connection& connection) {
  Profile profile;
  Statement database(connection,
                     "SELECT name, display_name, current_user_name FROM pactora_database");
  if (database.Step()) {
    profile.name = database.Text(0);
    profile.display_name = database.Text(1);
    profile.current_user = database.Text(2);
  }
  Statement users(connection, "SELECT name FROM pactora_users ORDER BY position");
  while (users.Step()) profile.users.emplace_back(users.Text(0));
  profile.settings = ReadSettings(connection);
  Statement macros(connection,
                   "SELECT path, fails, number, description FROM pactora_macros ORDER BY position");
  while (macros.Step()) {
    profile.macros.push_back({std::string(macros.Text(0)), macros.Integer(1) != 0,
                              static_cast<std::int32_t>(macros.Integer(2)),
                              std::string(macros.Text(3))});
  }
  return profile;
}

void WriteProfile(Connection& connection, const Profile& profile) {
  connection.Run(
      "DELETE FROM pactora_users; DELETE FROM pactora_settings; DELETE FROM pactora_macros");
  Statement database(connection,
                     "UPDATE pactora_database SET name = ?1, display_name = ?2, "
                     "current_user_name = ?3");
  database.Bind(1, std::string_view(profile.name));
  database.Bind(2, std::string_view(profile.display_name));
  database.Bind(3, std::string_view(profile.current_user));
  Execute(database);
  Statement user(connection, "INSERT INTO pactora_users (name) VALUES (?1)");
  for (const std::string& name : profile.users) {
    user.Bind(1, std::string_view(name));
    Execute(user);
  }
  for (const Setting& setting : profile.settings) WriteSetting(connection, setting);
  Statement macro(connection,
                  "INSERT INTO pactora_macros (path, fails, number, description) "
                  "VALUES (?1, ?2, ?3, ?4)");
  for (const Macro& known : profile.macros) {
    macro.Bind(1, std::string_view(known.path));
    macro.Bind(2, std::int64_t{known.fails});
    macro.Bind(3, std::int64_t{known.number});
    macro.Bind(4, std::string_view(known.description));
    Execute(macro);
  }
}

void WriteSetting(Connection& connection, const Setting& setting) {
  // Names are one name whatever their case; SQL's own comparison knows no umlauts.
  const std::string folded_owner = platform::UpperCase(setting.owner);
  const std::string folded_name = platform::UpperCase(setting.name);
  const bool is_array = setting.value.GetKind() == Kind::Array;
  Statement write(connection,
                  "INSERT INTO pactora_settings (scope, owner, name, folded_owner, folded_name, "
                  "kind, value, read_only) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8) "
                  "ON CONFLICT (scope, folded_owner, folded_name) DO UPDATE SET "
                  "owner = ?2, name = ?3, kind = ?6, value = ?7, read_only = ?8 "
                  "RETURNING position");
  write.Bind(1, NameOf(kScopes, setting.scope));
  write.Bind(2, std::string_view(setting.owner));
  write.Bind(3, std::string_view(setting.name));
  write.Bind(4, std::string_view(folded_owner));
  write.Bind(5, std::string_view(folded_name));
  write.Bind(6, NameOf(kKinds, setting.value.GetKind()));
  BindValue(write, 7, setting.value);
  write.Bind(8, std::int64_t{setting.read_only});
  write.Step();
  const std::int64_t position = write.Integer(0);
  write.Step();
  Statement clear(connection, "DELETE FROM pactora_setting_elements WHERE setting = ?1");
  clear.Bind(1, position);
  Execute(clear);
  if (is_array) WriteElements(connection, position, setting.value.AsArray());
}

}  // namespace pactora::store::sqlite
