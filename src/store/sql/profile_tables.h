// What a database knows besides rows, in tables of its own, which every database has alike
// but for the column "value": BindValue(statement, parameter, value) and
// ReadValue(statement, kind, column), of the statement's namespace, write and read that.
//
// Parameters are written as "$1::type". One of the databases takes the type from that, another
// takes all of it for a name and counts the names as they first occur: so they occur in order.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "host/Value.h"
#include "platform/Error.h"
#include "platform/Text.h"
#include "store/Profile.h"
#include "store/errors.h"

namespace pactora::store::sql {

using host::Kind;
using host::Value;

// How kinds and scopes read in the file.
inline constexpr std::array<std::pair<Kind, std::string_view>, 8> kKinds = {{
    {Kind::Empty, "empty"},
    {Kind::Integer, "integer"},
    {Kind::Long, "long"},
    {Kind::Double, "double"},
    {Kind::Date, "date"},
    {Kind::Text, "text"},
    {Kind::Boolean, "boolean"},
    {Kind::Array, "array"},
}};
inline constexpr std::array<std::pair<SettingScope, std::string_view>, 5> kScopes = {{
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

// Runs a statement that gives no rows.
template <typename Statement>
void Execute(Statement& statement) {
  statement.Step();
}

template <typename Statement>
host::ValueArray ReadElements(Statement& elements, std::int64_t setting) {
  host::ValueArray array;
  elements.Bind(1, setting);
  while (elements.Step()) {
    array.push_back(ReadValue(elements, ByName(kKinds, elements.Text(0)), 1));
  }
  return array;
}

template <typename Statement, typename Connection>
void WriteElements(Connection& connection, std::int64_t setting, const host::ValueArray& array) {
  Statement insert(connection,
                   "INSERT INTO pactora_setting_elements (setting, position, kind, value) "
                   "VALUES ($1::int8, $2::int8, $3::text, $4::text)");
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

template <typename Statement, typename Connection>
std::vector<Setting> ReadSettings(Connection& connection) {
  std::vector<Setting> settings;
  Statement rows(connection,
                 "SELECT position, scope, owner, name, kind, value, read_only "
                 "FROM pactora_settings ORDER BY position");
  Statement elements(connection,
                     "SELECT kind, value FROM pactora_setting_elements "
                     "WHERE setting = $1::int8 ORDER BY position");
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

// Requires: an open transaction, so that the tables fit together.
template <typename Statement, typename Connection>
Profile ReadProfile(Connection& connection) {
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
  profile.settings = ReadSettings<Statement>(connection);
  Statement macros(connection,
                   "SELECT path, fails, number, description FROM pactora_macros ORDER BY position");
  while (macros.Step()) {
    profile.macros.push_back({std::string(macros.Text(0)), macros.Integer(1) != 0,
                              static_cast<std::int32_t>(macros.Integer(2)),
                              std::string(macros.Text(3))});
  }
  return profile;
}

// Requires, like WriteProfile: an open transaction.
template <typename Statement, typename Connection>
void WriteSetting(Connection& connection, const Setting& setting) {
  // Names are one name whatever their case; SQL's own comparison knows no umlauts.
  const std::string folded_owner = platform::UpperCase(setting.owner);
  const std::string folded_name = platform::UpperCase(setting.name);
  const bool is_array = setting.value.GetKind() == Kind::Array;
  Statement write(connection,
                  "INSERT INTO pactora_settings (scope, owner, name, folded_owner, folded_name, "
                  "kind, value, read_only) VALUES ($1::text, $2::text, $3::text, $4::text, "
                  "$5::text, $6::text, $7::text, $8::bool) "
                  "ON CONFLICT (scope, folded_owner, folded_name) DO UPDATE SET "
                  "owner = $2::text, name = $3::text, kind = $6::text, value = $7::text, "
                  "read_only = $8::bool "
                  "RETURNING position");
  write.Bind(1, NameOf(kScopes, setting.scope));
  write.Bind(2, std::string_view(setting.owner));
  write.Bind(3, std::string_view(setting.name));
  write.Bind(4, std::string_view(folded_owner));
  write.Bind(5, std::string_view(folded_name));
  write.Bind(6, NameOf(kKinds, setting.value.GetKind()));
  BindValue(write, 7, setting.value);
  write.Bind(8, setting.read_only);
  write.Step();
  const std::int64_t position = write.Integer(0);
  write.Step();
  Statement clear(connection, "DELETE FROM pactora_setting_elements WHERE setting = $1::int8");
  clear.Bind(1, position);
  Execute(clear);
  if (is_array) WriteElements<Statement>(connection, position, setting.value.AsArray());
}

template <typename Statement, typename Connection>
void WriteProfile(Connection& connection, const Profile& profile) {
  connection.Run(
      "DELETE FROM pactora_users; DELETE FROM pactora_settings; DELETE FROM pactora_macros");
  Statement database(connection,
                     "UPDATE pactora_database SET name = $1::text, display_name = $2::text, "
                     "current_user_name = $3::text");
  database.Bind(1, std::string_view(profile.name));
  database.Bind(2, std::string_view(profile.display_name));
  database.Bind(3, std::string_view(profile.current_user));
  Execute(database);
  Statement user(connection, "INSERT INTO pactora_users (name) VALUES ($1::text)");
  for (const std::string& name : profile.users) {
    user.Bind(1, std::string_view(name));
    Execute(user);
  }
  for (const Setting& setting : profile.settings) WriteSetting<Statement>(connection, setting);
  Statement macro(connection,
                  "INSERT INTO pactora_macros (path, fails, number, description) "
                  "VALUES ($1::text, $2::bool, $3::int8, $4::text)");
  for (const Macro& known : profile.macros) {
    macro.Bind(1, std::string_view(known.path));
    macro.Bind(2, known.fails);
    macro.Bind(3, std::int64_t{known.number});
    macro.Bind(4, std::string_view(known.description));
    Execute(macro);
  }
}

}  // namespace pactora::store::sql
