// Oids and error numbers as text.
#include "automation/dataset/values.h"

#include <gtest/gtest.h>

#include "automation/formats/errors.h"
#include "platform/Error.h"

namespace pactora::dataset {
namespace {

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
