// Files that fail: while one lives, every SQLite file is reached through a layer that
// counts its writes, syncs and truncations and makes one of them fail as the system's
// would.
#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <utility>

namespace pactora::support {

class FailingFiles {
 public:
  enum class Call { Write, Sync, Truncate };

  FailingFiles() {
    sqlite3_initialize();
    instance_ = this;
    plain_ = sqlite3_vfs_find(nullptr);
    layer_ = *plain_;
    layer_.zName = "pactora-failing";
    layer_.szOsFile = static_cast<int>(sizeof(File)) + plain_->szOsFile;
    layer_.xOpen = Open;
    sqlite3_vfs_register(&layer_, 1);
  }
  // All databases that were opened meanwhile must be closed.
  ~FailingFiles() {
    sqlite3_vfs_register(plain_, 1);
    sqlite3_vfs_unregister(&layer_);
    instance_ = nullptr;
  }
  FailingFiles(const FailingFiles&) = delete;
  FailingFiles& operator=(const FailingFiles&) = delete;

  // The nth of these calls from now on, counted from 1, fails once.
  void Fail(Call call, std::size_t nth) {
    call_ = call;
    left_ = nth;
  }
  // From now on none fails. Returns whether one has.
  bool Stop() { return std::exchange(left_, 0) == 0; }

 private:
  struct File {
    sqlite3_file base;
    sqlite3_file* Plain() { return reinterpret_cast<sqlite3_file*>(this + 1); }
  };
  static sqlite3_file* Plain(sqlite3_file* file) { return reinterpret_cast<File*>(file)->Plain(); }

  bool FailsNow(Call call) { return call == call_ && left_ > 0 && --left_ == 0; }

  static int Open(sqlite3_vfs*, sqlite3_filename name, sqlite3_file* file, int flags, int* out) {
    file->pMethods = nullptr;
    sqlite3_file* const plain = Plain(file);
    const int code = instance_->plain_->xOpen(instance_->plain_, name, plain, flags, out);
    if (code == SQLITE_OK || plain->pMethods != nullptr) file->pMethods = &kMethods;
    return code;
  }
  static int Write(sqlite3_file* file, const void* data, int size, sqlite3_int64 at) {
    if (instance_->FailsNow(Call::Write)) return SQLITE_IOERR_WRITE;
    return Plain(file)->pMethods->xWrite(Plain(file), data, size, at);
  }
  static int Truncate(sqlite3_file* file, sqlite3_int64 size) {
    if (instance_->FailsNow(Call::Truncate)) return SQLITE_IOERR_TRUNCATE;
    return Plain(file)->pMethods->xTruncate(Plain(file), size);
  }
  static int Sync(sqlite3_file* file, int flags) {
    if (instance_->FailsNow(Call::Sync)) return SQLITE_IOERR_FSYNC;
    return Plain(file)->pMethods->xSync(Plain(file), flags);
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
      [](sqlite3_file* f, int lock) { return Plain(f)->pMethods->xLock(Plain(f), lock); },
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

  static inline FailingFiles* instance_ = nullptr;
  sqlite3_vfs* plain_ = nullptr;
  sqlite3_vfs layer_{};
  Call call_ = Call::Sync;
  std::size_t left_ = 0;
};

}  // namespace pactora::support
