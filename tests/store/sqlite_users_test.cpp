// Locks of the file, and units that fail.
#include "store/SqliteFile.h"
#include "store/sqlite/SqliteRecordStore.h"
#include "store/sqlite/structure.h"

namespace pactora::store {
namespace {

using namespace std::chrono_literals;

namespace field = schema::field;
namespace table = schema::table;

class SqliteUsers : public SqliteFile {
 protected:
  SqliteUsers() : one_(Create()), two_(Open(0ms)) {}

  std::unique_ptr<RecordStore> one_;
  std::unique_ptr<RecordStore> two_;
};

TEST_F(SqliteUsers, ReadingHoldsNoLock) {
  const Oid address = AddAddress(*one_, "Müller");
  InsertedOid(*one_, table::Artikel, InsertedOid(*one_, table::Artikelgruppen, 0, {}, {"G"}), {},
              {"A"});
  one_->Commit();
  Record record;
  for (TableId id = 0; id < two_->Catalog().tables.size(); ++id) {
    two_->Read(id, address, record);
    two_->NextInParent(id, 0, 0, record);
    two_->Count(id);
    two_->CountInParent(id, address);
    for (IndexId index = 0; index < two_->Catalog().tables[id].indexes.size(); ++index) {
      two_->NextByKey(id, index, "", 0, record);
    }
  }
  two_->ReadProfile();
  two_->ProfileStamp();
  // A commit needs the file for itself.
  sqlite::Connection alone(path_, sqlite::Access::ReadWrite, 0ms);
  alone.Run("BEGIN EXCLUSIVE");
}

TEST_F(SqliteUsers, ACommitThatFailsLeavesNothingAndTheNextUnitGoesOn) {
  AddAddress(*one_, "bleibt");
  {
    sqlite::Connection reader(path_, sqlite::Access::ReadOnly, 0ms);
    reader.Run("BEGIN");
    reader.Run("SELECT count(*) FROM Adressen");
    InsertedOid(*two_, table::Adressen);
    EXPECT_EQ(ErrorNumberOf([&] { two_->Commit(); }), Number(StoreError::Locked));
    EXPECT_FALSE(two_->InUnit());
    EXPECT_EQ(Addresses(*two_), 1);
    two_->Rollback();
  }
  EXPECT_EQ(AddAddress(*two_, "danach"), 2);
  EXPECT_EQ(Addresses(*one_), 2);
}

TEST_F(SqliteUsers, AUnitThatTheStorageGaveUpIsLostUntilRollback) {
  AddAddress(*one_, "bleibt");
  auto own = std::make_unique<sqlite::Connection>(path_, sqlite::Access::ReadWrite, 0ms);
  sqlite::Connection* const connection = own.get();
  connection->SetUp();
  schema::Catalog catalog = sqlite::ReadStructure(*connection).catalog;
  const auto store =
      std::make_unique<sqlite::SqliteRecordStore>(std::move(own), std::move(catalog));
  const TableId addresses = TableOf(*store, table::Adressen);
  // No room for another page, as on a full disk.
  connection->Run("PRAGMA max_page_count = 1");
  InsertedOid(*store, table::Adressen, 0, {{field::Name, "verloren"}});
  Record large = Row(*store, table::Adressen, 0, {{field::Name, std::string(100000, 'x')}});
  EXPECT_EQ(ErrorNumberOf([&] { store->Insert(addresses, large); }), Number(StoreError::Full));

  EXPECT_TRUE(store->InUnit());
  Record record = Row(*store, table::Adressen);
  const std::vector<std::function<void()>> writes = {
      [&] { store->Insert(addresses, record); },
      [&] { store->Update(addresses, record); },
      [&] { store->UpdateKeys(addresses, 1, {}); },
      [&] { store->Erase(addresses, 1, 1); },
      [&] { store->WriteSetting({}); },
      [&] { store->WriteProfile({}); },
      [&] { store->LockForUpdate(); },
      [&] { store->Commit(); },
      [&] { store->Commit(); },
  };
  for (const auto& write : writes) EXPECT_EQ(ErrorNumberOf(write), Number(StoreError::UnitLost));
  EXPECT_THAT(support::ErrorOf([&] { store->Commit(); })->Description(),
              testing::HasSubstr("Speicherplatz"));
  store->Rollback();
  EXPECT_FALSE(store->InUnit());
  EXPECT_EQ(Addresses(*store), 1);

  connection->Run("PRAGMA max_page_count = 100000");
  EXPECT_EQ(AddAddress(*store, "danach"), 2);
  EXPECT_EQ(Addresses(*one_), 2);
}

}  // namespace
}  // namespace pactora::store
