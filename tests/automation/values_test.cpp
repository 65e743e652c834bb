// Numbers, dates, Oids and error numbers as text.
#include "automation/values.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <string>

#include "automation/JsonWriter.h"
#include "platform/Date.h"
#include "platform/Error.h"

namespace pactora::automation {
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
    EXPECT_EQ(NumberText(number), text);
    EXPECT_EQ(std::strtod(text, nullptr), number) << text;
  }
  EXPECT_THROW(NumberText(std::nan("")), platform::Error);
  EXPECT_THROW(NumberText(std::numeric_limits<double>::infinity()), platform::Error);
}

TEST(Dates, ReadAndWriteTheSameText) {
  for (const char* text :
       {"2024-02-29", "0100-01-01", "9999-12-31", "1899-12-29", "2024-03-15T09:00:00",
        "1899-12-29T06:30:00", "1899-12-30T09:00:00", "2024-12-31T23:59:59"}) {
    const auto date = ParseDate(text);
    ASSERT_TRUE(date) << text;
    EXPECT_EQ(DateText(*date), text);
  }
  EXPECT_EQ(ParseDate("2024-03-15T09:00:00")->days, platform::FromCivil(2024, 3, 15).days + 0.375);
  // Half a second before midnight is the next day.
  EXPECT_EQ(DateText(platform::Date{platform::FromCivil(2024, 2, 29).days + 1.0 - 0.4 / 86400.0}),
            "2024-03-01");
}

TEST(Dates, AnythingElseIsNone) {
  for (const char* text : {"", "2024-02-30", "2023-02-29", "2024-13-01", "2024-00-10", "2024-01-00",
                           "0099-12-31", "24-01-01", "2024/01/01", "15.03.2024", "2024-3-15",
                           "2024-03-15 09:00:00", "2024-03-15T24:00:00", "2024-03-15T09:60:00",
                           "2024-03-15T09:00", "2024-03-1x", "+024-03-15", "2024-03-15T09:00:00Z"})
    EXPECT_FALSE(ParseDate(text)) << text;
}

TEST(Oids, AreCanonicalPositiveNumbers) {
  EXPECT_EQ(ParseOid("1"), 1);
  EXPECT_EQ(ParseOid("9007199254740991"), kLargestOid);
  for (const char* text : {"", "0", "-1", "+1", "01", " 1", "1 ", "1.0", "x", "9007199254740992",
                           "99999999999999999999"})
    EXPECT_FALSE(ParseOid(text)) << text;
}

TEST(ErrorNumbers, AreHexadecimalTexts) {
  EXPECT_EQ(ErrorNumberText(-2147201023), "0x80045001");
  EXPECT_EQ(ErrorNumberText(5), "0x5");
  const Place place("x");
  EXPECT_EQ(ReadErrorNumber("0x80045001", place), -2147201023);
  EXPECT_EQ(ReadErrorNumber("0xD", place), 13);
  for (const Json& bad : {Json("80045001"), Json("0x080045001"), Json("0xd"), Json("0x"),
                          Json("0x800450011"), Json("0x5 "), Json(5)})
    EXPECT_THROW(ReadErrorNumber(bad, place), platform::Error) << bad;
}

}  // namespace
}  // namespace pactora::automation
