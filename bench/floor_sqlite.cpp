#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "company.h"
#include "floors.h"

namespace pactora::bench {
namespace {

void Check(sqlite3* database, int code) {
  if (code == SQLITE_OK || code == SQLITE_ROW || code == SQLITE_DONE) return;
  std::cerr << sqlite3_errmsg(database) << '\n';
  std::exit(1);
}

class Sql {
 public:
  Sql(sqlite3* database, const std::string& text) : database_(database) {
    Check(database_, sqlite3_prepare_v3(database_, text.c_str(), -1, SQLITE_PREPARE_PERSISTENT,
                                        &statement_, nullptr));
  }
  ~Sql() { sqlite3_finalize(statement_); }
  Sql(const Sql&) = delete;
  Sql& operator=(const Sql&) = delete;

  template <typename... Values>
  bool Run(const Values&... values) {
    sqlite3_reset(statement_);
    int at = 0;
    (Bind(++at, values), ...);
    const int code = sqlite3_step(statement_);
    Check(database_, code);
    return code == SQLITE_ROW;
  }
  void Done() { sqlite3_reset(statement_); }
  std::string Text(int column) {
    const auto* text = sqlite3_column_text(statement_, column);
    return text == nullptr ? std::string() : reinterpret_cast<const char*>(text);
  }
  double Number(int column) { return sqlite3_column_double(statement_, column); }
  std::int64_t Whole(int column) { return sqlite3_column_int64(statement_, column); }

 private:
  void Bind(int at, std::int64_t value) { sqlite3_bind_int64(statement_, at, value); }
  void Bind(int at, int value) { sqlite3_bind_int64(statement_, at, value); }
  void Bind(int at, double value) { sqlite3_bind_double(statement_, at, value); }
  void Bind(int at, const char* value) {
    sqlite3_bind_text(statement_, at, value, -1, SQLITE_STATIC);
  }
  void Bind(int at, const std::string& value) {
    sqlite3_bind_text(statement_, at, value.data(), static_cast<int>(value.size()), SQLITE_STATIC);
  }

  sqlite3* database_;
  sqlite3_stmt* statement_ = nullptr;
};

std::string Insert(const std::string& table, const std::string& columns, int count) {
  std::string sql = "INSERT INTO " + table + " (oid, version, ord, parent, " + columns +
                    ") VALUES (?1, 1, ?1, ?2";
  for (int i = 0; i < count; ++i) sql += ", ?" + std::to_string(i + 3);
  return sql + ")";
}

sqlite3* Open(const std::string& path, Place place) {
  sqlite3* file = nullptr;
  Check(file, sqlite3_open(path.c_str(), &file));
  if (place == Place::OnDisk) {
    Check(file, sqlite3_exec(file,
                             "PRAGMA foreign_keys=ON; PRAGMA journal_mode=TRUNCATE; "
                             "PRAGMA synchronous=FULL; PRAGMA cache_size=-32000; "
                             "PRAGMA temp_store=MEMORY",
                             nullptr, nullptr, nullptr));
    return file;
  }
  sqlite3* memory = nullptr;
  Check(memory, sqlite3_open(":memory:", &memory));
  sqlite3_backup* copy = sqlite3_backup_init(memory, "main", file, "main");
  sqlite3_backup_step(copy, -1);
  sqlite3_backup_finish(copy);
  sqlite3_close(file);
  Check(memory, sqlite3_exec(memory, "PRAGMA foreign_keys=ON", nullptr, nullptr, nullptr));
  return memory;
}

class SqlFloor final : public Floor {
 public:
  explicit SqlFloor(sqlite3* database) : database_(database) {}

  void ConcludeContract() override {
    if (!next_address_.Run(address_)) next_address_.Run(std::int64_t{0});
    address_ = next_address_.Whole(0);
    next_address_.Done();

    for (int i = 1; i <= kPositions; ++i) {
      find_article_.Run(ArticleId(i));
      find_article_.Done();
    }
    begin_.Run();
    number_.Run();
    std::int64_t oid = number_.Whole(0);
    number_.Done();

    setting_.Run("vv_alarmwochenkuendigung");
    setting_.Done();
    counter_.Run("VV_VERTRAEGEVERTRAGNUMMER");
    char digits[32];
    std::snprintf(digits, sizeof digits, "%08ld", std::atol(counter_.Text(1).c_str()) + 1);
    const std::int64_t counter = counter_.Whole(0);
    counter_.Done();
    set_counter_.Run(digits, counter);

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
    const std::string description = std::string(digits) + " / Wartungsvertrag";
    attribute_.Run(++oid, address_, "Verträge", "Wartung", "ja", 45352.0, 45716.0, description);
    set_number_.Run(oid);
    commit_.Run();
    commit_.Done();
  }

  ~SqlFloor() override = default;

 private:
  struct Closer {
    sqlite3* database;
    ~Closer() { sqlite3_close_v2(database); }
  };

  sqlite3* database_;
  Closer closer_{database_};
  std::int64_t address_ = 0;
  Sql begin_{database_, "BEGIN IMMEDIATE"};
  Sql commit_{database_, "COMMIT"};
  Sql next_address_{database_,
                    "SELECT oid, version, Name FROM Adressen WHERE ord > ?1 ORDER BY ord LIMIT 1"};
  Sql find_article_{database_, "SELECT oid FROM Artikel WHERE key_Id = upper(?1)"};
  Sql read_article_{database_,
                    "SELECT Bezeichnung, Nummer, Art, Einheit, Beschreibung, Nettopreis, "
                    "Erloeskonto, USTSatz FROM Artikel WHERE key_Id = upper(?1)"};
  Sql number_{database_, "SELECT last_number FROM pactora_database"};
  Sql set_number_{database_, "UPDATE pactora_database SET last_number = ?1"};
  Sql setting_{
      database_,
      "SELECT value FROM pactora_settings WHERE scope = 'PersistVar' AND folded_owner = '' "
      "AND folded_name = ?1"};
  Sql counter_{database_,
               "SELECT n.oid, n.Nummer FROM KELM_Nummern n JOIN KELM_Mandanten m ON m.oid = "
               "n.parent WHERE n.key_Tabelle_Feld = ?1 AND m.key_tessarinName = 'FIRMA'"};
  Sql set_counter_{database_,
                   "UPDATE KELM_Nummern SET Nummer = ?1, version = version + 1 WHERE oid = ?2"};
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
  return std::make_unique<SqlFloor>(Open(path, place));
}

}  // namespace pactora::bench
