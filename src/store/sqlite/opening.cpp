#include "store/sqlite/opening.h"

#include <utility>

#include "store/errors.h"
#include "store/sqlite/migration.h"

namespace pactora::store::sqlite {
namespace {

// A copy of the file's content in memory.
std::unique_ptr<Connection> CopyToMemory(const Connection& file) {
  auto memory = std::make_unique<Connection>(kInMemory, Access::ReadWrite, kDefaultLockTimeout);
  sqlite3_backup* const backup =
      sqlite3_backup_init(memory->Handle(), "main", file.Handle(), "main");
  if (backup == nullptr) memory->Fail(sqlite3_extended_errcode(memory->Handle()));
  const int code = sqlite3_backup_step(backup, -1);
  sqlite3_backup_finish(backup);
  if (code != SQLITE_DONE) memory->Fail(code);
  return memory;
}

}  // namespace

OpenedFile OpenConnection(const std::string& path, const OpenOptions& options) {
  const bool rehearsal = options.mode == OpenMode::Rehearsal;
  const Access access = rehearsal ? Access::ReadOnly : Access::ReadWrite;
  auto connection = std::make_unique<Connection>(path, access, options.lock_timeout);
  const bool is_old = IsOfEarlierVersion(*connection);
  const bool is_protected = sqlite3_db_readonly(connection->Handle(), "main") == 1;
  if (options.mode == OpenMode::Write && is_protected) Raise(StoreError::ReadOnly);
  Structure structure = ReadStructure(*connection);
  // Others' triggers would work along with a migration as with every save.
  const bool has_additions = !structure.additions.empty();
  if ((options.mode == OpenMode::Write || rehearsal) && has_additions)
    Raise(StoreError::ReadOnly, structure.additions.front());
  const bool reads = options.mode == OpenMode::Read ||
                     (options.mode == OpenMode::Any && (is_protected || has_additions));
  const bool copies = rehearsal || options.mode == OpenMode::Snapshot || (reads && is_old);
  if (copies) connection = CopyToMemory(*connection);
  connection->SetUp();
  if (is_old)
    structure = Migrate(*connection);
  else if (copies)
    structure = ReadStructure(*connection);  // of the copy's moment
  if (is_old && !copies && structure.faults.empty() && options.on_migrated) options.on_migrated();
  if (reads) connection->RefuseWriting(has_additions ? structure.additions.front() : "");
  return {std::move(connection), std::move(structure)};
}

}  // namespace pactora::store::sqlite
