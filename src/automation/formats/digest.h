// A fixed-length text in the place of a long one.
#pragma once

#include <string>
#include <string_view>

namespace pactora::formats {

// The SHA-256 of the bytes as 64 lower-case hexadecimal digits.
std::string Sha256(std::string_view bytes);

}  // namespace pactora::formats
