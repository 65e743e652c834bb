#include "automation/workspace/database.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <random>
#include <system_error>
#include <utility>

#include "automation/formats/ScratchFile.h"
#include "automation/formats/errors.h"
#include "automation/formats/files.h"
#include "automation/workspace/fatal_store_error.h"
#include "platform/Error.h"
#include "schema/Catalog.h"
#include "schema/names.h"
#include "store/errors.h"
#include "store/memory/MemoryStore.h"
#ifdef PACTORA_HAS_SQLITE
#include "store/sqlite/SqliteStore.h"
#endif
#ifdef PACTORA_HAS_POSTGRESQL
#include "store/postgresql/PostgresqlStore.h"
#endif
#if defined(PACTORA_HAS_SQLITE) || defined(PACTORA_HAS_POSTGRESQL)
#include "store/sql/waiting.h"
#endif

namespace pactora::workspace {

namespace fs = std::filesystem;

namespace {

// Raises for the kinds of database that this build does not have.
void RequireAvailable(const std::string& name) {
#ifndef PACTORA_HAS_POSTGRESQL
  if (IsServer(name))
    formats::Raise(formats::DoorError::NotAvailable,
                   "dieses Programm wurde ohne PostgreSQL gebaut und öffnet keine Server");
#endif
#ifndef PACTORA_HAS_SQLITE
  if (name != kMemoryName && !IsServer(name))
    formats::Raise(formats::DoorError::NotAvailable,
                   "dieses Programm wurde ohne SQLite gebaut und öffnet keine Dateien");
#endif
  static_cast<void>(name);
}

std::function<void(const std::string&)> report_migration;

// Raises as for a database that is not there.
void RequireFolder(const std::string& name) {
  if (name == kMemoryName || IsServer(name) || fs::is_directory(fs::absolute(name).parent_path()))
    return;
  Naming(name, [] { store::Raise(store::StoreError::NotReachable, "den Ordner gibt es nicht"); });
}

auto FindId(const store::Profile& profile) {
  return std::ranges::find_if(profile.settings, [](const store::Setting& setting) {
    return setting.scope == store::SettingScope::Database &&
           setting.name == schema::setting::PactoraKennung;
  });
}

void GiveId(store::RecordStore& store) {
  const auto has_one = [&] {
    const store::Profile profile = store.ReadProfile();
    return FindId(profile) != profile.settings.end();
  };
  if (has_one()) return;
  store.LockForUpdate();
  if (!has_one()) {
    std::random_device random;
    std::string id;
    for (int i = 0; i < 4; ++i) id += fmt::format("{:08x}", random());
    store.WriteSetting(
        {store::SettingScope::Database, {}, std::string(schema::setting::PactoraKennung), id});
  }
  store.Commit();
}

#ifdef PACTORA_HAS_SQLITE
void RequireFile(const std::string& name) {
  if (!DatabaseExists(name))
    store::Raise(store::StoreError::NotReachable, "die Datei gibt es nicht");
}
#endif

std::unique_ptr<store::RecordStore> OpenByKind(const std::string& name, Access access) {
#ifdef PACTORA_HAS_POSTGRESQL
  if (IsServer(name)) return store::OpenPostgresql(name, access);
#endif
#ifdef PACTORA_HAS_SQLITE
  if (name != kMemoryName) {
    store::OpenOptions options;
    options.mode = access;
    options.on_migrated = [&] {
      if (report_migration)
        report_migration(name +
                         ": die Datenbank hat jetzt die Struktur dieser Version; frühere Versionen "
                         "des Programms können sie nicht mehr öffnen");
    };
    RequireFile(name);
    return store::OpenSqlite(name, options);
  }
#endif
  static_cast<void>(access);
  return store::CreateMemoryStore(schema::ContractCatalog(true),
                                  store::DefaultProfile(DefaultDatabaseName(name)));
}

// The address without the password that it must not have.
std::string Shown(const std::string& name) {
  const std::size_t at = name.find('@');
  const std::size_t colon = name.find(':', std::string_view("postgresql://").size());
  if (!IsServer(name) || at == std::string::npos || colon > at) return name;
  return name.substr(0, colon) + ":…" + name.substr(at);
}

}  // namespace

bool IsServer(const std::string& name) {
  return name.starts_with("postgresql://") || name.starts_with("postgres://") ||
         name.starts_with("service=");
}

void ReportMigrationTo(std::function<void(const std::string& message)> report) {
  report_migration = std::move(report);
}

std::string DefaultDatabaseName(const std::string& name) {
  if (name == kMemoryName || IsServer(name)) return "PACTORA";
  return fs::path(name).stem().string();
}

std::string IdOf(const store::Profile& profile) {
  const auto id = FindId(profile);
  return id == profile.settings.end() ? profile.name : host::ToText(id->value);
}

bool DatabaseExists(const std::string& name) {
  RequireAvailable(name);
#ifdef PACTORA_HAS_POSTGRESQL
  if (IsServer(name)) return Naming(name, [&] { return store::PostgresqlExists(name); });
#endif
  std::error_code ignored;
  return name != kMemoryName && fs::exists(name, ignored);
}

void RaiseTaken(const std::string& name) {
  if (!IsServer(name)) formats::RaiseTaken(name);
  formats::Raise(formats::DoorError::BadInput, name + ": das Schema ist nicht leer");
}

std::unique_ptr<store::RecordStore> OpenDatabase(const std::string& name, Access access) {
  RequireAvailable(name);
  return Naming(name, [&] {
    auto store = OpenByKind(name, access);
    if (name != kMemoryName && (access == Access::Write || access == Access::Any) &&
        !store->IsReadOnly())
      GiveId(*store);
    return store;
  });
}

void GiveUpWaitingWhen(bool (*asked)(std::chrono::milliseconds waited)) {
#if defined(PACTORA_HAS_SQLITE) || defined(PACTORA_HAS_POSTGRESQL)
  store::sql::GiveUpWaitingWhen(asked);
#endif
  static_cast<void>(asked);
}

void MakeDatabase(const std::string& name, bool workflow_add_on, const store::Profile& profile,
                  Access access, const std::function<void(store::RecordStore&)>& fill) {
  if (DatabaseExists(name)) RaiseTaken(name);
  if (std::error_code ignored; fs::is_symlink(name, ignored))
    formats::Raise(formats::DoorError::BadInput, name + ": der Verweis führt zu keiner Datei");
  RequireFolder(name);
  const schema::Catalog catalog = schema::ContractCatalog(workflow_add_on);
  if (name == kMemoryName || access == Access::Rehearsal) {
    fill(*store::CreateMemoryStore(catalog, profile));
    return;
  }
#ifdef PACTORA_HAS_POSTGRESQL
  if (IsServer(name)) {
    Naming(name, [&] {
      const auto store = store::CreatePostgresql(name, catalog, profile);
      fill(*store);
      store->Commit();
      GiveId(*store);
    });
    return;
  }
#endif
#ifdef PACTORA_HAS_SQLITE
  const formats::ScratchFile scratch(name);
  Naming(name, [&] {
    try {
      const auto store = store::CreateSqlite(scratch.Path(), catalog, profile);
      fill(*store);
      GiveId(*store);
    } catch (const platform::Error& error) {
      if (error.Number() != store::Number(store::StoreError::Uncertain)) throw;
      // The unfinished file is removed, so nothing is uncertain.
      store::Raise(store::StoreError::Failed,
                   "Ein- oder Ausgabefehler; die Datenbank ist nicht angelegt worden");
    }
  });
  scratch.BecomeTarget();
#endif
}

void RequireOutside(const std::string& database, const std::string& file) {
  if (database == kMemoryName || IsServer(database)) return;
  if (formats::IsSameFile(file, database) || formats::IsSameFile(file, database + "-journal"))
    formats::Raise(formats::DoorError::BadInput, file + ": das ist die Datenbank selbst");
}

void RequireNoDatabase(const std::string& database, const std::string& file,
                       const std::string& way_out) {
  RequireOutside(database, file);
#ifdef PACTORA_HAS_SQLITE
  if (store::IsSqliteFile(file))
    formats::Raise(formats::DoorError::BadInput, fmt::format("{}: das ist eine Datenbank{}{}", file,
                                                             way_out.empty() ? "" : "; ", way_out));
#endif
  static_cast<void>(way_out);
}

platform::Error Named(const std::string& database, const platform::Error& error) {
  const bool is_named = error.Source() == formats::kErrorSource;
  if (is_named || (error.Source() != store::kErrorSource && !FatalStoreErrorOf(error.Number())))
    return error;
  return {error.Number(), fmt::format("{}: {}", Shown(database), error.Description()),
          formats::kErrorSource};
}

bool IsEmpty(store::RecordStore& store) {
  for (store::TableId table = 0; table < store.Catalog().tables.size(); ++table)
    if (store.Count(table) != 0) return false;
  return true;
}

StorageCheck CheckStorage(const std::string& name) {
  RequireAvailable(name);
#ifdef PACTORA_HAS_POSTGRESQL
  if (IsServer(name)) {
    return Naming(name, [&]() -> StorageCheck {
      store::PostgresqlCheck check = store::CheckPostgresql(name);
      return {std::move(check.faults), std::move(check.additions), std::move(check.store)};
    });
  }
#endif
#ifdef PACTORA_HAS_SQLITE
  if (name != kMemoryName) {
    return Naming(name, [&]() -> StorageCheck {
      RequireFile(name);
      store::SqliteCheck check = store::CheckSqlite(name);
      return {std::move(check.faults), std::move(check.additions), std::move(check.store)};
    });
  }
#endif
  return {{}, {}, OpenDatabase(name, Access::Read)};
}

}  // namespace pactora::workspace
