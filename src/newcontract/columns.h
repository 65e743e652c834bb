// The columns of lvwBezeichnung. Its rows are the dialog's cache of the released
// contract types: a row holds a type's key data and its Oid.
#pragma once

#include <cstdint>

namespace pactora::newcontract::column {

inline constexpr std::int32_t kArtStr = 1;
inline constexpr std::int32_t kOid = 2;
inline constexpr std::int32_t kTyp = 3;
inline constexpr std::int32_t kArt = 4;
inline constexpr std::int32_t kRechnungWann = 5;
inline constexpr std::int32_t kDauer = 6;
inline constexpr std::int32_t kZahlungsperiode = 7;
inline constexpr std::int32_t kVerlDauer = 8;
inline constexpr std::int32_t kVerlZahlungsperiode = 9;
inline constexpr std::int32_t kNoBooking = 11;  // 10 is the side in words
inline constexpr std::int32_t kCount = 12;      // the name in column 0 included

}  // namespace pactora::newcontract::column
