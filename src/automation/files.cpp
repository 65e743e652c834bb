#include "automation/files.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <system_error>

#include "automation/errors.h"

namespace pactora::automation {
namespace {

// What was written to the file is safe from a power cut.
bool Sync(const std::string& path) {
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return false;
  const bool synced = ::fsync(file) == 0;
  return ::close(file) == 0 && synced;
}

}  // namespace

void ReplaceFile(const std::string& path, const std::string& text) {
  ReplaceFile(path, [&text](std::ostream& out) { out << text; });
}

void ReplaceFile(const std::string& path, const std::function<void(std::ostream&)>& fill) {
  const std::string beside = path + ".neu";
  std::error_code ignored;
  try {
    std::ofstream out(beside, std::ios::binary);
    if (out) fill(out);
    out.close();
    std::error_code failed;
    if (out && Sync(beside)) {
      std::filesystem::rename(beside, path, failed);
      if (!failed) return;
    }
    RaiseUnwritable(path);
  } catch (...) {
    std::filesystem::remove(beside, ignored);
    throw;
  }
}

void RaiseUnwritable(const std::string& path) {
  Raise(DoorError::NotCarriedOut, fmt::format("{}: die Datei kann nicht geschrieben werden", path));
}

}  // namespace pactora::automation
