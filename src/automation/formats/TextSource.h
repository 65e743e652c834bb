// A text that is read: a file, standard input, or what stands in memory.
#pragma once

#include <functional>
#include <istream>
#include <memory>
#include <string>

namespace pactora::formats {

// A text that is read from its beginning more than once.
struct TextSource {
  std::string name;  // for messages
  std::function<std::unique_ptr<std::istream>()> open;
};

// "-" is standard input, read once and kept. Raises DoorError::BadInput for a file
// that can't be read.
TextSource FileSource(const std::string& path);
TextSource MemorySource(const std::string& name, std::string text);

}  // namespace pactora::formats
