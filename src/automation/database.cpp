#include "automation/database.h"

#include <fmt/format.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <filesystem>
#include <system_error>

#include "automation/dataset_head.h"
#include "automation/errors.h"
#include "platform/Error.h"
#include "schema/Catalog.h"
#include "store/memory/MemoryStore.h"
#ifdef PACTORA_HAS_SQLITE
#include "store/sqlite/SqliteStore.h"
#endif

namespace pactora::automation {

namespace fs = std::filesystem;

namespace {

bool IsServer(const std::string& name) {
  return name.starts_with("postgresql://") || name.starts_with("postgres://");
}

// Raises for the kinds of database that this build does not have.
void RequireAvailable(const std::string& name) {
  if (IsServer(name))
    Raise(DoorError::NotAvailable, "PostgreSQL-Datenbanken kann dieses Programm nicht öffnen");
#ifndef PACTORA_HAS_SQLITE
  if (name != kMemoryName)
    Raise(DoorError::NotAvailable,
          "dieses Programm wurde ohne SQLite gebaut und öffnet keine Dateien");
#endif
}

#ifdef PACTORA_HAS_SQLITE
// Runs body; a failure of the storage in it names the database.
template <typename Body>
auto Naming(const std::string& name, const Body& body) {
  try {
    return body();
  } catch (const platform::Error& error) {
    throw platform::Error(error.Number(), fmt::format("{}: {}", name, error.Description()),
                          error.Source());
  }
}
#endif

// A file that goes when it was not moved away.
class ScratchFile {
 public:
  explicit ScratchFile(std::string path) : path_(std::move(path)) {}
  ~ScratchFile() {
    std::error_code ignored;
    fs::remove(path_, ignored);
    fs::remove(path_ + "-journal", ignored);
  }
  ScratchFile(const ScratchFile&) = delete;
  ScratchFile& operator=(const ScratchFile&) = delete;

  const std::string& Path() const { return path_; }
  // Puts the file under the name, unless there is one by now.
  void MoveTo(const std::string& name) {
    std::error_code failure;
    fs::create_hard_link(path_, name, failure);
    if (!failure) return;
    // A file system without links, or the name is taken.
    if (fs::exists(name)) Raise(DoorError::BadInput, name + ": die Datei gibt es schon");
    fs::rename(path_, name, failure);
    if (failure)
      Raise(DoorError::NotCarriedOut,
            fmt::format("{}: die Datei kann nicht angelegt werden", name));
  }

 private:
  std::string path_;
};

#ifdef PACTORA_HAS_SQLITE
constexpr const char* kScratch = ".neu-";  // and the number of the process

// Takes away what a killed program left half made beside the name.
void RemoveLeftovers(const std::string& name) {
  const fs::path path = fs::absolute(name);
  const std::string begin = path.filename().string() + kScratch;
  std::error_code failed;
  for (const fs::directory_entry& entry : fs::directory_iterator(path.parent_path(), failed)) {
    const std::string file = entry.path().filename().string();
    if (!file.starts_with(begin)) continue;
    pid_t process = 0;
    const char* const digits = file.c_str() + begin.size();
    std::from_chars(digits, file.c_str() + file.size(), process);
    // Somebody who is still at work keeps his.
    if (process <= 0 || ::kill(process, 0) == 0 || errno != ESRCH) continue;
    std::error_code ignored;
    fs::remove(entry.path(), ignored);
  }
}
#endif

}  // namespace

std::string DefaultDatabaseName(const std::string& name) {
  if (name == kMemoryName || IsServer(name)) return "PACTORA";
  return fs::path(name).stem().string();
}

bool DatabaseExists(const std::string& name) {
  RequireAvailable(name);
  std::error_code ignored;
  return name != kMemoryName && fs::exists(name, ignored);
}

std::unique_ptr<store::RecordStore> OpenDatabase(const std::string& name, Access access) {
  RequireAvailable(name);
#ifdef PACTORA_HAS_SQLITE
  if (name != kMemoryName) {
    store::OpenOptions options;
    options.rehearsal = access == Access::Rehearsal;
    return Naming(name, [&] { return store::OpenSqlite(name, options); });
  }
#endif
  static_cast<void>(access);
  return store::CreateMemoryStore(schema::ContractCatalog(true),
                                  DefaultProfile(DefaultDatabaseName(name)));
}

void MakeDatabase(const std::string& name, bool workflow_add_on, const store::Profile& profile,
                  Access access, const std::function<void(store::RecordStore&)>& fill) {
  if (DatabaseExists(name)) Raise(DoorError::BadInput, name + ": die Datei gibt es schon");
  const schema::Catalog catalog = schema::ContractCatalog(workflow_add_on);
  if (name == kMemoryName || access == Access::Rehearsal) {
    fill(*store::CreateMemoryStore(catalog, profile));
    return;
  }
#ifdef PACTORA_HAS_SQLITE
  RemoveLeftovers(name);
  ScratchFile scratch(fmt::format("{}{}{}", name, kScratch, ::getpid()));
  fill(*Naming(name, [&] { return store::CreateSqlite(scratch.Path(), catalog, profile); }));
  scratch.MoveTo(name);
#endif
}

bool IsEmpty(store::RecordStore& store) {
  for (store::TableId table = 0; table < store.Catalog().tables.size(); ++table)
    if (store.Count(table) != 0) return false;
  return true;
}

std::vector<std::string> CheckStorage(const std::string& name) {
  RequireAvailable(name);
#ifdef PACTORA_HAS_SQLITE
  if (name != kMemoryName) return Naming(name, [&] { return store::CheckSqlite(name); });
#endif
  return {};
}

}  // namespace pactora::automation
