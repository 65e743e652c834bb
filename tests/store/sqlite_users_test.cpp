// Several users of one file, and units that fail.
#include <future>
#include <thread>

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

TEST_F(SqliteUsers, ASecondWriterIsRefusedAfterItsTimeLimit) {
  one_->LockForUpdate();
  Record record = Row(*two_, table::Adressen);
  EXPECT_EQ(ErrorNumberOf([&] { two_->LockForUpdate(); }), Number(StoreError::Locked));
  EXPECT_EQ(ErrorNumberOf([&] { two_->Insert(TableOf(*two_, table::Adressen), record); }),
            Number(StoreError::Locked));
  EXPECT_FALSE(two_->InUnit());
  one_->Rollback();
  two_->LockForUpdate();
  EXPECT_TRUE(two_->InUnit());
}

TEST_F(SqliteUsers, ASecondWriterWaitsAndReadsWhatTheFirstCommitted) {
  const Oid oid = AddAddress(*one_, "00000001");
  one_->LockForUpdate();
  std::promise<void> started;
  auto second = std::async(std::launch::async, [&] {
    const auto store = Open(20s);
    Record record;
    started.set_value();
    store->LockForUpdate();
    store->Read(TableOf(*store, table::Adressen), oid, record);
    return Cell(*store, table::Adressen, record, field::Name).AsText();
  });
  started.get_future().wait();
  Record record;
  ASSERT_TRUE(one_->Read(TableOf(*one_, table::Adressen), oid, record));
  Cell(*one_, table::Adressen, record, field::Name) = "00000002";
  ASSERT_TRUE(one_->Update(TableOf(*one_, table::Adressen), record));
  one_->Commit();
  EXPECT_EQ(second.get(), "00000002");
}

TEST_F(SqliteUsers, AUnitReadsWhatAnotherUserWroteSinceTheLastOne) {
  const TableId addresses = TableOf(*one_, table::Adressen);
  const Oid oid = AddAddress(*one_, "alt");
  Record record;
  const auto name_in_unit = [&] {
    two_->LockForUpdate();
    two_->Read(addresses, oid, record);
    two_->Commit();
    return Cell(*two_, table::Adressen, record, field::Name);
  };
  EXPECT_EQ(name_in_unit().AsText(), "alt");
  Cell(*one_, table::Adressen, record, field::Name) = "neu";
  ASSERT_TRUE(one_->Update(addresses, record));
  one_->Commit();
  EXPECT_EQ(name_in_unit().AsText(), "neu");
}

TEST_F(SqliteUsers, TheStampTellsThatAnotherUserWrote) {
  const std::int64_t before = one_->ProfileStamp();
  two_->WriteSetting({SettingScope::PersistVar, "", "vv_AlarmWochenEnde", "9"});
  EXPECT_EQ(one_->ProfileStamp(), before);
  two_->Commit();
  EXPECT_NE(one_->ProfileStamp(), before);
  EXPECT_EQ(one_->ReadProfile().settings[0].value.AsText(), "9");
}

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
