// One place for the host's key-value stores: the current user's private and
// public settings, the database's settings, persistent variables and a table's
// settings.
//
// A key is cut to its first 30 characters, except in ReadSetting. Values are
// texts. A read of a missing key gives the default; where the store may be
// written, a default that is not empty is stored. A write changes a stored value
// only if the new one differs in more than case.
//
// Errors are raised again with the source "CConfig.<operation>", but for CBoolean
// and ReadSetting, whose errors come as they are. ReadPrivateSetting and
// ReadTableSetting ignore errors of the store: a failing look-up gives the empty
// text.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "host/HostDb.h"
#include "host/HostTable.h"
#include "host/Value.h"
#include "shell/Module.h"

namespace pactora::shell {

class CConfig {
 public:
  // Works on the module's gDb of this moment. The module must outlive the object.
  explicit CConfig(Module& module) : module_(module), mDb(module.gDb) {}
  virtual ~CConfig() = default;

  // True for a text that begins with the number -1 or is "t", "true", "w" or
  // "wahr" in any case; a Boolean counts as its text.
  virtual bool CBoolean(const host::Value& vValue);

  virtual std::string ReadPrivateSetting(std::string_view psSetting,
                                         std::string_view psDefault = {});
  virtual void WritePrivateSetting(std::string_view psSetting, std::string_view psValue);
  virtual std::string ReadPublicSetting(std::string_view psSetting,
                                        std::string_view psDefault = {});
  virtual void WritePublicSetting(std::string_view psSetting, std::string_view psValue);

  // Settings of the database and of tables are never written: the two write
  // operations do nothing while writing is not allowed, which it never is.
  virtual std::string ReadDatabaseSetting(std::string_view psSetting,
                                          std::string_view psDefault = {});
  virtual void WriteDatabaseSetting(std::string_view psSetting, std::string_view psValue);

  virtual std::string ReadPersistVarSetting(std::string_view psSetting,
                                            std::string_view psDefault = {});
  // Creates a missing variable; leaves a read-only one alone.
  virtual void WritePersistVarSetting(std::string_view psSetting, const host::Value& psValue);

  virtual std::string ReadTableSetting(const std::shared_ptr<host::HostTable>& pTable,
                                       std::string_view psSetting, std::string_view psDefault = {});
  virtual void WriteTableSetting(const std::shared_ptr<host::HostTable>& pTable,
                                 std::string_view psSetting, std::string_view psValue);

  // The current user's private value, else the database's, else the default, in
  // the host's own global application. The key is not cut; nothing is written.
  virtual std::string ReadSetting(std::string_view psSetting, std::string_view psDefault = {});

 private:
  host::HostDb& Db() const;  // raises error 91 when there was none

  Module& module_;
  std::shared_ptr<host::HostDb> mDb;
  bool mbSchreibenErlaubt = false;
};

// Whether every contract gets an appointment, as the database's setting says it:
// "true" or "false" in any case or a number, error 13 for another text. False where
// there is none.
bool ReadAppointment4AllContracts(Module& module);

}  // namespace pactora::shell
