// One position of a contract type in memory.
#pragma once

#include <cstdint>
#include <string>

namespace pactora::definitions {

// A plain record without rules; a new one is empty. The properties carry the
// names of the fields of a stored position.
class vv_CPosition {
 public:
  std::string Artikel;
  double Nettopreis = 0.0;  // of one unit for the type's payment period
  std::string Artikelnummer;
  std::string Artikelart;
  std::string Einheit;
  double UStSatz = 0.0;  // percent
  std::string Beschreibung;
  double Anzahl = 0.0;
  std::int32_t Erloeskonto = 0;
  std::string ArtikelID;
  double PreisM1 = 0.0;  // of one unit for a payment period of 1 month, and so on
  double PreisM3 = 0.0;
  double PreisM6 = 0.0;
  double PreisM12 = 0.0;
  double PreisM24 = 0.0;
  double PreisM36 = 0.0;
  double PreisM48 = 0.0;
  double PreisM60 = 0.0;
  double Preis = 0.0;            // net, over the whole term
  double NettoOhneRabatt = 0.0;  // Nettopreis before discount
  std::string Gruppierung;
};

}  // namespace pactora::definitions
