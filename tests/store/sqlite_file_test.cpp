// The database file: made, opened, refused, rehearsed on and examined.
#include <unistd.h>

#include <filesystem>

#include "store/SqliteFile.h"

namespace pactora::store {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace field = schema::field;
namespace table = schema::table;

TEST_F(SqliteFile, EverythingIsThereAfterReopening) {
  std::string written;
  Oid contract = 0;
  {
    const auto store = Create();
    const Oid address = AddAddress(*store, "Müller");
    Record record = Row(*store, table::vv_Vertraege, address,
                        {{field::Vertragnummer, "00000001"},
                         {field::VertragBeginn, host::Date{45366.5}},
                         {field::AktValue, 1200.5},
                         {field::NoBooking, false}});
    store->Insert(TableOf(*store, table::vv_Vertraege), record);
    store->Commit();
    written = Text(record);
    contract = record.oid;
  }
  const auto store = Open();
  Record record;
  ASSERT_TRUE(store->Read(TableOf(*store, table::vv_Vertraege), contract, record));
  EXPECT_EQ(Text(record), written);
  EXPECT_EQ(Text(store->ReadProfile()), Text(SampleProfile()));
  EXPECT_GT(AddAddress(*store, "Maier"), contract) << "the numbers go on";
}

TEST_F(SqliteFile, AnUncommittedUnitIsGoneAfterReopening) {
  {
    const auto store = Create();
    AddAddress(*store, "bleibt");
    InsertedOid(*store, table::Adressen);
  }
  EXPECT_EQ(Addresses(*Open()), 1);
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
  EXPECT_EQ(ErrorOf([&] { Create(); }), Number(StoreError::Failed));
  EXPECT_EQ(BytesOf(path_), bytes);

  const std::string text = folder_.File("brief.txt");
  WriteBytes(text, "Sehr geehrte Damen und Herren, " + std::string(5000, '.'));
  EXPECT_NE(ErrorOf([&] { CreateSqlite(text, schema::ContractCatalog(true), {}); }), 0);
  EXPECT_THAT(BytesOf(text), HasSubstr("Sehr geehrte"));

  const std::string empty = folder_.File("leer.db");
  WriteBytes(empty, "");
  CreateSqlite(empty, schema::ContractCatalog(true), {});
  EXPECT_EQ(Addresses(*OpenSqlite(empty)), 0);
}

TEST_F(SqliteFile, LeavesNoOtherFileBehind) {
  {
    const auto store = Create();
    AddAddress(*store, "Müller");
  }
  AddAddress(*Open(), "Maier");
  std::vector<std::string> names;
  for (const auto& entry :
       std::filesystem::directory_iterator(std::filesystem::path(path_).parent_path())) {
    names.push_back(entry.path().filename().string());
  }
  EXPECT_THAT(names, ElementsAre("vertraege.db"));
}

struct Damage {
  std::string_view name;
  std::function<void(const std::string&)> damage;
  StoreError expected;
};

TEST_F(SqliteFile, AForeignOrDamagedFileIsRefusedAndLeftAlone) {
  const auto run = [this](const std::string& sql) {
    return [this, sql](const std::string&) { RunSql(sql); };
  };
  const std::vector<Damage> cases = {
      {"a text", [](const std::string& path) { WriteBytes(path, std::string(9000, 'x')); },
       StoreError::NotADatabase},
      {"an empty file", [](const std::string& path) { WriteBytes(path, ""); },
       StoreError::NotADatabase},
      {"another program's database", run("PRAGMA application_id = 7"), StoreError::NotADatabase},
      {"a plain SQLite database", run("PRAGMA application_id = 0"), StoreError::NotADatabase},
      {"a newer structure", run("PRAGMA user_version = 2"), StoreError::OtherVersion},
      {"an older structure", run("PRAGMA user_version = 0"), StoreError::OtherVersion},
      {"half a file",
       [](const std::string& path) {
         std::filesystem::resize_file(path, std::filesystem::file_size(path) / 2);
       },
       StoreError::NotADatabase},
      {"a few bytes", [](const std::string& path) { std::filesystem::resize_file(path, 60); },
       StoreError::NotADatabase},
      {"without its own tables", run("DROP TABLE pactora_database"), StoreError::NotADatabase},
      {"no file", [](const std::string& path) { std::filesystem::remove(path); },
       StoreError::NotReachable},
      {"a folder",
       [](const std::string& path) {
         std::filesystem::remove(path);
         std::filesystem::create_directory(path);
       },
       StoreError::NotReachable},
  };
  for (const Damage& test : cases) {
    Create();
    test.damage(path_);
    const std::string bytes = BytesOf(path_);
    for (const OpenMode mode : {OpenMode::Read, OpenMode::Write, OpenMode::Rehearsal}) {
      EXPECT_EQ(ErrorOf([&] { Open(std::chrono::seconds(1), mode); }), Number(test.expected))
          << test.name;
    }
    EXPECT_EQ(ErrorOf([&] { CheckSqlite(path_); }), Number(test.expected)) << test.name;
    EXPECT_EQ(BytesOf(path_), bytes) << test.name;
    std::filesystem::remove(path_);
  }
  EXPECT_EQ(ErrorOf([] { OpenSqlite(""); }), Number(StoreError::NotReachable));
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
  EXPECT_EQ(ErrorOf([&] { Open(std::chrono::seconds(1), OpenMode::Rehearsal); }),
            Number(StoreError::NotReachable));
  EXPECT_EQ(BytesOf(path_), broken);
  EXPECT_EQ(BytesOf(path_ + "-journal"), journal);

  EXPECT_EQ(Addresses(*Open()), 1);
  EXPECT_EQ(Query("SELECT Name FROM Adressen"), "Müller");
  EXPECT_THAT(CheckSqlite(path_), IsEmpty());
}

TEST_F(SqliteFile, TellsSqlToolsDatesThatPeopleCanRead) {
  const auto store = Create();
  const Oid address = AddAddress(*store, "Müller");
  const auto shown = [&](const host::Value& date) {
    const Oid oid =
        InsertedOid(*store, table::vv_VertragsAktivitaeten,
                    InsertedOid(*store, table::vv_Vertraege, address), {{field::Datum, date}});
    store->Commit();
    return Query("SELECT ifnull(Datum, 'NULL') FROM vv_VertragsAktivitaeten_lesbar WHERE oid = " +
                 std::to_string(oid));
  };
  EXPECT_EQ(shown({}), "NULL");
  EXPECT_EQ(shown(platform::kNoDate), "");
  EXPECT_EQ(shown(platform::FromCivil(2024, 3, 15)), "2024-03-15");
  EXPECT_EQ(shown(host::Date{platform::FromCivil(2024, 3, 15).days + 34200.0 / 86400.0}),
            "2024-03-15 09:30:00");
  EXPECT_EQ(shown(platform::kNoInvoiceDate), "9999-12-31");
  EXPECT_EQ(shown(platform::FromCivil(1899, 12, 28)), "1899-12-28");
  EXPECT_EQ(shown(host::Date{-1.25}), "1899-12-29 06:00:00");
  EXPECT_EQ(Query("SELECT typeof(Datum) FROM vv_VertragsAktivitaeten LIMIT 1 OFFSET 2"), "real");
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
  EXPECT_EQ(ErrorOf([&] { Open(); }), Number(StoreError::ReadOnly));
  const auto store = Open(std::chrono::seconds(1), OpenMode::Read);
  EXPECT_EQ(ErrorOf([&] { AddAddress(*store, "Meier"); }), Number(StoreError::ReadOnly));
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

TEST_F(SqliteFile, ANameIsAFileAndNoAddress) {
  AddAddress(*Create(), "Müller");
  EXPECT_EQ(ErrorOf([&] { OpenSqlite("file:" + path_); }), Number(StoreError::NotReachable));
}

TEST_F(SqliteFile, TheCheckNamesWhatIsWrong) {
  struct Fault {
    std::string sql;
    std::string_view expected;
  };
  const std::vector<Fault> cases = {
      {"DELETE FROM Adressen", "vv_Vertraege, Oid 2: in Adressen fehlt"},
      {"UPDATE vv_Vertraege SET Dauer = 'zwölf'",
       "vv_Vertraege, Oid 2, Dauer: der Wert passt nicht"},
      {"DROP INDEX vv_Vertraege_order", "vv_Vertraege: der Index vv_Vertraege_order fehlt"},
      {"DROP VIEW vv_Vertraege_lesbar; ALTER TABLE vv_Vertraege DROP COLUMN Memo",
       "vv_Vertraege: die Spalte Memo fehlt"},
      {"DROP TABLE Artikel", "die Tabelle Artikel fehlt"},
  };
  for (const Fault& test : cases) {
    {
      const auto store = Create();
      InsertedOid(*store, table::vv_Vertraege, AddAddress(*store, "Müller"),
                  {{field::AktValue, -0.0}, {field::Dauer, std::int32_t{12}}});
      store->Commit();
    }
    EXPECT_THAT(CheckSqlite(path_), IsEmpty());
    RunSql(test.sql);
    EXPECT_THAT(CheckSqlite(path_), Contains(HasSubstr(test.expected))) << test.sql;
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
