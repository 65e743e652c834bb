// Several users of one database.
#include <future>

#include "store/StoreSuite.h"

namespace pactora::store {
namespace {

using namespace std::chrono_literals;

namespace field = schema::field;
namespace table = schema::table;

class StoreUsers : public support::StoreTest {
 protected:
  void SetUp() override {
    StoreTest::SetUp();
    if (IsSkipped()) return;
    name_ = GetParam().new_name();
    one_ = GetParam().create_at(name_, schema::ContractCatalog(true), SampleProfile());
    two_ = Open(0ms);
  }
  std::unique_ptr<RecordStore> Open(std::chrono::milliseconds lock_timeout) {
    return GetParam().open(name_, lock_timeout);
  }

  std::string name_;
  std::unique_ptr<RecordStore> one_;
  std::unique_ptr<RecordStore> two_;
};

TEST_P(StoreUsers, ASecondWriterIsRefusedAfterItsTimeLimit) {
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

TEST_P(StoreUsers, ASecondWriterWaitsAndReadsWhatTheFirstCommitted) {
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

TEST_P(StoreUsers, AUnitReadsWhatAnotherUserWroteSinceTheLastOne) {
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

TEST_P(StoreUsers, TheStampTellsThatAnotherUserWrote) {
  const std::int64_t before = one_->ProfileStamp();
  two_->WriteSetting({SettingScope::PersistVar, "", "vv_AlarmWochenEnde", "9"});
  EXPECT_EQ(one_->ProfileStamp(), before);
  two_->Commit();
  EXPECT_NE(one_->ProfileStamp(), before);
  EXPECT_EQ(one_->ReadProfile().settings[0].value.AsText(), "9");
}

INSTANTIATE_TEST_SUITE_P(Stores, StoreUsers, testing::ValuesIn(support::SharedStoreKinds()),
                         support::StoreName);

}  // namespace
}  // namespace pactora::store
