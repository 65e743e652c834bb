// The dialog-free road to a contract: checks the caller's records, then writes
// the contract, its appointments, its status row, its positions and the address
// attribute.
//
// All routines work on the module's gApi group. Every row is stored by itself; a
// failure undoes nothing. But for ArticlesExist and CreateContractFromRecords a
// routine raises an error again with the source "modAPI.<routine>".
#pragma once

#include <array>
#include <cstdint>

#include "contract/money.h"
#include "schema/names.h"
#include "shell/Module.h"

namespace pactora::api {

// Refusals, raised with the source "modAPI" and a description. The numbers of
// terms and periods serve the first term and the renewal alike.
enum class Refusal : std::uint32_t {
  UnknownArticle = 0x80045001,
  Quantity = 0x80045002,
  PriceMonths = 0x80045003,
  Kind = 0x80045004,
  Term = 0x80045005,
  PeriodNotPositive = 0x80045006,
  PeriodLongerThanTerm = 0x80045007,
  PeriodDoesNotFit = 0x80045008,
  Discount = 0x80045009,
  NoAddress = 0x8004500A,
};

constexpr std::int32_t Number(Refusal refusal) {
  return platform::ErrorNumber(static_cast<std::uint32_t>(refusal));
}

// Checks gApiContract and gApiArticles, refusing at the first fault, and creates
// the contract for the current address. Nothing is written before the last check
// has passed. Requires: gDb, gApiContract and gAddonError are set; gApiArticles
// may be null, which counts as a fault of the articles.
void CreateContractFromRecords(shell::Module& module);

// Binds the tables of the gApi group. True unless an error was raised.
bool InitTables(shell::Module& module);

// The checks. An error in ArticlesExist is shown through the reporter and gives
// False; the cursor of the article table is what it was.
bool ArticlesExist(shell::Module& module);
bool CheckArtikelAnzahl(shell::Module& module);
bool CheckPreisdauer(shell::Module& module);
// 1 to 12, 24, 36, 48 or 60 months.
bool CheckFirstDuration(std::int32_t term);
// Whether the term is a whole multiple of the period.
bool CheckFirstPeriods(std::int32_t term, std::int32_t period);

// Stores the contract row, its appointments and the status row. True when both
// rows are stored. Requires: InitTables has run.
bool CreateVandVS(shell::Module& module);

// Fills gApiPositionRows from the articles, merging equal ones. True when there
// was at least one article. The cursor of the article table is put back.
bool GetNewPositions(shell::Module& module, std::int32_t lZahlungsperiode, double dblRabatt);

// The one rounding of amounts, under the name that it has on this road.
inline double RoundToCents(double amount) { return contract::RoundCents(amount); }

using PeriodPrices = std::array<double, schema::kPeriods.size()>;

// The prices for the periods of schema::kPeriods, spread from a price for so many
// months. Raises error 11 for 0 months.
PeriodPrices CalculatePrices(std::int32_t lPreisDauer, double dPreis);

// Writes gApiPositionRows under the status row; dValue becomes the net amount of
// one invoice. True when at least one row was written.
bool WriteNewPositions(shell::Module& module, double& dValue);

// Stores dValue in the status row and the contract row.
bool WriteActValues(shell::Module& module, double dValue);

// Sets the address attribute that the contract names, if it names one. An
// attribute that the host answers with 0x80041096 counts as set.
void CreateAttribute(shell::Module& module);

}  // namespace pactora::api
