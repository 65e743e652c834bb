// Statements by hand, for the floors.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>

#include "floors.h"

namespace pactora::bench {

inline void Check(sqlite3* database, int code) {
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
  bool Next() { return sqlite3_step(statement_) == SQLITE_ROW; }
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

inline std::string Insert(const std::string& table, const std::string& columns, int count) {
  std::string sql = "INSERT INTO " + table + " (oid, version, ord, parent, " + columns +
                    ") VALUES (?1, 1, ?1, ?2";
  for (int i = 0; i < count; ++i) sql += ", ?" + std::to_string(i + 3);
  return sql + ")";
}

inline sqlite3* Open(const std::string& path, Place place) {
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

// The transactions and the numbers of a floor, and the key rows of a bulk run.
class SqlUnit {
 public:
  SqlUnit(sqlite3* database, int contracts) : database_(database), contracts_(contracts) {}
  ~SqlUnit() {
    if (made_ > 0) commit_.Run();
  }
  SqlUnit(const SqlUnit&) = delete;
  SqlUnit& operator=(const SqlUnit&) = delete;

  // Before the first statement of a contract. Returns the last number that was given out.
  std::int64_t Begin() {
    if (made_ == 0) {
      begin_.Run();
      begin_.Done();
    }
    number_.Run();
    const std::int64_t oid = number_.Whole(0);
    number_.Done();
    return oid;
  }
  // The counter's next contract number.
  std::string NextNumber() {
    counter_.Run("VV_VERTRAEGEVERTRAGNUMMER");
    char digits[32];
    std::snprintf(digits, sizeof digits, "%08ld", std::atol(counter_.Text(1).c_str()) + 1);
    const std::int64_t counter = counter_.Whole(0);
    counter_.Done();
    set_counter_.Run(digits, counter);
    return digits;
  }
  void FindKey(const std::string& key) {
    find_key_.Run(key);
    find_key_.Done();
  }
  void AddKey(std::int64_t oid, const std::string& key, std::int64_t contract,
              const std::string& number) {
    find_number_.Run(number);
    find_number_.Done();
    const std::string digest = "sha256:" + std::string(64, 'a');
    add_key_.Run(oid, key, digest, "liste.csv", number, std::to_string(contract), 46350.5, key);
  }
  // After the last one; oid: the last number that was given out.
  void End(std::int64_t oid) {
    set_number_.Run(oid);
    if (++made_ < contracts_) return;
    commit_.Run();
    commit_.Done();
    made_ = 0;
  }

 private:
  sqlite3* database_;
  const int contracts_;
  int made_ = 0;
  Sql begin_{database_, "BEGIN IMMEDIATE"};
  Sql commit_{database_, "COMMIT"};
  Sql number_{database_, "SELECT last_number FROM pactora_database"};
  Sql set_number_{database_, "UPDATE pactora_database SET last_number = ?1"};
  Sql counter_{database_,
               "SELECT n.oid, n.Nummer FROM KELM_Nummern n JOIN KELM_Mandanten m ON m.oid = "
               "n.parent WHERE n.key_Tabelle_Feld = ?1 AND m.key_tessarinName = 'FIRMA'"};
  Sql set_counter_{database_,
                   "UPDATE KELM_Nummern SET Nummer = ?1, version = version + 1 WHERE oid = ?2"};
  Sql find_key_{database_,
                "SELECT Pruefsumme, Liste, Vertragnummer, VertragOid FROM Vertragsschluessel "
                "WHERE key_Schluessel = upper(?1)"};
  Sql find_number_{database_,
                   "SELECT oid FROM vv_Vertraege WHERE key_Vertragnummer = upper(?1) LIMIT 2"};
  Sql add_key_{database_,
               "INSERT INTO Vertragsschluessel (oid, version, ord, Schluessel, Pruefsumme, Liste, "
               "Vertragnummer, VertragOid, Zeitpunkt, key_Schluessel) "
               "VALUES (?1, 1, ?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8)"};
};

// Closes the database when all statements that were declared after it are gone.
struct SqlCloser {
  sqlite3* database;
  ~SqlCloser() { sqlite3_close_v2(database); }
};

}  // namespace pactora::bench
