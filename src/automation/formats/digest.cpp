#include "automation/formats/digest.h"

#include <fmt/format.h>
#include <openssl/evp.h>

#include <array>
#include <new>

namespace pactora::formats {

std::string Sha256(std::string_view bytes) {
  std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
  unsigned int size = 0;
  if (EVP_Digest(bytes.data(), bytes.size(), digest.data(), &size, EVP_sha256(), nullptr) != 1)
    throw std::bad_alloc();
  std::string text;
  for (unsigned int i = 0; i < size; ++i) text += fmt::format("{:02x}", digest[i]);
  return text;
}

}  // namespace pactora::formats
