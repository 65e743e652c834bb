#include <cstdint>
#include <string>
#include <vector>

#include "floors.h"
#include "sql.h"

namespace pactora::bench {
namespace {

// A line of the benchmark's takeover list: an unlimited contract with two positions, an
// appointment and a key, invoiced up to a month.
class TakeoverFloor final : public Floor {
 public:
  explicit TakeoverFloor(sqlite3* database) : database_(database), unit_(database, kGroup) {}

  void ConcludeContract() override {
    const std::string key = std::to_string(++lines_);
    unit_.FindKey(key);
    const std::int64_t address = 1 + lines_ % 40;
    std::int64_t oid = unit_.Begin();
    find_address_.Run(address);
    find_address_.Done();
    for (const char* setting :
         {"g_dateformat", "vv_alarmwochenkuendigung", "createappointment4allcontracts"}) {
      setting_.Run(setting);
      setting_.Done();
    }
    type_.Run("Hotline-Abonnement");
    const std::int64_t type = type_.Whole(0);
    const std::string number = unit_.NextNumber();
    const std::int64_t contract = ++oid;
    const std::int64_t appointment = ++oid;
    const std::int64_t term = ++oid;
    contract_.Run(contract, address, "D", number, "Hotline-Abonnement", 3, "unbefristet", 45658.0,
                  0.0, 0.0, "", 0, 0, 4, "Wochen", 4, "Wochen", 1, 1, 1, "monatlich", 45717.0,
                  "20250301", "Anna", type_.Text(1), type_.Text(2), type_.Text(3), type_.Text(4),
                  type_.Text(5), type_.Text(6), type_.Text(7), 0, number);
    type_.Done();
    appointment_.Run(appointment, contract, "Termin", "Vertragsabschluss ist noch nicht erfolgt?",
                     46352.375, 0, "Anna");
    term_.Run(term, contract, 45658.0, "20250101", 0.0, "18991230", 1, "monatlich", 0, 45717.0,
              "20250301", 0.0, 1);
    double sum = 0;
    std::vector<std::string> ids;
    for (bool more = positions_.Run(type); more; more = positions_.Next())
      ids.push_back(positions_.Text(0));
    positions_.Done();
    for (std::size_t i = 0; i < ids.size(); ++i) {
      article_.Run(ids[i]);
      const double year = article_.Number(5);
      const double month = Cents(year / 12);
      sum += month;
      char row[24];
      std::snprintf(row, sizeof row, "%03zu", i + 1);
      position_.Run(++oid, term, article_.Text(0), month, article_.Text(1), article_.Text(2),
                    article_.Text(3), article_.Number(7), article_.Text(4), 1.0, article_.Whole(6),
                    ids[i], row, month, Cents(month * 3), Cents(month * 6), Cents(month * 12),
                    Cents(month * 24), Cents(month * 36), Cents(month * 48), Cents(month * 60),
                    year, month, 0.0);
      article_.Done();
    }
    set_value_.Run(sum, term);
    finish_.Run(sum, std::to_string(appointment), contract);
    find_attribute_.Run(address, "Betreuung", "Hotline");
    find_attribute_.Done();
    unit_.AddKey(++oid, key, contract, number);
    unit_.End(oid);
  }

 private:
  sqlite3* database_;
  SqlCloser closer_{database_};
  SqlUnit unit_;
  std::int64_t lines_ = 0;
  Sql find_address_{database_, "SELECT oid, version, Name FROM Adressen WHERE oid = ?1"};
  Sql setting_{
      database_,
      "SELECT value FROM pactora_settings WHERE scope = 'PersistVar' AND folded_owner = '' "
      "AND folded_name = ?1"};
  Sql type_{database_,
            "SELECT oid, ErfordertMerkmalGruppe, ErfordertMerkmal, ErfordertWert, "
            "SetztMerkmalGruppe, SetztMerkmal, SetztWert, ID FROM vv_Vertragsdefinitionen "
            "WHERE Bezeichnung = ?1"};
  Sql positions_{database_,
                 "SELECT ArtikelID FROM vv_Definitionspositionen WHERE parent = ?1 ORDER BY ord"};
  Sql article_{database_,
               "SELECT Bezeichnung, Nummer, Art, Einheit, Beschreibung, Nettopreis, Erloeskonto, "
               "USTSatz FROM Artikel WHERE key_Id = upper(?1)"};
  Sql contract_{
      database_,
      Insert("vv_Vertraege",
             "Typ, Vertragnummer, Bezeichnung, Art, ArtStr, VertragBeginn, VertragEnde, "
             "GeschlossenAm, Memo, Dauer, Verlaengerungsdauer, Kuendigungsfrist, "
             "KuendigungsfristEinh, VerlKuendigungsfrist, VerlKuendigungsfristEinh, "
             "Zahlungsperiode, VerlaengerungsZahlungsperiode, AktZahlungsperiode, "
             "AktZahlungsperiodeStr, AktNaechsteRechnung, AktNaechsteRechnungStr, Verantwortlich, "
             "ErfordertMerkmalGruppe, ErfordertMerkmal, ErfordertWert, SetztMerkmalGruppe, "
             "SetztMerkmal, SetztWert, VertragsDefinitionID, NoBooking, key_Vertragnummer",
             31)};
  Sql appointment_{database_, Insert("vv_VertragsAktivitaeten",
                                     "Typ, Betreff, Datum, Erledigt, Verantwortlich", 5)};
  Sql term_{database_,
            Insert("vv_Vertragsstaende",
                   "LaufzeitStart, LaufzeitStartStr, LaufzeitEnde, LaufzeitEndeStr, "
                   "Zahlungsperiode, ZahlungsperiodeStr, RechnungWann, NaechsteRechnung, "
                   "NaechsteRechnungStr, Rabattprozent, AlteFakturierung",
                   11)};
  Sql position_{database_,
                Insert("vv_Vertragspositionen",
                       "Artikel, Nettopreis, Artikelnummer, Artikelart, Einheit, UStSatz, "
                       "Beschreibung, Anzahl, Erloeskonto, ArtikelID, Row, PreisM1, PreisM3, "
                       "PreisM6, PreisM12, PreisM24, PreisM36, PreisM48, PreisM60, Preis, "
                       "NettoOhneRabatt, Rabattprozent",
                       22)};
  Sql set_value_{database_, "UPDATE vv_Vertragsstaende SET Value = ?1 WHERE oid = ?2"};
  Sql finish_{database_,
              "UPDATE vv_Vertraege SET AktValue = ?1, AlarmOID = ?2, version = version + 1 "
              "WHERE oid = ?3"};
  Sql find_attribute_{
      database_,
      "SELECT oid FROM Adressmerkmale WHERE parent = ?1 AND Gruppe = ?2 AND Merkmal = ?3"};
};

}  // namespace

std::unique_ptr<Floor> SqliteTakeoverFloor(const std::string& path, Place place) {
  return std::make_unique<TakeoverFloor>(Open(path, place));
}

}  // namespace pactora::bench
