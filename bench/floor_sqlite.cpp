#include <cstdio>
#include <cstdlib>
#include <string>

#include "company.h"
#include "floors.h"
#include "sql.h"

namespace pactora::bench {
namespace {

class SqlFloor final : public Floor {
 public:
  SqlFloor(sqlite3* database, int contracts)
      : database_(database), unit_(database, contracts), bulk_(contracts > 1) {}

  void ConcludeContract() override {
    const std::string key = bulk_ ? std::to_string(++keys_) : std::string();
    if (bulk_) unit_.FindKey(key);
    if (!next_address_.Run(address_)) next_address_.Run(std::int64_t{0});
    address_ = next_address_.Whole(0);
    next_address_.Done();

    for (int i = 1; i <= kPositions; ++i) {
      find_article_.Run(ArticleId(i));
      find_article_.Done();
    }
    std::int64_t oid = unit_.Begin();

    setting_.Run("vv_alarmwochenkuendigung");
    setting_.Done();
    const std::string digits = unit_.NextNumber();

    const std::int64_t contract = ++oid;
    contract_.Run(contract, address_, "D", 45352.0, 45716.0, 45352.0, "", 0, "Wartungsvertrag", "",
                  1, "verlängerbar", 12, 12, 6, "Wochen", 6, "Wochen", 1, 12, 1, "monatlich",
                  45352.0, "20240301", 45675.0, "Anna", 0, digits, digits);
    const std::int64_t term = ++oid;
    term_.Run(term, contract, 45352.0, "20240301", 45716.0, "20250228", 1, "monatlich", 0, 45352.0,
              "20240301", 10.0);
    double sum = 0;
    for (int i = 1; i <= kPositions; ++i) {
      const std::string id = ArticleId(i);
      read_article_.Run(id);
      const double base = read_article_.Number(5) / 12;
      const double month = Cents(base);
      const double net = month - Cents(month / 100 * 10);
      sum += net * i;
      char row[16];
      std::snprintf(row, sizeof row, "%03d", i);
      position_.Run(++oid, term, read_article_.Text(0), net, read_article_.Text(1),
                    read_article_.Text(2), read_article_.Text(3), read_article_.Number(7),
                    read_article_.Text(4), static_cast<double>(i), read_article_.Whole(6), id, row,
                    month, Cents(base * 3), Cents(base * 6), Cents(base * 12), Cents(base * 24),
                    Cents(base * 36), Cents(base * 48), Cents(base * 60), Cents(base * 12), month,
                    10.0, "", "");
      read_article_.Done();
    }
    set_value_.Run(sum, term);
    set_act_value_.Run(sum, contract);
    const std::string description = digits + " / Wartungsvertrag";
    attribute_.Run(++oid, address_, "Verträge", "Wartung", "ja", 45352.0, 45716.0, description);
    if (bulk_) unit_.AddKey(++oid, key, contract, digits);
    unit_.End(oid);
  }

  ~SqlFloor() override = default;

 private:
  sqlite3* database_;
  SqlCloser closer_{database_};
  SqlUnit unit_;
  const bool bulk_;
  std::int64_t keys_ = 0;
  std::int64_t address_ = 0;
  Sql next_address_{database_,
                    "SELECT oid, version, Name FROM Adressen WHERE ord > ?1 ORDER BY ord LIMIT 1"};
  Sql find_article_{database_, "SELECT oid FROM Artikel WHERE key_Id = upper(?1)"};
  Sql read_article_{database_,
                    "SELECT Bezeichnung, Nummer, Art, Einheit, Beschreibung, Nettopreis, "
                    "Erloeskonto, USTSatz FROM Artikel WHERE key_Id = upper(?1)"};
  Sql setting_{
      database_,
      "SELECT value FROM pactora_settings WHERE scope = 'PersistVar' AND folded_owner = '' "
      "AND folded_name = ?1"};
  Sql contract_{
      database_,
      Insert("vv_Vertraege",
             "Typ, VertragBeginn, VertragEnde, GeschlossenAm, Memo, RabattNurErsteLaufzeit, "
             "Bezeichnung, Auftragsnummer, Art, ArtStr, Dauer, Verlaengerungsdauer, "
             "Kuendigungsfrist, KuendigungsfristEinh, VerlKuendigungsfrist, "
             "VerlKuendigungsfristEinh, Zahlungsperiode, VerlaengerungsZahlungsperiode, "
             "AktZahlungsperiode, AktZahlungsperiodeStr, AktNaechsteRechnung, "
             "AktNaechsteRechnungStr, KuendfristDatum, Verantwortlich, NoBooking, Vertragnummer, "
             "key_Vertragnummer",
             27)};
  Sql term_{database_,
            Insert("vv_Vertragsstaende",
                   "LaufzeitStart, LaufzeitStartStr, LaufzeitEnde, LaufzeitEndeStr, "
                   "Zahlungsperiode, ZahlungsperiodeStr, RechnungWann, NaechsteRechnung, "
                   "NaechsteRechnungStr, Rabattprozent",
                   10)};
  Sql position_{database_,
                Insert("vv_Vertragspositionen",
                       "Artikel, Nettopreis, Artikelnummer, Artikelart, Einheit, UStSatz, "
                       "Beschreibung, Anzahl, Erloeskonto, ArtikelID, Row, PreisM1, PreisM3, "
                       "PreisM6, PreisM12, PreisM24, PreisM36, PreisM48, PreisM60, Preis, "
                       "NettoOhneRabatt, Rabattprozent, Auftragsnummer, Gruppierung",
                       24)};
  Sql set_value_{database_,
                 "UPDATE vv_Vertragsstaende SET Value = ?1, version = version + 1 WHERE oid = ?2"};
  Sql set_act_value_{database_,
                     "UPDATE vv_Vertraege SET AktValue = ?1, version = version + 1 WHERE oid = ?2"};
  Sql attribute_{database_,
                 Insert("Adressmerkmale",
                        "Gruppe, Merkmal, Wert, \"GültigVom\", \"GültigBis\", Beschreibung", 6)};
};

}  // namespace

std::unique_ptr<Floor> SqliteFloor(const std::string& path, Place place) {
  return std::make_unique<SqlFloor>(Open(path, place), 1);
}

std::unique_ptr<Floor> SqliteBulkFloor(const std::string& path, Place place) {
  return std::make_unique<SqlFloor>(Open(path, place), kGroup);
}

}  // namespace pactora::bench
