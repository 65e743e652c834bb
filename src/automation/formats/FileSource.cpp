#include <fstream>

#include "automation/formats/TextSource.h"
#include "automation/formats/files.h"
#include "automation/formats/json.h"

namespace pactora::formats {

TextSource FileSource(const std::string& path) {
  if (path == kStandardStream) return MemorySource("Standardeingabe", ReadStandardInput());
  const auto open = [path]() -> std::unique_ptr<std::istream> {
    auto in = std::make_unique<std::ifstream>(path, std::ios::binary);
    // A folder can be opened, but not read.
    if (!*in || in->peek() == std::ifstream::traits_type::eof()) {
      if (!*in && !in->eof()) Place(path).Fail("die Datei kann nicht gelesen werden");
      in->clear();
    }
    return in;
  };
  open();
  return {path, open};
}

}  // namespace pactora::formats
