// What people type as a date, and the letters that captions are reached by.
#include <gtest/gtest.h>

#include "dialogs/access_keys.h"
#include "dialogs/typed_date.h"

namespace pactora::dialogs {
namespace {

TEST(TypedDate, IsReadAsPeopleWriteIt) {
  const std::pair<const char*, std::vector<const char*>> cases[] = {
      {"15.03.2024",
       {"15.03.2024", "15.3.24", "15,3,24", "15/3/24", "15-3-24", "15 3 24", " 15.3.24 ",
        "15032024", "150324", "2024-03-15", "15.3.24."}},
      {"15.03.2020", {"15.3.", "15.3"}},
      {"01.01.2049", {"1.1.49"}},
      {"01.01.1950", {"1.1.50"}},
      {"29.02.2024", {"29.2.24"}},
      {"31.12.9999", {"31.12.9999"}},
      {"",
       {"29.2.23", "31.4.24", "0.1.24", "1.13.24", "1.1.124", "1..24", "1.1.24.5", "heute", "", ".",
        "5", "1.1.20244", "99999999999", "-1.1.24"}}};
  for (const auto& [read, texts] : cases) {
    for (const char* typed : texts) {
      const auto date = ReadTypedDate(typed, platform::FromCivil(2020, 5, 17));
      EXPECT_EQ(date ? platform::FormatDate(*date, platform::kGermanPattern) : "", read) << typed;
    }
  }
}

TEST(AccessKeys, AreDifferentTheFirstTextsChooseFirstAndMakeRoomForOneThatHasNoOtherLetter) {
  const std::pair<std::vector<std::string>, const char*> cases[] = {
      {{"Speichern", "Abbrechen"}, "sa"},
      {{"Speichern", "Status"}, "st"},
      {{"Nummer automatisch vergeben", "Notiz", "Art"}, "noa"},
      {{"->+", "<- -", "..."}, "-<."},
      {{"", "Dauer"}, " d"},
      {{"Ab", "A"}, "ba"},
      {{"Ab", "Bc", "A"}, "bca"},
      {{"A", "A"}, "a "}};
  for (const auto& [texts, keys] : cases) {
    std::string chosen;
    for (const AccessKey key : ChooseAccessKeys(texts))
      chosen += static_cast<char>(key ? key : ' ');
    EXPECT_EQ(chosen, keys);
  }
}

TEST(AccessKeys, AreMarkedAtTheBeginningOfAWord) {
  EXPECT_EQ(WithMark("mit Zahlung im voraus", 'v'), "mit Zahlung im &voraus");
  EXPECT_EQ(WithMark("Jahr für Jahr", 'r'), "Jah&r für Jahr");
  EXPECT_EQ(WithMark("Über & über", 0xFC), "&Über && über");
  EXPECT_EQ(WithMark("Abbrechen", 'x'), "Abbrechen");
}

}  // namespace
}  // namespace pactora::dialogs
