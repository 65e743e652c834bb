#include "automation/formats/ScratchFile.h"

#include <fmt/format.h>
#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <filesystem>
#include <system_error>
#include <utility>

#include "automation/formats/errors.h"
#include "automation/formats/files.h"

namespace pactora::formats {

namespace fs = std::filesystem;

namespace {

constexpr const char* kMark = ".pactora-neu-";  // and the number of the process

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

}  // namespace

ScratchFile::ScratchFile(std::string target)
    : target_(std::move(target)), path_(fmt::format("{}{}{}", target_, kMark, ::getpid())) {
  RemoveLeftovers(target_);
}

ScratchFile::~ScratchFile() {
  std::error_code ignored;
  fs::remove(path_, ignored);
  fs::remove(path_ + "-journal", ignored);
}

bool ScratchFile::ReplaceTarget() const {
  std::error_code failure;
  fs::rename(path_, target_, failure);
  return !failure;
}

void ScratchFile::BecomeTarget() const {
  std::error_code failure;
  fs::create_hard_link(path_, target_, failure);
  if (!failure) return;
  // The file system has no links, or the name is taken.
  if (fs::exists(target_)) RaiseTaken(target_);
  if (!ReplaceTarget())
    Raise(DoorError::NotCarriedOut,
          fmt::format("{}: die Datei kann nicht angelegt werden", target_));
}

}  // namespace pactora::formats
