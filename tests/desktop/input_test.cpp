// What people type as a date, and the letters that captions are reached by.
#include <gtest/gtest.h>

#include "desktop/binding/access_keys.h"
#include "desktop/binding/typed_date.h"

namespace pactora::desktop {
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
  const std::pair<std::vector<QString>, const char*> cases[] = {
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
    for (const QChar key : ChooseAccessKeys(texts))
      chosen += key.isNull() ? " " : QString(key).toStdString();
    EXPECT_EQ(chosen, keys);
  }
}

TEST(AccessKeys, AreMarkedAtTheBeginningOfAWord) {
  EXPECT_EQ(PlaceOfKey("mit Zahlung im voraus", 'v'), 15);
  EXPECT_EQ(PlaceOfKey("mit Zahlung im voraus", 'z'), 4);
  EXPECT_EQ(PlaceOfKey("Abbrechen", 'r'), 3);
  EXPECT_EQ(PlaceOfKey("Abbrechen", 'x'), -1);
}

}  // namespace
}  // namespace pactora::desktop
