#include "api/modAPI.h"

#include <algorithm>
#include <array>

#include "api/vv_CContractD.h"
#include "contract/money.h"
#include "shell/handlers.h"

namespace pactora::api {

namespace {

using shell::module_name::modAPI;

constexpr double kMostDiscount = 100.0;
constexpr std::array<std::int32_t, 5> kRenewalTerms = {12, 24, 36, 48, 60};

[[noreturn]] void Refuse(Refusal refusal, const char* description) {
  throw platform::Error(Number(refusal), description, std::string(modAPI));
}

void RefuseBadArticles(shell::Module& module) {
  if (!ArticlesExist(module)) {
    Refuse(Refusal::UnknownArticle,
           "Es wurden nicht alle Artikel gefunden.\r\nÜberprüfen Sie die ArtikelIDs!");
  }
  if (!CheckArtikelAnzahl(module)) {
    Refuse(Refusal::Quantity,
           "Die Anzahl für Artikel muss > 0 sein.\r\nÜberprüfen Sie die Artikelanzahl!");
  }
  if (!CheckPreisdauer(module)) {
    Refuse(Refusal::PriceMonths,
           "Die 'Preisdauer' für Artikel muss > 0 sein.\r\nÜberprüfen Sie die 'Preisdauer'!");
  }
}

void RefuseBadFirstTerm(const vv_CContractD& contract) {
  if (!CheckFirstDuration(contract.Dauer)) Refuse(Refusal::Term, "Ungültige Dauer.");
  if (contract.Zahlungsperiode <= 0) {
    Refuse(Refusal::PeriodNotPositive, "Zahlungsperiode muss >0 sein!");
  }
  if (contract.Zahlungsperiode > contract.Dauer) {
    Refuse(Refusal::PeriodLongerThanTerm, "Zahlungsperiode passt nicht zur Dauer!");
  }
  if (!CheckFirstPeriods(contract.Dauer, contract.Zahlungsperiode)) {
    Refuse(Refusal::PeriodDoesNotFit, "Zahlungsperiode passt nicht zur Laufzeit!");
  }
}

void RefuseBadRenewal(const vv_CContractD& contract) {
  const std::int32_t term = contract.Verlaengerungsdauer;
  const std::int32_t period = contract.VerlaengerungsZahlungsperiode;
  if (std::find(kRenewalTerms.begin(), kRenewalTerms.end(), term) == kRenewalTerms.end()) {
    Refuse(Refusal::Term, "Ungültige Verlängerungsdauer.");
  }
  if (period <= 0) Refuse(Refusal::PeriodNotPositive, "Verlängerungszahlungsperiode muss >0 sein!");
  if (period > term) {
    Refuse(Refusal::PeriodLongerThanTerm, "Verlängerungszahlungsperiode passt nicht zur Dauer!");
  }
  if (!contract::PriceFieldOf(period)) {
    Refuse(Refusal::PeriodDoesNotFit, "Verlängerungszahlungsperiode passt nicht zur Laufzeit!");
  }
}

void RefuseFaults(shell::Module& module) {
  RefuseBadArticles(module);
  const vv_CContractD& contract = *module.gApiContract;
  const bool renewable = contract.lVertragArt == schema::kArtRenewable;
  if (!renewable && contract.lVertragArt != schema::kArtOnce) {
    Refuse(Refusal::Kind, "Ungültige Vertragsart.\r\nVertragsart muss 1 oder 2 sein!");
  }
  RefuseBadFirstTerm(contract);
  if (renewable) RefuseBadRenewal(contract);
  // Also false for a discount that is no number.
  const bool discount_fits = contract.dblRabatt >= 0.0 && contract.dblRabatt <= kMostDiscount;
  if (!discount_fits) Refuse(Refusal::Discount, "Ungültiger Wert für Rabatt!");
  InitTables(module);
  if (module.gApiAdressen->Eof()) Refuse(Refusal::NoAddress, "Keine Adresse ausgewählt!");
}

}  // namespace

void CreateContractFromRecords(shell::Module& module) {
  RefuseFaults(module);
  const vv_CContractD& contract = *module.gApiContract;
  double value = 0.0;
  if (!CreateVandVS(module)) return;
  if (!GetNewPositions(module, contract.Zahlungsperiode, contract.dblRabatt)) return;
  if (!WriteNewPositions(module, value)) return;
  if (!WriteActValues(module, value)) return;
  CreateAttribute(module);
}

bool InitTables(shell::Module& module) {
  return shell::RaisingAgain(modAPI, "InitTables", [&] {
    namespace table = schema::table;
    host::HostTables& tables = module.gDb->Tables();
    module.gApiAdressen = tables.Item(table::Adressen);
    module.gApiVertraege = tables.Item(table::vv_Vertraege);
    module.gApiVertraege->Indexes().SelectNone(host::kFlagsUsual);
    module.gApiVertraege->LinkChildren();
    module.gApiVertragsstaende = tables.Item(table::vv_Vertragsstaende);
    module.gApiVertragsstaende->LinkChildren();
    module.gApiVertragspositionen = tables.Item(table::vv_Vertragspositionen);
    module.gApiArtikel = tables.Item(table::Artikel);
    return true;
  });
}

}  // namespace pactora::api
