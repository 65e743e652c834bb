// The columns of the list of positions, and how a row of the list, a stored
// position and a position in memory become one another.
//
// The list is the working copy of the positions and holds text alone. Numbers in
// it are written in the user's locale.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "definitions/vv_CPosition.h"
#include "host/HostTable.h"
#include "platform/Locale.h"
#include "ui/ListView.h"

namespace pactora::definitions {

// NOLINTBEGIN(readability-identifier-naming): each constant is called like its column's key.
namespace column {
inline constexpr std::int32_t RecordOID = 0;  // empty for a row that is not stored yet
inline constexpr std::int32_t Artikel = 1;
inline constexpr std::int32_t Anzahl = 2;
inline constexpr std::int32_t Nettopreis = 3;
inline constexpr std::int32_t GPreis = 4;  // quantity times price
inline constexpr std::int32_t Artikelnummer = 5;
inline constexpr std::int32_t Artikelart = 6;
inline constexpr std::int32_t Einheit = 7;
inline constexpr std::int32_t USTSatz = 8;
inline constexpr std::int32_t Beschreibung = 9;
inline constexpr std::int32_t Erloeskonto = 10;
inline constexpr std::int32_t ArtikelID = 11;
inline constexpr std::int32_t PreisM1 = 12;  // the eight unit prices, to 19
inline constexpr std::int32_t Preis = 20;
inline constexpr std::int32_t PreisOhne = 21;
inline constexpr std::int32_t Gruppierung = 22;
inline constexpr std::size_t kCount = 23;
}  // namespace column
// NOLINTEND(readability-identifier-naming)

// What the stored position's field of that name would hold. Raises error 438 for a
// name that the position does not have.
host::Value FieldOf(const vv_CPosition& position, std::string_view name);

void AddPositionColumns(ui::ListView& list);

// The texts of a row by column.
using PositionTexts = std::vector<std::string>;

// From the current row of the stored positions, its Oid included.
PositionTexts TextsOfStored(host::HostTable& positions, const platform::Locale& locale);
// From memory. The Oid and the group stay empty.
PositionTexts TextsOfRecord(const vv_CPosition& position, const platform::Locale& locale);
void AppendRow(ui::ListView& list, PositionTexts texts);

// The row's position as a record. Raises error 13 for a number column that holds
// no number and error 6 for an account beyond 32 bits.
vv_CPosition RecordOf(const ui::ListView& list, std::int32_t row, const platform::Locale& locale);

// Writes the row's columns into the fields of the current row. A number that was
// never written stays so.
void WriteColumns(const ui::ListView& list, std::int32_t row, host::HostTable& positions,
                  const platform::Locale& locale);

// The row's total for one payment period.
double TotalOf(const ui::ListView& list, std::int32_t row, const platform::Locale& locale);

// The placeholder that a creditor type has instead of positions.
vv_CPosition DummyPosition();
// Writes the placeholder into the current row; VAT rate and account are left alone.
void WriteDummyFields(host::HostTable& positions);

}  // namespace pactora::definitions
