// What a database knows besides its rows: its name, its users, settings,
// persistent variables and macros.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/Value.h"

namespace pactora::store {

enum class SettingScope { Database, PublicUser, PrivateUser, Table, PersistVar };

struct Setting {
  SettingScope scope = SettingScope::Database;
  std::string owner;  // user or table name; empty for Database and PersistVar
  std::string name;
  host::Value value;       // never an object
  bool read_only = false;  // PersistVar only
};

// What the embedded host does when a macro runs: report the call, or fail.
struct Macro {
  std::string path;  // "Project/vv_Macros/vv_CreateAttribute"
  bool fails = false;
  std::int32_t number = 0;  // of the failure
  std::string description;
};

struct Profile {
  std::string name;
  std::string display_name;
  std::vector<std::string> users;
  std::string current_user;
  std::vector<Setting> settings;  // in the order in which they were added
  std::vector<Macro> macros;
};

// A database of that name with one user and no settings.
Profile DefaultProfile(const std::string& name);

}  // namespace pactora::store
