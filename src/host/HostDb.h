// The open database: tables by name, users, expressions and settings.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "host/HostTable.h"
#include "host/Settings.h"
#include "host/Value.h"

namespace pactora::host {

class HostDbInfo {
 public:
  virtual ~HostDbInfo() = default;
  // The database's name as the key of the client table.
  virtual std::string Name() = 0;
  // The same database's name for a message.
  virtual std::string DisplayName(std::int32_t flags) = 0;
};

class HostTables {
 public:
  virtual ~HostTables() = default;
  // The one live table of that name, not null; raises an error for an unknown name.
  virtual std::shared_ptr<HostTable> Item(std::string_view name) = 0;
  virtual HostDbInfo& Database() = 0;
};

class HostUser {
 public:
  virtual ~HostUser() = default;
  virtual std::string Name() = 0;
  virtual HostSettings& PublicSettings() = 0;
  virtual HostSettings& PrivateSettings() = 0;
};

class HostUsers {
 public:
  virtual ~HostUsers() = default;
  virtual std::int32_t Count() = 0;
  // Requires: index is 0 to Count() - 1; raises an error otherwise.
  virtual HostUser& Item(std::int32_t index) = 0;
  // The user logged in to the host.
  virtual HostUser& CurrentUser() = 0;
};

// A compiled host expression.
class HostFormula {
 public:
  virtual ~HostFormula() = default;
  // Evaluates on the current rows of the tables at this moment.
  virtual Value Eval(std::int32_t flags) = 0;
};

class HostFormulas {
 public:
  virtual ~HostFormulas() = default;
  // Raises an error for a text that is no expression of this host.
  virtual std::shared_ptr<HostFormula> Compile(std::string_view text, std::int32_t flags) = 0;
  virtual HostPersistVars& PersistVars() = 0;
};

class HostDb : public Object {
 public:
  virtual HostTables& Tables() = 0;
  virtual HostUsers& Users() = 0;
  virtual HostFormulas& Formulas() = 0;
  // Settings of the database, the same for all users.
  virtual HostSettings& DbSettings() = 0;
};

}  // namespace pactora::host
