#include "platform/Error.h"

#include <gtest/gtest.h>

namespace pactora::platform {
namespace {

TEST(Errors, NumbersReadAsTheirBits) {
  struct {
    std::int32_t number;
    std::string_view hex;
  } const rows[] = {{5, "5"},         {0, "0"},
                    {255, "FF"},      {ErrorNumber(0x80045001), "80045001"},
                    {-1, "FFFFFFFF"}, {INT32_MIN, "80000000"}};
  for (const auto& [number, hex] : rows) EXPECT_EQ(HexNumber(number), hex);
  EXPECT_EQ(ErrorNumber(0x80045001), -2147201023);
}

TEST(Errors, ARaisedRunTimeErrorCarriesNumberTextAndSource) {
  try {
    Raise(RuntimeError::Overflow);
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.Number(), 6);
    EXPECT_EQ(error.Description(), "Überlauf");
    EXPECT_EQ(error.Source(), "Pactora2");
    EXPECT_STREQ(error.what(), "Überlauf");
  }
}

}  // namespace
}  // namespace pactora::platform
