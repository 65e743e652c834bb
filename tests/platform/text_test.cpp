#include "platform/Text.h"

#include <gtest/gtest.h>

namespace pactora::platform {
namespace {

TEST(Texts, CharactersAreCountedAndCutWhole) {
  struct {
    std::string_view text;
    std::size_t length;
    std::string_view first_two;
    std::string_view last_two;
  } const rows[] = {
      {"abc", 3, "ab", "bc"},
      {"Größe", 5, "Gr", "ße"},
      {"äöü", 3, "äö", "öü"},
      {"€😀x", 3, "€😀", "😀x"},
      {"\xFF\xC3z", 3, "\xFF\xC3", "\xC3z"},        // bytes that are no UTF-8
      {"\xE2\x82", 2, "\xE2\x82", "\xE2\x82"},      // cut off in the middle
      {"\xC0\xAF", 2, "\xC0\xAF", "\xC0\xAF"},      // overlong
      {"\xED\xA0\x80", 3, "\xED\xA0", "\xA0\x80"},  // surrogate
  };
  for (const auto& [text, length, first_two, last_two] : rows) {
    EXPECT_EQ(Length(text), length) << text;
    EXPECT_EQ(FirstCharacters(text, 2), first_two) << text;
    EXPECT_EQ(LastCharacters(text, 2), last_two) << text;
    EXPECT_EQ(FirstCharacters(text, 100), text);
    EXPECT_EQ(LastCharacters(text, 100), text);
    EXPECT_EQ(FirstCharacters(text, 0), "");
    EXPECT_EQ(LastCharacters(text, 0), "");
  }
}

TEST(Texts, ValidUtf8IsToldFromInvalid) {
  for (const char* valid : {"", "abc", "äß€", "😀", "\xF4\x8F\xBF\xBF", "\xEF\xBF\xBF"}) {
    EXPECT_TRUE(IsValidUtf8(valid)) << valid;
  }
  for (const char* invalid :
       {"\x80", "\xC3", "\xC3(", "\xC0\x80", "\xC1\xBF", "\xE0\x80\xAF", "\xE2\x82", "\xED\xA0\x80",
        "\xF0\x80\x80\xAF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFE", "abc\xFF"}) {
    EXPECT_FALSE(IsValidUtf8(invalid)) << invalid;
  }
}

TEST(Texts, CaseIsMappedOneCharacterToOne) {
  struct {
    std::string_view text;
    std::string_view upper;
    std::string_view lower;
  } const rows[] = {{"GültigVom [@`{", "GÜLTIGVOM [@`{", "gültigvom [@`{"},
                    {"Straße", "STRAßE", "straße"},
                    {"äöü ÄÖÜ", "ÄÖÜ ÄÖÜ", "äöü äöü"},
                    {"éÿ÷×", "ÉŸ÷×", "éÿ÷×"},
                    {"ẞ", "ẞ", "ß"},
                    {"Ελλάς", "ΕΛΛΆΣ", "ελλάς"},
                    {"Договор ё", "ДОГОВОР Ё", "договор ё"},
                    {"ǆ ǅ", "Ǆ Ǆ", "ǆ ǆ"},  // a title-case character between the two
                    {"ᾳ", "ᾼ", "ᾳ"},        // its full upper case would be two characters
                    {"ﬁ ŉ", "ﬁ ŉ", "ﬁ ŉ"},  // nor are these taken apart
                    {"ı ſ", "I S", "ı ſ"},  // from two bytes to one
                    {"ɐ", "Ɐ", "ɐ"},        // from two bytes to three
                    {"𐐨", "𐐀", "𐐨"},
                    {"a\xFF\xC3z", "A\xFF\xC3Z", "a\xFF\xC3z"}};
  for (const auto& [text, upper, lower] : rows) {
    EXPECT_EQ(UpperCase(text), upper) << text;
    EXPECT_EQ(LowerCase(text), lower) << text;
    std::string appended = "x";
    AppendUpperCase(appended, text);
    EXPECT_EQ(appended, "x" + std::string(upper));
  }
}

TEST(Texts, EqualWithoutRegardToCaseMeansEqualUpperCase) {
  const std::string_view texts[] = {
      "",   "a", "A", "b", "ab", "AB", "Gültig", "GÜLTIG", "GÜLTIGE", "ß",     "ẞ",
      "ss", "ſ", "S", "σ", "ς",  "Σ",  "\xFF",   "\xC3",   "ÿ",       "a\xFF", "A\xFF"};
  for (const std::string_view a : texts) {
    for (const std::string_view b : texts) {
      EXPECT_EQ(EqualsIgnoringCase(a, b), UpperCase(a) == UpperCase(b)) << a << " " << b;
    }
  }
  EXPECT_TRUE(EqualsIgnoringCase("GÜLTIGVOM", "GültigVom"));
  EXPECT_TRUE(EqualsIgnoringCase("ſ", "s"));
  EXPECT_FALSE(EqualsIgnoringCase("ß", "ss"));
}

}  // namespace
}  // namespace pactora::platform
