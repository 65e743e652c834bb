#include "automation/formats/files.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <poll.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <system_error>

#include "automation/formats/ScratchFile.h"
#include "automation/formats/errors.h"

namespace pactora::formats {

namespace fs = std::filesystem;

namespace {

// The file that the name leads to, over links, also one that leads to no file yet.
std::string Followed(const std::string& path) {
  constexpr int kMostLinks = 40;  // as many as the system itself follows
  fs::path file = path;
  std::error_code failed;
  for (int links = 0; links < kMostLinks && fs::is_symlink(file, failed); ++links)
    file = file.parent_path() / fs::read_symlink(file, failed);
  return file.string();
}

// Gives the file the permissions and, where that is allowed, the owner of the one that it
// replaces.
bool Adopt(const std::string& path, const struct stat& replaced) {
  constexpr mode_t kPermissions = 07777;
  // Where this user may not set the owner, the file stays this user's.
  static_cast<void>(::chown(path.c_str(), replaced.st_uid, replaced.st_gid) == 0);
  return ::chmod(path.c_str(), replaced.st_mode & kPermissions) == 0;
}

// Makes what was written to the file safe from a power cut.
bool Sync(const std::string& path) {
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return false;
  const bool synced = ::fsync(file) == 0;
  return ::close(file) == 0 && synced;
}

bool Write(const std::string& path, const std::function<void(std::ostream&)>& fill) {
  std::ofstream out(path, std::ios::binary);
  if (out) fill(out);
  out.close();
  return !out.fail();
}

}  // namespace

void ReplaceFile(const std::string& path, const std::string& text) {
  ReplaceFile(path, [&text](std::ostream& out) { out << text; });
}

void ReplaceFile(const std::string& path, const std::function<void(std::ostream&)>& fill) {
  struct stat now {};
  const bool exists = ::stat(path.c_str(), &now) == 0;
  if (exists && !S_ISREG(now.st_mode)) {
    if (S_ISDIR(now.st_mode) || !Write(path, fill)) RaiseUnwritable(path);
    return;
  }
  const ScratchFile beside(Followed(path));
  if ((exists && !Adopt(beside.Path(), now)) || !Write(beside.Path(), fill) ||
      !Sync(beside.Path()) || !beside.ReplaceTarget())
    RaiseUnwritable(path);
}

std::string ReadStandardInput() {
  std::string text;
  std::array<char, 1 << 16> buffer{};
  for (;;) {
    // Unlike read, poll is not resumed after a signal.
    pollfd input{STDIN_FILENO, POLLIN, 0};
    if (::poll(&input, 1, -1) < 0) RaiseInterrupted();
    const ssize_t count = ::read(STDIN_FILENO, buffer.data(), buffer.size());
    if (count < 0) Raise(DoorError::BadInput, "Standardeingabe: sie kann nicht gelesen werden");
    if (count == 0) return text;
    text.append(buffer.data(), static_cast<std::size_t>(count));
  }
}

void WriteOutput(const std::string& path, const std::function<void(std::ostream&)>& fill) {
  if (path == kStandardStream)
    fill(std::cout);
  else
    ReplaceFile(path, fill);
}

void RaiseTaken(const std::string& path) {
  Raise(DoorError::BadInput, path + ": die Datei gibt es schon");
}

void RaiseUnwritable(const std::string& path) {
  Raise(DoorError::NotCarriedOut, fmt::format("{}: die Datei kann nicht geschrieben werden", path));
}

bool IsSameFile(const std::string& one, const std::string& other) {
  std::error_code ignored;
  if (fs::equivalent(one, other, ignored)) return true;
  return fs::weakly_canonical(fs::absolute(Followed(one)), ignored) ==
         fs::weakly_canonical(fs::absolute(Followed(other)), ignored);
}

void RequireWritable(const std::string& path) {
  std::error_code ignored;
  const fs::path file = fs::absolute(path);
  const fs::path place = fs::exists(file, ignored) ? file : file.parent_path();
  if (::access(place.c_str(), W_OK) != 0) RaiseUnwritable(path);
}

bool TryReserve(std::FILE* file) { return ::flock(::fileno(file), LOCK_EX | LOCK_NB) == 0; }

bool Sync(std::FILE* file) { return std::fflush(file) == 0 && ::fsync(::fileno(file)) == 0; }

bool IsTerminal(std::FILE* file) { return ::isatty(::fileno(file)) != 0; }

void GuardStandardStreams() {
  ::signal(SIGPIPE, SIG_IGN);
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
    if (::fcntl(stream, F_GETFD) < 0)
      ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
}

bool IsForWriting(std::FILE* file) {
  return (::fcntl(::fileno(file), F_GETFL) & O_ACCMODE) != O_RDONLY;
}

void BecomeProgram(std::string program, std::vector<std::string> arguments) {
  std::vector<char*> words{program.data()};
  for (std::string& argument : arguments) words.push_back(argument.data());
  words.push_back(nullptr);
  ::execv(program.c_str(), words.data());
}

}  // namespace pactora::formats
