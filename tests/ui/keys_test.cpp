#include "ui/keys.h"

#include <gmock/gmock.h>

namespace pactora::ui {
namespace {

using testing::ElementsAre;

TEST(Keys, AreTheCharactersOfAText) {
  EXPECT_THAT(KeysOf("1,\xFFü€😀"), ElementsAre('1', ',', 0xFC, 0x20AC, 0x1F600));
  EXPECT_THAT(KeysOf("a\nb\r\nc"), ElementsAre('a', kReturn, 'b', kReturn, 'c'));
}

TEST(Keys, TypeTheirCharacterBack) {
  for (const char* text : {"1", "ü", "ß", "€", "😀", "\xF4\x8F\xBF\xBF"}) {
    ASSERT_EQ(KeysOf(text).size(), 1U);
    EXPECT_EQ(CharacterOf(KeysOf(text)[0]), text);
  }
  for (const std::int32_t key : {-1, 0, 8, 13, 0x7F, 0xD800, 0x110000}) {
    EXPECT_EQ(CharacterOf(key), "") << key;
  }
}

}  // namespace
}  // namespace pactora::ui
