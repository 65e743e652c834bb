// The database file: made, opened, refused, rehearsed on and examined.
#include <unistd.h>

#include <filesystem>

#include "store/SqliteFile.h"

namespace pactora::store {
namespace {

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace field = schema::field;
namespace table = schema::table;

TEST_F(SqliteFile, WhatWasCommittedIsThereAfterReopeningInOneFile) {
  Record written;
  {
    const auto store = Create();
    written = Row(*store, table::vv_Vertraege, AddAddress(*store, "Müller"),
                  {{field::Vertragnummer, "00000001"},
                   {field::VertragBeginn, host::Date{45366.5}},
                   {field::AktValue, 1200.5},
                   {field::NoBooking, false}});
    store->Insert(TableOf(*store, table::vv_Vertraege), written);
    store->Commit();
    InsertedOid(*store, table::Adressen);
  }
  {
    const auto store = Open();
    Record found;
    ASSERT_TRUE(store->Read(TableOf(*store, table::vv_Vertraege), written.oid, found));
    EXPECT_EQ(Text(found), Text(written));
    EXPECT_EQ(Text(store->ReadProfile()), Text(SampleProfile()));
    EXPECT_EQ(Addresses(*store), 1) << "what was not committed is gone";
    EXPECT_GT(AddAddress(*store, "Maier"), written.oid) << "the numbers go on";
  }
  const std::filesystem::directory_iterator files(std::filesystem::path(path_).parent_path());
  EXPECT_EQ(std::distance(begin(files), end(files)), 1);
}

TEST_F(SqliteFile, KnowsWhetherItHasTheWorkflowAddOn) {
  for (const bool workflow : {true, false}) {
    const std::string path = folder_.File(workflow ? "mit.db" : "ohne.db");
    CreateSqlite(path, schema::ContractCatalog(workflow), {});
    const auto store = OpenSqlite(path);
    EXPECT_EQ(store->Catalog().workflow_add_on, workflow);
    EXPECT_EQ(store->Catalog().FindTable(table::KELDO_Vorgaenge).has_value(), workflow);
    EXPECT_THAT(CheckSqlite(path), IsEmpty());
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
      {"without its own tables", [&] { RunSql("DROP TABLE pactora_database"); },
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
  EXPECT_THAT(CheckSqlite(path_), IsEmpty());
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
  EXPECT_EQ(Addresses(*snapshot), 1);
  writer->Commit();
  EXPECT_EQ(Addresses(*snapshot), 1);
}

TEST_F(SqliteFile, TheCheckNamesWhatIsWrong) {
  const std::pair<std::string, std::string> cases[] = {
      {"DELETE FROM Adressen", "vv_Vertraege, Oid 2: in Adressen fehlt"},
      {"UPDATE vv_Vertraege SET Dauer = 'zwölf'",
       "vv_Vertraege, Oid 2, Dauer: der Wert passt nicht"},
      {"DROP INDEX vv_Vertraege_order", "vv_Vertraege: der Index vv_Vertraege_order fehlt"},
      {"DROP VIEW vv_Vertraege_lesbar; ALTER TABLE vv_Vertraege DROP COLUMN Memo",
       "vv_Vertraege: die Spalte Memo fehlt"},
      {"DROP TABLE Artikel", "die Tabelle Artikel fehlt"},
  };
  for (const auto& [sql, expected] : cases) {
    {
      const auto store = Create();
      InsertedOid(*store, table::vv_Vertraege, AddAddress(*store, "Müller"),
                  {{field::AktValue, -0.0}, {field::Dauer, std::int32_t{12}}});
      store->Commit();
    }
    EXPECT_THAT(CheckSqlite(path_), IsEmpty());
    RunSql(sql);
    EXPECT_THAT(CheckSqlite(path_), Contains(HasSubstr(expected))) << sql;
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
  EXPECT_THAT(CheckSqlite(path_), Not(IsEmpty()));
}

}  // namespace
}  // namespace pactora::store
