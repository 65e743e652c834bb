#include "automation/files.h"

#include <fmt/format.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <system_error>

#include "automation/errors.h"

namespace pactora::automation {

void ReplaceFile(const std::string& path, const std::string& text) {
  const std::string beside = path + ".neu";
  std::FILE* file = std::fopen(beside.c_str(), "wb");
  bool written = file != nullptr && std::fwrite(text.data(), 1, text.size(), file) == text.size() &&
                 std::fflush(file) == 0 && fsync(fileno(file)) == 0;
  if (file != nullptr) written = std::fclose(file) == 0 && written;
  std::error_code failed;
  if (written) std::filesystem::rename(beside, path, failed);
  if (written && !failed) return;
  std::error_code ignored;
  std::filesystem::remove(beside, ignored);
  Raise(DoorError::BadInput, fmt::format("{}: die Datei kann nicht geschrieben werden", path));
}

}  // namespace pactora::automation
