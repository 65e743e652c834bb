// The error that a call raises.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "platform/Error.h"

namespace pactora::support {

inline std::optional<platform::Error> ErrorOf(const std::function<void()>& body) {
  try {
    body();
  } catch (const platform::Error& error) {
    return error;
  }
  return std::nullopt;
}

// 0 when it raises none.
inline std::int32_t ErrorNumberOf(const std::function<void()>& body) {
  const auto error = ErrorOf(body);
  return error ? error->Number() : 0;
}

}  // namespace pactora::support
