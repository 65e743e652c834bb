// Files of the structure before this one: what they hold is kept.
#include "store/SqliteFile.h"

namespace pactora::store {
namespace {

namespace field = schema::field;
namespace index = schema::index;
namespace table = schema::table;

class SqliteMigration : public SqliteFile {
 protected:
  // A file as version 1 left it, with so many contracts under an address.
  void CreateVersion1(int contracts) {
    {
      const auto store = Create();
      const Oid address = AddAddress(*store, "Muster");
      for (int i = 1; i <= contracts; ++i)
        InsertedOid(*store, table::vv_Vertraege, address,
                    {{field::Vertragnummer, "ä" + std::to_string(i)}}, {"Ä" + std::to_string(i)});
      store->Commit();
    }
    MakeVersion1(path_);
  }
  // Tables with the names and types of their columns, indexes and views with theirs.
  std::string Structure() {
    return Query(
        "SELECT group_concat(line, char(10)) FROM (SELECT t.name || ' ' || c.name || ' ' || c.type "
        "AS line FROM sqlite_schema t, pragma_table_info(t.name) c UNION "
        "SELECT i.type || ' ' || i.name || ' ' || i.tbl_name FROM sqlite_schema i ORDER BY 1)");
  }

  // The contract of that number, found by its index.
  static Oid FindContract(RecordStore& store, const std::string& key) {
    Record row;
    const TableId contracts = TableOf(store, table::vv_Vertraege);
    const IndexId number = IndexOf(store, table::vv_Vertraege, index::Vertragnummer);
    return store.NextByKey(contracts, number, key, 0, row) && row.keys[number] == key ? row.oid : 0;
  }
};

TEST_F(SqliteMigration, AnEarlierFileBecomesOneOfTodayWhenItIsOpenedToWrite) {
  Create();
  const std::string structure = Structure();
  std::filesystem::remove(path_);
  CreateVersion1(3);
  int migrated = 0;
  const auto open = [&](OpenMode mode) {
    OpenOptions options;
    options.mode = mode;
    options.on_migrated = [&] { ++migrated; };
    const auto store = OpenSqlite(path_, options);
    EXPECT_NE(FindContract(*store, "Ä2"), 0);
    if (mode == OpenMode::Read)
      EXPECT_EQ(ErrorNumberOf([&] { AddAddress(*store, "x"); }), Number(StoreError::ReadOnly));
    else
      AddAddress(*store, "Neu");
  };
  const std::string before = BytesOf(path_);
  for (const OpenMode mode : {OpenMode::Read, OpenMode::Snapshot, OpenMode::Rehearsal}) open(mode);
  EXPECT_EQ(CheckSqlite(path_).faults, std::vector<std::string>());
  EXPECT_EQ(BytesOf(path_), before);
  EXPECT_EQ(migrated, 0);
  open(OpenMode::Write);
  open(OpenMode::Any);
  EXPECT_EQ(migrated, 1);
  EXPECT_EQ(Structure(), structure);
  EXPECT_EQ(CheckSqlite(path_).faults, std::vector<std::string>());
  EXPECT_EQ(Query("SELECT count(*) FROM Adressen"), "3");
  RunSql("DROP INDEX Vertragsschluessel_unique");
  EXPECT_EQ(ErrorNumberOf([&] { Open(); }), Number(StoreError::NotADatabase));
}

TEST_F(SqliteMigration, AnEarlierFileWithFaultsOrOthersTriggersStaysAsItIs) {
  const std::string trigger =
      "CREATE TRIGGER t AFTER UPDATE ON vv_Vertraege BEGIN DELETE FROM Adressen; END";
  const auto error = [&](OpenMode mode) {
    return ErrorNumberOf([&] { Open(std::chrono::seconds(1), mode); });
  };
  CreateVersion1(1);
  RunSql(trigger);
  std::string before = BytesOf(path_);
  EXPECT_EQ(error(OpenMode::Write), Number(StoreError::ReadOnly));
  EXPECT_NE(FindContract(*Open(std::chrono::seconds(1), OpenMode::Any), "Ä1"), 0);
  EXPECT_EQ(CheckSqlite(path_).additions.size(), 1u);
  EXPECT_EQ(BytesOf(path_), before);

  RunSql("DROP TRIGGER t; DROP INDEX Adressen_order");
  before = BytesOf(path_);
  for (const OpenMode mode : {OpenMode::Read, OpenMode::Any, OpenMode::Write})
    EXPECT_EQ(error(mode), Number(StoreError::NotADatabase));
  EXPECT_EQ(CheckSqlite(path_).faults,
            std::vector<std::string>{"der Index „Adressen_order“ fehlt"});
  EXPECT_EQ(BytesOf(path_), before);
}

}  // namespace
}  // namespace pactora::store
