#include <gtest/gtest.h>

#include "desktop/binding/access_keys.h"
#include "desktop/binding/typed_date.h"

namespace pactora::desktop {
namespace {

struct DateCase {
  const char* typed;
  const char* read;  // empty for no date
};

TEST(TypedDate, IsReadAsPeopleWriteIt) {
  const DateCase cases[] = {
      {"15.03.2024", "15.03.2024"},
      {"1.2.2024", "01.02.2024"},
      {"15.3.24", "15.03.2024"},
      {"1.1.49", "01.01.2049"},
      {"1.1.50", "01.01.1950"},
      {"15.3.", "15.03.2020"},
      {"15.3", "15.03.2020"},
      {"15,3,24", "15.03.2024"},
      {"15/3/24", "15.03.2024"},
      {"15-3-24", "15.03.2024"},
      {"15 3 24", "15.03.2024"},
      {" 15.3.24 ", "15.03.2024"},
      {"15032024", "15.03.2024"},
      {"150324", "15.03.2024"},
      {"2024-03-15", "15.03.2024"},
      {"29.2.24", "29.02.2024"},
      {"31.12.9999", "31.12.9999"},
      {"29.2.23", ""},
      {"31.4.24", ""},
      {"0.1.24", ""},
      {"1.13.24", ""},
      {"1.1.124", ""},
      {"1..24", ""},
      {"1.1.24.", "01.01.2024"},
      {"1.1.24.5", ""},
      {"heute", ""},
      {"", ""},
      {".", ""},
      {"5", ""},
      {"1.1.20244", ""},
      {"99999999999", ""},
      {"-1.1.24", ""},
  };
  for (const DateCase& c : cases) {
    const auto date = ReadTypedDate(c.typed, platform::FromCivil(2020, 5, 17));
    EXPECT_EQ(date ? platform::FormatDate(*date, platform::kGermanPattern) : "", c.read) << c.typed;
  }
}

TEST(TypedDate, EveryDayOfFiveYearsReadsBack) {
  const std::int32_t first = platform::DayNumber({2022, 1, 1});
  for (std::int32_t day = first; day < first + 5 * 365; ++day) {
    const platform::Date date{static_cast<double>(day)};
    for (const char* pattern : {"dd.MM.yyyy", "d.M.yy", "ddMMyyyy", "yyyy-MM-dd"}) {
      EXPECT_EQ(ReadTypedDate(platform::FormatDate(date, pattern), platform::kNoDate), date);
    }
  }
}

std::string Keys(const std::vector<QString>& texts) {
  std::string keys;
  for (const QChar key : ChooseAccessKeys(texts)) {
    keys += key.isNull() ? " " : QString(key).toStdString();
  }
  return keys;
}

TEST(AccessKeys, AreDifferentAndTheFirstTextsChooseFirst) {
  EXPECT_EQ(Keys({"Speichern", "Abbrechen"}), "sa");
  EXPECT_EQ(Keys({"Speichern", "Status"}), "st");
  EXPECT_EQ(Keys({"Nummer automatisch vergeben", "Notiz", "Art"}), "noa");
  EXPECT_EQ(Keys({"->+", "<- -", "..."}), "-<.");
  EXPECT_EQ(Keys({"", "Dauer"}), " d");
}

TEST(AccessKeys, MakeRoomForATextThatHasNoOtherLetter) {
  EXPECT_EQ(Keys({"Ab", "A"}), "ba");
  EXPECT_EQ(Keys({"Ab", "Bc", "A"}), "bca");
  EXPECT_EQ(Keys({"A", "A"}), "a ");
}

TEST(AccessKeys, AreMarkedAtTheBeginningOfAWord) {
  EXPECT_EQ(PlaceOfKey("mit Zahlung im voraus", 'v'), 15);
  EXPECT_EQ(PlaceOfKey("mit Zahlung im voraus", 'z'), 4);
  EXPECT_EQ(PlaceOfKey("Abbrechen", 'r'), 3);
  EXPECT_EQ(PlaceOfKey("Abbrechen", 'x'), -1);
}

}  // namespace
}  // namespace pactora::desktop
