// The database file: made, opened, refused, rehearsed on and examined.
#include <unistd.h>

#include <filesystem>

#include "store/SqliteFile.h"
#include "store/sqlite/structure.h"

namespace pactora::store {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace field = schema::field;
namespace table = schema::table;

TEST_F(SqliteFile, KnowsWhetherItHasTheWorkflowAddOn) {
  for (const bool workflow : {true, false}) {
    const std::string path = folder_.File(workflow ? "mit.db" : "ohne.db");
    CreateSqlite(path, schema::ContractCatalog(workflow), {});
    const auto store = OpenSqlite(path);
    EXPECT_EQ(store->Catalog().workflow_add_on, workflow);
    EXPECT_EQ(store->Catalog().FindTable(table::KELDO_Vorgaenge).has_value(), workflow);
    EXPECT_THAT(CheckSqlite(path).faults, IsEmpty());
  }
}

TEST_F(SqliteFile, IsNeverMadeOverAnythingElse) {
  Create();
  const std::string bytes = BytesOf(path_);
  EXPECT_EQ(ErrorNumberOf([&] { Create(); }), Number(StoreError::Failed));
  EXPECT_EQ(BytesOf(path_), bytes);

  const std::string text = folder_.File("brief.txt");
  WriteBytes(text, "Sehr geehrte Damen und Herren, " + std::string(5000, '.'));
  EXPECT_NE(ErrorNumberOf([&] { CreateSqlite(text, schema::ContractCatalog(true), {}); }), 0);
  EXPECT_THAT(BytesOf(text), HasSubstr("Sehr geehrte"));

  const std::string empty = folder_.File("leer.db");
  WriteBytes(empty, "");
  CreateSqlite(empty, schema::ContractCatalog(true), {});
  EXPECT_EQ(Addresses(*OpenSqlite(empty)), 0);
}

TEST_F(SqliteFile, AForeignOrDamagedFileIsRefusedAndLeftAlone) {
  namespace fs = std::filesystem;
  const struct {
    std::string name;
    std::function<void()> damage;
    StoreError expected;
  } cases[] = {
      {"a text", [&] { WriteBytes(path_, std::string(9000, 'x')); }, StoreError::NotADatabase},
      {"an empty file", [&] { WriteBytes(path_, ""); }, StoreError::NotADatabase},
      {"another program's database", [&] { RunSql("PRAGMA application_id = 7"); },
       StoreError::NotADatabase},
      {"a plain SQLite database", [&] { RunSql("PRAGMA application_id = 0"); },
       StoreError::NotADatabase},
      {"a newer structure", [&] { RunSql("PRAGMA user_version = 3"); }, StoreError::OtherVersion},
      {"an older structure", [&] { RunSql("PRAGMA user_version = 0"); }, StoreError::OtherVersion},
      {"half a file", [&] { fs::resize_file(path_, fs::file_size(path_) / 2); },
       StoreError::NotADatabase},
      {"a few bytes", [&] { fs::resize_file(path_, 60); }, StoreError::NotADatabase},
      {"texts in UTF-16",
       [&] {
         fs::remove(path_);
         sqlite::Connection file(path_, sqlite::Access::Create, std::chrono::seconds(1));
         file.Run("PRAGMA encoding = 'UTF-16le'; BEGIN");
         sqlite::CreateStructure(file, schema::ContractCatalog(true));
         file.Run("COMMIT");
       },
       StoreError::NotADatabase},
      {"no file", [&] { fs::remove(path_); }, StoreError::NotReachable},
      {"a folder",
       [&] {
         fs::remove(path_);
         fs::create_directory(path_);
       },
       StoreError::NotReachable},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(test.name);
    Create();
    test.damage();
    const std::string bytes = BytesOf(path_);
    for (const OpenMode mode : {OpenMode::Read, OpenMode::Write, OpenMode::Rehearsal}) {
      EXPECT_EQ(ErrorNumberOf([&] { Open(std::chrono::seconds(1), mode); }), Number(test.expected));
    }
    EXPECT_EQ(ErrorNumberOf([&] { CheckSqlite(path_); }), Number(test.expected));
    EXPECT_EQ(BytesOf(path_), bytes);
    fs::remove(path_);
  }
  // A name is a file and no address.
  Create();
  for (const std::string& name : {std::string(), "file:" + path_}) {
    EXPECT_EQ(ErrorNumberOf([&] { OpenSqlite(name); }), Number(StoreError::NotReachable)) << name;
  }
}

// The description of the error that opening raises, empty when it raises none.
class SqliteStructure : public SqliteFile {
 protected:
  std::string Refusal(OpenMode mode) {
    const auto error = support::ErrorOf([&] { Open(std::chrono::seconds(1), mode); });
    return error ? error->Description() : "";
  }
};

TEST_F(SqliteStructure, AFileWithoutWhatItWasMadeOfIsRefusedByName) {
  const std::string endless =
      "DROP TABLE Artikel; CREATE VIEW Artikel AS WITH RECURSIVE n(oid) AS "
      "(SELECT 1 UNION ALL SELECT oid + 1 FROM n) SELECT oid, 0 AS parent, oid AS ord FROM n";
  const std::pair<std::string, std::string> cases[] = {
      {"DROP TABLE pactora_database", "die Tabelle „pactora_database“ fehlt"},
      {"DELETE FROM pactora_database", "die Tabelle „pactora_database“ ist leer"},
      {"DROP TABLE pactora_setting_elements", "die Tabelle „pactora_setting_elements“ fehlt"},
      {endless, "die Tabelle „Artikel“ fehlt"},
      {"DROP INDEX vv_Vertraege_order", "der Index „vv_Vertraege_order“ fehlt"},
      {"DROP INDEX Adressen_order; CREATE INDEX Adressen_order ON Adressen (ord)",
       "der Index „Adressen_order“ ist anders angelegt"},
      {"DROP VIEW vv_Vertraege_lesbar", "die Sicht „vv_Vertraege_lesbar“ fehlt"},
      {"ALTER TABLE Adressen ADD COLUMN Ort TEXT", "die Tabelle „Adressen“ ist anders angelegt"},
  };
  for (const auto& [sql, expected] : cases) {
    Create();
    RunSql(sql);
    for (const OpenMode mode :
         {OpenMode::Read, OpenMode::Any, OpenMode::Write, OpenMode::Rehearsal}) {
      EXPECT_THAT(Refusal(mode), HasSubstr(expected)) << sql;
    }
    EXPECT_THAT(CheckSqlite(path_).faults, Contains(HasSubstr(expected))) << sql;
    std::filesystem::remove(path_);
  }
}

TEST_F(SqliteStructure, WhatOthersPutOnItsTablesRefusesWritingTheirOwnTablesDoNot) {
  const std::pair<std::string, std::string> cases[] = {
      {"CREATE TRIGGER t AFTER INSERT ON adressen BEGIN DELETE FROM vv_Vertraege; END",
       "der Trigger „t“"},
      {"CREATE INDEX i ON Adressen (Name)", "der Index „i“"},
      {"CREATE UNIQUE INDEX i ON pactora_users (name) WHERE position > 3", "der Index „i“"},
      {"CREATE TABLE Notiz (v TEXT REFERENCES vv_vertraege (Vertragnummer))",
       "die Tabelle „Notiz“"},
  };
  for (const auto& [sql, expected] : cases) {
    AddAddress(*Create(), "Müller");
    RunSql(sql);
    for (const OpenMode mode : {OpenMode::Write, OpenMode::Rehearsal}) {
      EXPECT_THAT(Refusal(mode), HasSubstr(expected)) << sql;
    }
    for (const OpenMode mode : {OpenMode::Read, OpenMode::Any}) {
      const auto store = Open(std::chrono::seconds(1), mode);
      EXPECT_EQ(Addresses(*store), 1);
      const auto error = support::ErrorOf([&] { AddAddress(*store, "Meier"); });
      ASSERT_TRUE(error);
      EXPECT_EQ(error->Number(), Number(StoreError::ReadOnly));
      EXPECT_THAT(error->Description(), HasSubstr(expected));
    }
    const SqliteCheck check = CheckSqlite(path_);
    EXPECT_THAT(check.additions, testing::ElementsAre(HasSubstr(expected))) << sql;
    EXPECT_THAT(check.faults, IsEmpty());
    std::filesystem::remove(path_);
  }
  Create();
  RunSql(
      "CREATE TABLE Kartei (oid INTEGER UNIQUE); CREATE INDEX k ON Kartei (oid);"
      "CREATE TRIGGER t AFTER INSERT ON Kartei BEGIN DELETE FROM Kartei; END;"
      "CREATE VIEW Briefe AS SELECT Name FROM Adressen; ANALYZE");
  AddAddress(*Open(), "Müller");
  const SqliteCheck check = CheckSqlite(path_);
  EXPECT_THAT(check.faults, IsEmpty());
  EXPECT_THAT(check.additions, IsEmpty());
}

TEST_F(SqliteStructure, AFileThatIsGoneOrAnotherOneIsCalledThat) {
  for (const bool replaced : {false, true}) {
    const auto store = Create();
    std::filesystem::remove(path_);
    if (replaced) Create();
    const auto error = support::ErrorOf([&] { AddAddress(*store, "Meier"); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->Number(), Number(StoreError::NotReachable));
    EXPECT_THAT(error->Description(), HasSubstr("gelöscht oder durch eine andere ersetzt"));
  }
}

TEST_F(SqliteStructure, AWalkOverAnIndexWithOtherContentEndsWithAnError) {
  const auto root = [&](const std::string& index) {
    const std::string page =
        Query("SELECT rootpage FROM sqlite_schema WHERE name = '" + index + "'");
    return (std::stoul(page) - 1) * 4096;
  };
  const std::pair<std::string, std::string> cases[] = {
      {"Artikelgruppen_order", "Artikelgruppen_key_ID"},
      {"Artikelgruppen_key_ID", "KELM_Nummern_key_Tabelle_Feld"},
      {"Artikelgruppen_key_ID", "Artikelgruppen_order"},
      {"Artikel_order", "Artikelgruppen_key_ID"},
  };
  for (const auto& [damaged, source] : cases) {
    {
      const auto store = Create();
      for (const char* const id : {"B", "A", "C"}) {
        const Oid group = InsertedOid(*store, table::Artikelgruppen, 0, {{field::ID, id}}, {id});
        InsertedOid(*store, table::Artikel, group, {{field::Id, id}}, {id});
      }
      store->Commit();
    }
    std::string bytes = BytesOf(path_);
    bytes.replace(root(damaged), 4096, bytes.substr(root(source), 4096));
    WriteBytes(path_, bytes);
    const auto store = Open();
    const auto walk = [&](TableId table, std::size_t& rows) {
      Record record;
      for (std::int64_t after = 0; store->NextInParent(table, 1, after, record);
           after = record.order) {
        if (++rows == 100) return;
      }
      std::string key;
      for (std::int64_t after = 0; store->NextByKey(table, 0, key, after, record);
           after = record.order, key = record.keys[0]) {
        if (++rows == 100) return;
      }
    };
    for (const auto name : {table::Artikelgruppen, table::Artikel}) {
      std::size_t rows = 0;
      const std::int32_t error = ErrorNumberOf([&] { walk(TableOf(*store, name), rows); });
      EXPECT_LT(rows, 100u) << damaged << ", " << name;
      EXPECT_TRUE(error == 0 || error == Number(StoreError::NotADatabase)) << error;
    }
    EXPECT_THAT(CheckSqlite(path_).faults, Not(IsEmpty()));
    std::filesystem::remove(path_);
  }
}

TEST_F(SqliteFile, ARehearsalSeesAndWritesButTheFileStaysByteForByte) {
  AddAddress(*Create(), "Müller");
  const std::string bytes = BytesOf(path_);
  const auto time = std::filesystem::last_write_time(path_);
  {
    const auto rehearsal = Open(std::chrono::seconds(1), OpenMode::Rehearsal);
    EXPECT_EQ(Addresses(*rehearsal), 1);
    EXPECT_EQ(Text(rehearsal->ReadProfile()), Text(SampleProfile()));
    AddAddress(*rehearsal, "nur geprobt");
    rehearsal->WriteSetting({SettingScope::Database, "", "geprobt", true});
    rehearsal->Commit();
    EXPECT_EQ(Addresses(*rehearsal), 2);
    // Others go on meanwhile, unseen.
    const auto other = Open();
    EXPECT_EQ(Addresses(*other), 1);
  }
  EXPECT_EQ(BytesOf(path_), bytes);
  EXPECT_EQ(std::filesystem::last_write_time(path_), time);
}

TEST_F(SqliteFile, AUnitBrokenOffByACrashIsTakenBackByTheNextOpeningButByNoRehearsal) {
  AddAddress(*Create(), "Müller");
  const std::string whole = BytesOf(path_);
  std::string broken;
  std::string journal;
  {
    // A writer so short of memory that it writes into the file before its commit.
    sqlite::Connection writer(path_, sqlite::Access::ReadWrite, std::chrono::seconds(1));
    writer.Run("PRAGMA cache_size = 1; BEGIN; UPDATE Adressen SET Name = 'halb';");
    writer.Run(
        "CREATE TABLE viel AS WITH n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
        "LIMIT 500) SELECT i, randomblob(200) FROM n");
    broken = BytesOf(path_);
    journal = BytesOf(path_ + "-journal");
  }
  ASSERT_NE(broken, whole);
  WriteBytes(path_, broken);
  WriteBytes(path_ + "-journal", journal);
  EXPECT_EQ(ErrorNumberOf([&] { Open(std::chrono::seconds(1), OpenMode::Rehearsal); }),
            Number(StoreError::NotReachable));
  EXPECT_EQ(BytesOf(path_), broken);
  EXPECT_EQ(BytesOf(path_ + "-journal"), journal);

  EXPECT_EQ(Addresses(*Open()), 1);
  EXPECT_EQ(Query("SELECT Name FROM Adressen"), "Müller");
  EXPECT_THAT(CheckSqlite(path_).faults, IsEmpty());
}

TEST_F(SqliteFile, TellsSqlToolsDatesThatPeopleCanRead) {
  const auto store = Create();
  const Oid contract = InsertedOid(*store, table::vv_Vertraege, AddAddress(*store, "Müller"));
  const platform::Date day = platform::FromCivil(2024, 3, 15);
  const std::pair<host::Value, std::string_view> cases[] = {
      {{}, "NULL null"},
      {platform::kNoDate, " real"},
      {day, "2024-03-15 real"},
      {host::Date{day.days + 34200.0 / 86400.0}, "2024-03-15 09:30:00 real"},
      {platform::kNoInvoiceDate, "9999-12-31 real"},
      {platform::FromCivil(1899, 12, 28), "1899-12-28 real"},
      {host::Date{-1.25}, "1899-12-29 06:00:00 real"}};
  for (const auto& [date, shown] : cases) {
    const Oid oid =
        InsertedOid(*store, table::vv_VertragsAktivitaeten, contract, {{field::Datum, date}});
    store->Commit();
    EXPECT_EQ(Query("SELECT ifnull(shown.Datum, 'NULL') || ' ' || typeof(stored.Datum) "
                    "FROM vv_VertragsAktivitaeten_lesbar shown "
                    "JOIN vv_VertragsAktivitaeten stored USING (oid) WHERE oid = " +
                    std::to_string(oid)),
              shown);
  }
}

// While it lives the system treats the test as somebody without special rights.
class PlainUser {
 public:
  PlainUser() : mine_(::geteuid()) {
    constexpr uid_t kNobody = 65534;
    if (mine_ == 0 && ::seteuid(kNobody) != 0) ADD_FAILURE();
  }
  ~PlainUser() {
    if (mine_ == 0 && ::seteuid(mine_) != 0) ADD_FAILURE();
  }
  PlainUser(const PlainUser&) = delete;
  PlainUser& operator=(const PlainUser&) = delete;

 private:
  const uid_t mine_;
};

TEST_F(SqliteFile, AWriteProtectedFileIsReadButOpenedForNoWork) {
  AddAddress(*Create(), "Müller");
  std::filesystem::permissions(path_, std::filesystem::perms{0444});
  const PlainUser user;
  for (const OpenMode mode : {OpenMode::Read, OpenMode::Snapshot, OpenMode::Rehearsal})
    EXPECT_EQ(Addresses(*Open(std::chrono::seconds(1), mode)), 1);
  EXPECT_EQ(ErrorNumberOf([&] { Open(); }), Number(StoreError::ReadOnly));
  const auto store = Open(std::chrono::seconds(1), OpenMode::Read);
  EXPECT_EQ(ErrorNumberOf([&] { AddAddress(*store, "Meier"); }), Number(StoreError::ReadOnly));
}

TEST_F(SqliteFile, ASnapshotWaitsForNobodyAndKeepsNobodyWaiting) {
  const auto writer = Create();
  AddAddress(*writer, "Müller");
  InsertedOid(*writer, table::Adressen, 0, {{field::Name, "noch nicht fertig"}});
  const auto snapshot = Open(std::chrono::milliseconds(0), OpenMode::Snapshot);
  const SqliteCheck check = CheckSqlite(path_, std::chrono::milliseconds(0));
  EXPECT_THAT(check.faults, IsEmpty());
  writer->Commit();
  EXPECT_EQ(Addresses(*snapshot), 1);
  EXPECT_EQ(Addresses(*check.store), 1);
}

TEST_F(SqliteFile, TheCheckNamesWhatIsWrong) {
  const std::string type = ": der Wert passt nicht zum Typ des Feldes";
  const std::string utf8 = ": der Text ist kein UTF-8";
  const std::pair<std::string, std::string> cases[] = {
      {"DELETE FROM Adressen", "vv_Vertraege, Oid 2: in Adressen fehlt"},
      {"UPDATE vv_Vertraege SET Dauer = 'zwölf'", "vv_Vertraege, Oid 2, Dauer" + type},
      {"UPDATE vv_Vertraege SET Dauer = 12, Art = x'41'", "vv_Vertraege, Oid 2, Art" + type},
      {"UPDATE vv_Vertraege SET Dauer = 4294967297",
       "vv_Vertraege, Oid 2, Dauer: die Zahl hat mehr als 32 Bit"},
      {"UPDATE vv_Vertraege SET NoBooking = 2", "vv_Vertraege, Oid 2, NoBooking: weder 0 noch 1"},
      {"UPDATE vv_Vertraege SET AktValue = x'31'", "vv_Vertraege, Oid 2, AktValue" + type},
      {"UPDATE vv_Vertraege SET Memo = CAST(x'4DFC' AS TEXT)", "vv_Vertraege, Oid 2, Memo" + utf8},
      {"UPDATE Adressen SET ord = 0", "Adressen, Oid 1, ord: die Zahl ist kleiner als 1"},
      {"UPDATE pactora_database SET last_number = 1",
       "pactora_database, last_number: steht auf 1, aber vv_Vertraege, Oid 2, hat schon 2"},
      {"UPDATE pactora_database SET last_number = 'viel'",
       "pactora_database, Zeile 1, last_number" + type},
      {"UPDATE pactora_database SET last_number = 9223372036854775806",
       "pactora_database, Zeile 1, last_number: danach ist keine Zahl mehr frei"},
      {"UPDATE pactora_database SET workflow_add_on = 7",
       "pactora_database, Zeile 1, workflow_add_on: weder 0 noch 1"},
      {"UPDATE pactora_settings SET kind = 'quatsch' WHERE position = 1",
       "pactora_settings, Zeile 1, kind: ein unbekanntes Wort"},
      {"UPDATE pactora_settings SET kind = 'long', value = 'abc' WHERE position = 1",
       "pactora_settings, Zeile 1, value" + type},
      {"UPDATE pactora_users SET name = CAST(x'FF' AS TEXT) WHERE position = 2",
       "pactora_users, Zeile 2, name" + utf8},
      {"UPDATE pactora_setting_elements SET value = CAST(x'C3' AS TEXT)",
       "pactora_setting_elements, Zeile 2, value" + utf8},
  };
  for (const auto& [sql, expected] : cases) {
    {
      const auto store = Create();
      InsertedOid(*store, table::vv_Vertraege, AddAddress(*store, "Müller"),
                  {{field::AktValue, -0.0}, {field::Dauer, std::int32_t{12}}});
      store->Commit();
    }
    EXPECT_THAT(CheckSqlite(path_).faults, IsEmpty());
    RunSql(sql);
    EXPECT_THAT(CheckSqlite(path_).faults, Contains(HasSubstr(expected))) << sql;
    std::filesystem::remove(path_);
  }
}

TEST_F(SqliteFile, TheCheckFindsADamagedPage) {
  {
    const auto store = Create();
    for (int count = 0; count < 300; ++count) {
      InsertedOid(*store, table::Adressen, 0, {{field::Name, "Müller " + std::to_string(count)}});
    }
    store->Commit();
  }
  std::string bytes = BytesOf(path_);
  const std::size_t place = bytes.find("Müller 150");
  ASSERT_NE(place, std::string::npos);
  bytes.replace(place - place % 4096, 2000, 2000, '\xAA');
  WriteBytes(path_, bytes);
  EXPECT_THAT(CheckSqlite(path_).faults, Not(IsEmpty()));
}

}  // namespace
}  // namespace pactora::store
