// Numbers, Oids and error numbers as text.
#include "automation/dataset/values.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

#include "automation/formats/JsonWriter.h"
#include "automation/formats/errors.h"
#include "platform/Error.h"

namespace pactora::dataset {
namespace {

TEST(NumberText, IsTheShortestThatReadsBackWithoutExponentForEverydaySizes) {
  const std::pair<double, const char*> cases[] = {
      {0.0, "0"},
      {-0.0, "-0.0"},
      {1200.0, "1200"},
      {0.1, "0.1"},
      {-12.5, "-12.5"},
      {100000.0, "100000"},
      {8.33, "8.33"},
      {1.0 / 3.0, "0.3333333333333333"},
      {0.1 + 0.2, "0.30000000000000004"},
      {1e20, "100000000000000000000"},
      {1e21, "1e+21"},
      {1e-7, "0.0000001"},
      {5e-324, "5e-324"},
      {std::numeric_limits<double>::max(), "1.7976931348623157e+308"},
  };
  for (const auto& [number, text] : cases) {
    EXPECT_EQ(formats::NumberText(number), text);
    EXPECT_EQ(std::strtod(text, nullptr), number) << text;
  }
  EXPECT_THROW(formats::NumberText(std::nan("")), platform::Error);
  EXPECT_THROW(formats::NumberText(std::numeric_limits<double>::infinity()), platform::Error);
}

TEST(Oids, AreCanonicalPositiveNumbers) {
  EXPECT_EQ(store::ParseOid("1"), 1);
  EXPECT_EQ(store::ParseOid("9007199254740991"), store::kLargestOid);
  for (const char* text : {"", "0", "-1", "+1", "01", " 1", "1 ", "1.0", "x", "9007199254740992",
                           "99999999999999999999"})
    EXPECT_FALSE(store::ParseOid(text)) << text;
}

TEST(ErrorNumbers, AreHexadecimalTexts) {
  EXPECT_EQ(formats::ErrorNumberText(-2147201023), "0x80045001");
  EXPECT_EQ(formats::ErrorNumberText(5), "0x5");
  const formats::Place place("x");
  EXPECT_EQ(ReadErrorNumber("0x80045001", place), -2147201023);
  EXPECT_EQ(ReadErrorNumber("0xD", place), 13);
  for (const formats::Json& bad :
       {formats::Json("80045001"), formats::Json("0x080045001"), formats::Json("0xd"),
        formats::Json("0x"), formats::Json("0x800450011"), formats::Json("0x5 "), formats::Json(5)})
    EXPECT_THROW(ReadErrorNumber(bad, place), platform::Error) << bad;
}

}  // namespace
}  // namespace pactora::dataset
