#include "automation/formats/ScratchFile.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <filesystem>
#include <random>
#include <system_error>
#include <utility>

#include "automation/formats/errors.h"
#include "automation/formats/files.h"

namespace pactora::formats {

namespace fs = std::filesystem;

namespace {

constexpr const char* kMark = ".pactora-neu-";  // the number of the process, and a drawn one

void RemoveLeftovers(const std::string& target) {
  const fs::path path = fs::absolute(target);
  const std::string begin = path.filename().string() + kMark;
  std::error_code failed;
  for (const fs::directory_entry& entry : fs::directory_iterator(path.parent_path(), failed)) {
    const std::string file = entry.path().filename().string();
    if (!file.starts_with(begin)) continue;
    pid_t process = 0;
    const char* const digits = file.c_str() + begin.size();
    std::from_chars(digits, file.c_str() + file.size(), process);
    // A process that is still running keeps its file.
    const bool is_mine = process == ::getpid();  // process numbers are used again
    if (process <= 0 || (!is_mine && (::kill(process, 0) == 0 || errno != ESRCH))) continue;
    std::error_code ignored;
    fs::remove(entry.path(), ignored);
  }
}

// Makes the name safe from a power cut, as far as its folder may be read and its file system
// can do that. Returns whether that succeeded.
bool SyncFolder(const std::string& path) {
  const std::string folder = fs::absolute(path).parent_path().string();
  const int file = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (file < 0) return true;
  const bool synced = ::fsync(file) == 0 || errno == EINVAL;
  return ::close(file) == 0 && synced;
}

bool MakeAlone(const std::string& path) {
  const mode_t usual = S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
  const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, usual);
  return file >= 0 && ::close(file) == 0;
}

}  // namespace

ScratchFile::ScratchFile(std::string target) : target_(std::move(target)) {
  RemoveLeftovers(target_);
  std::random_device random;
  path_ = fmt::format("{}{}{}-{:08x}{:08x}", target_, kMark, ::getpid(), random(), random());
  if (!MakeAlone(path_)) RaiseUnwritable(target_);
}

ScratchFile::~ScratchFile() {
  std::error_code ignored;
  fs::remove(path_, ignored);
  fs::remove(path_ + "-journal", ignored);
}

bool ScratchFile::ReplaceTarget() const {
  std::error_code failure;
  fs::rename(path_, target_, failure);
  return !failure && SyncFolder(target_);
}

void ScratchFile::BecomeTarget() const {
  std::error_code failure;
  fs::create_hard_link(path_, target_, failure);
  if (failure && fs::exists(fs::symlink_status(target_))) RaiseTaken(target_);
  // Where the file system has no links, it is moved there.
  if (failure ? !ReplaceTarget() : !SyncFolder(target_))
    Raise(DoorError::NotCarriedOut,
          fmt::format("{}: die Datei kann nicht angelegt werden", target_));
}

}  // namespace pactora::formats
