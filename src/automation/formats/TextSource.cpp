#include "automation/formats/TextSource.h"

#include <sstream>
#include <utility>

namespace pactora::formats {

TextSource MemorySource(const std::string& name, std::string text) {
  const auto kept = std::make_shared<const std::string>(std::move(text));
  return {name, [kept] { return std::make_unique<std::istringstream>(*kept); }};
}

}  // namespace pactora::formats
