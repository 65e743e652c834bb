#include "automation/dataset/dataset_profile.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <functional>
#include <vector>

#include "automation/dataset/values.h"
#include "automation/formats/errors.h"
#include "platform/Text.h"
#include "schema/Catalog.h"
#include "schema/names.h"

namespace pactora::dataset {

namespace {

using store::SettingScope;

constexpr std::array kProfileKeys = {key::kDatabase,      key::kUsers,         key::kCurrentUser,
                                     key::kDbSettings,    key::kTableSettings, key::kPersistVars,
                                     key::kWorkflowAddOn, key::kMacros};

constexpr const char* kRecord = "record";

bool Knows(const std::vector<std::string>& names, const std::string& name) {
  return std::any_of(names.begin(), names.end(), [&name](const std::string& known) {
    return platform::EqualsIgnoringCase(known, name);
  });
}

// The settings of one scope. Names that differ in case only are one name.
void ReadSettings(store::Profile& profile, SettingScope scope, const std::string& owner,
                  const formats::Json& settings, const formats::Place& place) {
  std::vector<std::string> names;
  for (const auto& member : formats::RequireObject(settings, place).items()) {
    const formats::Place here = place.Key(member.key());
    if (Knows(names, member.key())) here.Fail("der Name steht doppelt da");
    names.push_back(member.key());
    store::Setting setting{scope, owner, member.key(), {}, false};
    if (scope == SettingScope::PersistVar && member.value().is_object()) {
      formats::AllowKeys(member.value(), {"value", "readOnly"}, here);
      setting.value = ReadFree(formats::Require(member.value(), "value", here), here.Key("value"));
      if (const formats::Json* read_only = formats::Find(member.value(), "readOnly"))
        setting.read_only = formats::RequireBoolean(*read_only, here.Key("readOnly"));
    } else {
      setting.value = ReadFree(member.value(), here);
    }
    profile.settings.push_back(std::move(setting));
  }
}

void ReadUsers(store::Profile& profile, const formats::Json& users, const formats::Place& place) {
  profile.users.clear();
  for (std::size_t i = 0; i < formats::RequireArray(users, place).size(); ++i) {
    const formats::Place here = place.Element(i);
    const formats::Json& user = formats::RequireObject(users[i], here);
    formats::AllowKeys(user, {"name", "public", "private"}, here);
    const std::string name =
        formats::RequireText(formats::Require(user, "name", here), here.Key("name"));
    if (name.empty()) here.Key("name").Fail("der Name ist leer");
    if (Knows(profile.users, name)) here.Key("name").Fail("der Benutzer steht doppelt da");
    profile.users.push_back(name);
    if (const formats::Json* settings = formats::Find(user, "public"))
      ReadSettings(profile, SettingScope::PublicUser, name, *settings, here.Key("public"));
    if (const formats::Json* settings = formats::Find(user, "private"))
      ReadSettings(profile, SettingScope::PrivateUser, name, *settings, here.Key("private"));
  }
  if (profile.users.empty()) place.Fail("mindestens ein Benutzer wird gebraucht");
  profile.current_user = profile.users.front();
}

void ReadMacros(store::Profile& profile, const formats::Json& macros, const formats::Place& place) {
  for (const auto& member : formats::RequireObject(macros, place).items()) {
    const formats::Place here = place.Key(member.key());
    const std::string& path = member.key();
    if (std::count(path.begin(), path.end(), '/') != 2 || path.front() == '/' ||
        path.back() == '/' || path.find("//") != std::string::npos)
      here.Fail("ein Name wie „Projekt/Modul/Prozedur“ wird erwartet");
    store::Macro macro{path, false, 0, {}};
    if (member.value() != kRecord) {
      if (!member.value().is_object())
        here.Fail("„record“ oder ein Objekt mit „fail“ wird erwartet");
      formats::AllowKeys(member.value(), {"fail"}, here);
      const formats::Place there = here.Key("fail");
      const formats::Json& failure =
          formats::RequireObject(formats::Require(member.value(), "fail", here), there);
      formats::AllowKeys(failure, {"number", "description"}, there);
      macro.fails = true;
      macro.number =
          ReadErrorNumber(formats::Require(failure, "number", there), there.Key("number"));
      if (const formats::Json* description = formats::Find(failure, "description"))
        macro.description = formats::RequireText(*description, there.Key("description"));
    }
    profile.macros.push_back(std::move(macro));
  }
}

// The settings that pass, as one object under the key.
void WriteSettings(formats::JsonWriter& out, const char* key, const store::Profile& profile,
                   const std::function<bool(const store::Setting&)>& passes) {
  out.Key(key);
  out.BeginObject();
  for (const store::Setting& setting : profile.settings) {
    if (!passes(setting)) continue;
    out.Key(setting.name);
    const auto write = [&] {
      WriteValue(out, setting.value, [&] { return fmt::format("„{}“", setting.name); });
    };
    if (setting.read_only) {
      out.BeginObject();
      out.Key("value");
      write();
      out.Key("readOnly");
      out.Boolean(true);
      out.EndObject();
    } else {
      write();
    }
  }
  out.EndObject();
}

// A copy of a database is another one.
bool IsExported(const store::Setting& setting) {
  return setting.name != schema::setting::PactoraKennung;
}

std::function<bool(const store::Setting&)> Of(SettingScope scope, const std::string& owner = {}) {
  return [scope, owner](const store::Setting& setting) {
    return IsExported(setting) && setting.scope == scope &&
           platform::EqualsIgnoringCase(setting.owner, owner);
  };
}

void WriteUsers(formats::JsonWriter& out, const store::Profile& profile) {
  out.Key(key::kUsers);
  out.BeginArray();
  for (const std::string& user : profile.users) {
    out.BeginObject();
    out.Key("name");
    out.Text(user);
    const auto write = [&](const char* name, SettingScope scope) {
      const auto passes = Of(scope, user);
      if (std::any_of(profile.settings.begin(), profile.settings.end(), passes))
        WriteSettings(out, name, profile, passes);
    };
    write("public", SettingScope::PublicUser);
    write("private", SettingScope::PrivateUser);
    out.EndObject();
  }
  out.EndArray();
}

// Settings that the add-on keeps with a table; the key is left out when there are none.
void WriteTableSettings(formats::JsonWriter& out, const store::Profile& profile) {
  std::vector<std::string> tables;
  for (const store::Setting& setting : profile.settings)
    if (setting.scope == SettingScope::Table && !Knows(tables, setting.owner))
      tables.push_back(setting.owner);
  if (tables.empty()) return;
  out.Key(key::kTableSettings);
  out.BeginObject();
  for (const std::string& table : tables)
    WriteSettings(out, table.c_str(), profile, Of(SettingScope::Table, table));
  out.EndObject();
}

void WriteMacros(formats::JsonWriter& out, const store::Profile& profile) {
  out.Key(key::kMacros);
  out.BeginObject();
  for (const store::Macro& macro : profile.macros) {
    out.Key(macro.path);
    if (!macro.fails) {
      out.Text(kRecord);
      continue;
    }
    formats::Json failure = {{"number", formats::ErrorNumberText(macro.number)}};
    if (!macro.description.empty()) failure["description"] = macro.description;
    out.Value(formats::Json{{"fail", failure}});
  }
  out.EndObject();
}

}  // namespace

bool IsProfileKey(const std::string& key) {
  return std::find(kProfileKeys.begin(), kProfileKeys.end(), key) != kProfileKeys.end();
}

store::Profile ReadProfile(const formats::Json& members, const std::string& source,
                           const std::string& default_name) {
  store::Profile profile = store::DefaultProfile(default_name);
  const formats::Place root(source);
  if (const formats::Json* database = formats::Find(members, key::kDatabase)) {
    const formats::Place place = root.Key(key::kDatabase);
    formats::AllowKeys(formats::RequireObject(*database, place), {"name", "displayName"}, place);
    if (const formats::Json* name = formats::Find(*database, "name"))
      profile.name = formats::RequireText(*name, place.Key("name"));
    profile.display_name = profile.name;
    if (const formats::Json* display_name = formats::Find(*database, "displayName"))
      profile.display_name = formats::RequireText(*display_name, place.Key("displayName"));
  }
  if (const formats::Json* users = formats::Find(members, key::kUsers))
    ReadUsers(profile, *users, root.Key(key::kUsers));
  if (const formats::Json* user = formats::Find(members, key::kCurrentUser)) {
    const formats::Place place = root.Key(key::kCurrentUser);
    profile.current_user = formats::RequireText(*user, place);
    if (!Knows(profile.users, profile.current_user))
      place.Fail(fmt::format("„{}“ steht nicht unter „users“", profile.current_user));
  }
  if (const formats::Json* settings = formats::Find(members, key::kDbSettings))
    ReadSettings(profile, SettingScope::Database, {}, *settings, root.Key(key::kDbSettings));
  if (const formats::Json* tables = formats::Find(members, key::kTableSettings)) {
    const formats::Place place = root.Key(key::kTableSettings);
    const schema::Catalog& catalog = schema::WholeCatalog();
    for (const auto& table : formats::RequireObject(*tables, place).items()) {
      if (!catalog.FindTable(table.key()))
        place.Key(table.key()).Fail("diese Tabelle gibt es nicht");
      ReadSettings(profile, SettingScope::Table, table.key(), table.value(),
                   place.Key(table.key()));
    }
  }
  if (const formats::Json* variables = formats::Find(members, key::kPersistVars))
    ReadSettings(profile, SettingScope::PersistVar, {}, *variables, root.Key(key::kPersistVars));
  if (const formats::Json* macros = formats::Find(members, key::kMacros))
    ReadMacros(profile, *macros, root.Key(key::kMacros));
  return profile;
}

void WriteProfile(formats::JsonWriter& out, const store::Profile& profile, bool workflow_add_on) {
  out.Key(key::kDatabase);
  out.Value(formats::Json{{"name", profile.name}, {"displayName", profile.display_name}});
  WriteUsers(out, profile);
  out.Key(key::kCurrentUser);
  out.Text(profile.current_user);
  WriteSettings(out, key::kDbSettings, profile, Of(SettingScope::Database));
  WriteTableSettings(out, profile);
  WriteSettings(out, key::kPersistVars, profile, Of(SettingScope::PersistVar));
  out.Key(key::kWorkflowAddOn);
  out.Boolean(workflow_add_on);
  WriteMacros(out, profile);
}

}  // namespace pactora::dataset
