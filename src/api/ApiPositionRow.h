// A billing position before it is written.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "schema/names.h"

namespace pactora::api {

// The members are named after the table fields that receive them.
struct ApiPositionRow {
  std::string Artikel;
  double Nettopreis = 0.0;  // of one unit for one payment period, less discount
  std::string Artikelnummer;
  std::string Artikelart;
  std::string Einheit;
  double UStSatz = 0.0;  // percent
  std::string Beschreibung;
  double Anzahl = 0.0;
  std::int32_t Erloeskonto = 0;
  std::string ArtikelID;
  std::array<double, schema::kPriceFields.size()> PreisM{};  // in the order of kPriceFields
  double Preis = 0.0;                                        // of one unit over the first term
  double NettoOhneRabatt = 0.0;                              // Nettopreis before discount
  double Rabattprozent = 0.0;
  std::string Auftragsnummer;
  std::string Gruppierung;
};

}  // namespace pactora::api
