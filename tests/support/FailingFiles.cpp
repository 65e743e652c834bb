#include "support/FailingFiles.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string_view>

namespace pactora::support {
namespace {

constexpr std::size_t kSector = 512;  // what a disk writes whole or not at all

FailingFiles* instance = nullptr;

std::optional<std::string> ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(in), {});
}

}  // namespace

// SQLite's view of the layer: a file of ours with the system's behind it.
struct FailingFiles::Methods {
  struct File {
    sqlite3_file base;
    const char* name;  // null for a temporary one
  };
  static File& Own(sqlite3_file* file) { return *reinterpret_cast<File*>(file); }
  static sqlite3_file* Plain(sqlite3_file* file) {
    return reinterpret_cast<sqlite3_file*>(&Own(file) + 1);
  }

  static int Open(sqlite3_vfs*, sqlite3_filename name, sqlite3_file* file, int flags, int* out) {
    file->pMethods = nullptr;
    if (instance->FailsNow(kOpen)) return SQLITE_CANTOPEN;
    if ((flags & SQLITE_OPEN_CREATE) != 0) instance->Note(name, {kOpen});
    Own(file).name = name;
    sqlite3_file* const plain = Plain(file);
    const int code = instance->plain_->xOpen(instance->plain_, name, plain, flags, out);
    if (code == SQLITE_OK || plain->pMethods != nullptr) file->pMethods = &kMethods;
    return code;
  }
  static int Delete(sqlite3_vfs*, const char* name, int sync_folder) {
    if (instance->FailsNow(kDelete)) return SQLITE_IOERR_DELETE;
    instance->Note(name, {kDelete});
    if (sync_folder != 0) instance->NoteSync(name);
    return instance->plain_->xDelete(instance->plain_, name, 0);
  }
  static int Write(sqlite3_file* file, const void* data, int size, sqlite3_int64 at) {
    const bool fails = instance->FailsNow(kWrite);
    if (fails && !instance->fault_.shortens) return SQLITE_IOERR_WRITE;
    if (fails) size /= 2;
    instance->Note(Own(file).name,
                   {kWrite,
                    static_cast<std::size_t>(at),
                    {static_cast<const char*>(data), static_cast<std::size_t>(size)}});
    const int code = Plain(file)->pMethods->xWrite(Plain(file), data, size, at);
    return fails ? SQLITE_FULL : code;
  }
  static int Truncate(sqlite3_file* file, sqlite3_int64 size) {
    if (instance->FailsNow(kTruncate)) return SQLITE_IOERR_TRUNCATE;
    instance->Note(Own(file).name, {kTruncate, static_cast<std::size_t>(size)});
    return Plain(file)->pMethods->xTruncate(Plain(file), size);
  }
  static int Sync(sqlite3_file* file, int) {
    if (instance->FailsNow(kSync)) return SQLITE_IOERR_FSYNC;
    instance->NoteSync(Own(file).name);
    return SQLITE_OK;
  }
  static int Lock(sqlite3_file* file, int lock) {
    if (instance->FailsNow(kLock)) return SQLITE_IOERR_LOCK;
    return Plain(file)->pMethods->xLock(Plain(file), lock);
  }

  // The rest is handed on. Without memory maps and shared memory: version 1.
  static constexpr sqlite3_io_methods kMethods = {
      1,
      [](sqlite3_file* f) { return Plain(f)->pMethods->xClose(Plain(f)); },
      [](sqlite3_file* f, void* data, int size, sqlite3_int64 at) {
        return Plain(f)->pMethods->xRead(Plain(f), data, size, at);
      },
      Write,
      Truncate,
      Sync,
      [](sqlite3_file* f, sqlite3_int64* size) {
        return Plain(f)->pMethods->xFileSize(Plain(f), size);
      },
      Lock,
      [](sqlite3_file* f, int lock) { return Plain(f)->pMethods->xUnlock(Plain(f), lock); },
      [](sqlite3_file* f, int* held) {
        return Plain(f)->pMethods->xCheckReservedLock(Plain(f), held);
      },
      [](sqlite3_file* f, int operation, void* argument) {
        return Plain(f)->pMethods->xFileControl(Plain(f), operation, argument);
      },
      [](sqlite3_file* f) { return Plain(f)->pMethods->xSectorSize(Plain(f)); },
      [](sqlite3_file* f) { return Plain(f)->pMethods->xDeviceCharacteristics(Plain(f)); },
      nullptr,
      nullptr,
      nullptr,
      nullptr,
      nullptr,
      nullptr};
};

FailingFiles::FailingFiles() {
  sqlite3_initialize();
  instance = this;
  plain_ = sqlite3_vfs_find(nullptr);
  layer_ = *plain_;
  layer_.zName = "pactora-failing";
  layer_.szOsFile = static_cast<int>(sizeof(Methods::File)) + plain_->szOsFile;
  layer_.xOpen = Methods::Open;
  layer_.xDelete = Methods::Delete;
  sqlite3_vfs_register(&layer_, 1);
}

FailingFiles::~FailingFiles() {
  sqlite3_vfs_register(plain_, 1);
  sqlite3_vfs_unregister(&layer_);
  instance = nullptr;
}

void FailingFiles::Fail(const Fault& fault, std::size_t nth, unsigned seed) {
  fault_ = fault;
  nth_ = nth;
  seen_ = 0;
  random_.seed(seed);
  unsynced_.clear();
}

bool FailingFiles::Stop() {
  const bool failed = seen_ >= nth_;
  nth_ = 0;
  CutPower();
  return failed;
}

bool FailingFiles::FailsNow(Call call) {
  if (nth_ == 0 || (fault_.calls & call) == 0) return false;
  ++seen_;
  return fault_.goes_on ? seen_ >= nth_ : seen_ == nth_;
}

FailingFiles::Unsynced& FailingFiles::FileOf(const char* name) {
  const auto [file, is_new] = unsynced_.try_emplace(name);
  if (is_new) file->second.kept = ReadFile(name);
  return file->second;
}

void FailingFiles::Note(const char* name, Change change) {
  if (nth_ != 0 && fault_.cuts_power && name != nullptr)
    FileOf(name).changes.push_back(std::move(change));
}

// Carries the change out on the file, if there is one.
void FailingFiles::Carry(const Change& change, std::optional<std::string>& file) {
  if (change.what == kOpen && !file) file.emplace();
  if (!file) return;
  if (change.what == kDelete) file.reset();
  if (change.what == kTruncate) file->resize(change.at);
  if (change.what == kWrite) {
    file->resize(std::max(file->size(), change.at + change.bytes.size()));
    file->replace(change.at, change.bytes.size(), change.bytes);
  }
}

// SQLite syncs a new journal's folder with its first sync. Of a new database's name it takes
// no care; that is its maker's task.
void FailingFiles::NoteSync(const char* name) {
  if (nth_ == 0 || !fault_.cuts_power || name == nullptr) return;
  Unsynced& file = FileOf(name);
  for (const Change& change : file.changes) Carry(change, file.kept);
  file.changes.clear();
}

// Each sector that was written reaches the disk or not, whatever became of the others: so
// does any order in which a disk may write them end.
void FailingFiles::CutPower() {
  for (auto& [name, file] : unsynced_) {
    std::bernoulli_distribution reaches_disk(std::uniform_int_distribution(0, 4)(random_) / 4.0);
    for (const Change& change : file.changes) {
      if (change.what == kWrite) {
        for (std::size_t begin = 0, end = 0; begin < change.bytes.size(); begin = end) {
          end = std::min(change.bytes.size(), begin + kSector - (change.at + begin) % kSector);
          if (reaches_disk(random_))
            Carry({kWrite, change.at + begin, change.bytes.substr(begin, end - begin)}, file.kept);
        }
      } else if (reaches_disk(random_)) {
        Carry(change, file.kept);
      } else if (change.what == kDelete) {
        break;  // what came then went into another file, whose name is lost
      }
    }
    if (file.kept)
      std::ofstream(name, std::ios::binary) << *file.kept;
    else
      std::filesystem::remove(name);
  }
  unsynced_.clear();
}

}  // namespace pactora::support
