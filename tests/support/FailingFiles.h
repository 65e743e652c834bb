// Files that fail: while one lives, every SQLite file is reached through a layer in which
// calls of the system fail, writes are cut short and power cuts lose what was not synced.
// Syncs are not waited for.
#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace pactora::support {

class FailingFiles {
 public:
  enum Call : unsigned {
    kOpen = 1,
    kLock = 2,
    kWrite = 4,
    kSync = 8,
    kTruncate = 16,
    kDelete = 32,
    kChanges = kOpen | kWrite | kSync | kTruncate | kDelete
  };
  struct Fault {
    unsigned calls = 0;       // those that are counted, and that fail
    bool goes_on = false;     // fails once, or from there on
    bool shortens = false;    // a write is carried out by half, as the disk is full
    bool cuts_power = false;  // in the end
  };

  FailingFiles();
  // All databases that were opened meanwhile must be closed.
  ~FailingFiles();
  FailingFiles(const FailingFiles&) = delete;
  FailingFiles& operator=(const FailingFiles&) = delete;

  // The nth of the fault's calls from now on, counted from 1, fails. The seed decides what a
  // power cut leaves.
  void Fail(const Fault& fault, std::size_t nth, unsigned seed = 0);
  // From now on none fails. Cuts the power where the fault says so; all databases must be
  // closed then. Returns whether a call has failed.
  bool Stop();

 private:
  struct Change {
    Call what;  // kOpen makes the file where there is none
    std::size_t at = 0;
    std::string bytes = {};
  };
  // A file under a power cut: what is on the disk for certain, and what came after.
  struct Unsynced {
    std::optional<std::string> kept;
    std::vector<Change> changes = {};
  };
  struct Methods;

  bool FailsNow(Call call);
  void Note(const char* name, Change change);
  void NoteSync(const char* name);
  Unsynced& FileOf(const char* name);
  static void Carry(const Change& change, std::optional<std::string>& file);
  void CutPower();

  sqlite3_vfs* plain_ = nullptr;
  sqlite3_vfs layer_{};
  Fault fault_;
  std::size_t nth_ = 0;  // 0: none fails
  std::size_t seen_ = 0;
  std::mt19937 random_;
  std::map<std::string, Unsynced> unsynced_;
};

}  // namespace pactora::support
