// The unit of work and the profile in every store.
#include "store/StoreSuite.h"

namespace pactora::store {
namespace {

namespace table = schema::table;

class StoreUnit : public StoreSuite {};

TEST_P(StoreUnit, AWriteOpensItAndCommitOrRollbackEndsIt) {
  EXPECT_FALSE(store_->InUnit());
  store_->Commit();
  store_->Rollback();
  EXPECT_FALSE(store_->InUnit());
  Children(table::Adressen, 0);
  EXPECT_FALSE(store_->InUnit()) << "reading opens no unit";

  InsertedOid(*store_, table::Adressen);
  EXPECT_TRUE(store_->InUnit());
  store_->Commit();
  EXPECT_FALSE(store_->InUnit());

  store_->LockForUpdate();
  store_->LockForUpdate();
  EXPECT_TRUE(store_->InUnit());
  store_->Rollback();
  EXPECT_FALSE(store_->InUnit());

  store_->WriteSetting({SettingScope::Database, "", "x", "y"});
  EXPECT_TRUE(store_->InUnit());
  store_->Commit();
  EXPECT_EQ(Children(table::Adressen, 0).size(), 1U);
}

TEST_P(StoreUnit, TheProfileComesBackAsItWasWrittenAndRollbackTakesItBack) {
  EXPECT_EQ(Text(store_->ReadProfile()), Text(SampleProfile()));
  Profile other = SampleProfile();
  other.name = "ANDERE";
  other.users = {"Clara"};
  other.settings.erase(other.settings.begin() + 1, other.settings.begin() + 4);
  other.macros.clear();
  store_->WriteProfile(other);
  EXPECT_EQ(Text(store_->ReadProfile()), Text(other));
  store_->Commit();
  store_->WriteSetting({SettingScope::PersistVar, "", "lt_Einheit", "weg"});
  store_->WriteProfile({});
  store_->Rollback();
  EXPECT_EQ(Text(store_->ReadProfile()), Text(other));
  store_->WriteSetting({SettingScope::PersistVar, "", "lt_Einheit", "weg"});
  store_->Rollback();
  EXPECT_EQ(Text(store_->ReadProfile()), Text(other));
}

TEST_P(StoreUnit, ASavepointTakesBackWhatCameAfterItAndTheNumbersToo) {
  const auto write = [&](const char* value) {
    store_->WriteSetting({SettingScope::Database, "", "x", value});
    return InsertedOid(*store_, table::Adressen);
  };
  const Oid lost = write("verloren");
  store_->Rollback();
  EXPECT_EQ(write("eins"), lost) << "a number is given out again";
  store_->SetSavepoint();
  const Oid second = write("zwei");
  store_->RollbackToSavepoint();
  EXPECT_EQ(write("drei"), second);
  store_->RollbackToSavepoint();
  EXPECT_EQ(Children(table::Adressen, 0), std::vector<Oid>({lost}));
  EXPECT_EQ(store_->ReadProfile().settings.back().value, host::Value("eins"));
  EXPECT_EQ(write("vier"), second);
  store_->SetSavepoint();
  write("fünf");
  store_->RollbackToSavepoint();
  EXPECT_TRUE(store_->InUnit());
  store_->Commit();
  EXPECT_EQ(Children(table::Adressen, 0), std::vector<Oid>({lost, second}));
  EXPECT_EQ(store_->ReadProfile().settings.back().value, host::Value("vier"));
}

TEST_P(StoreUnit, ASettingIsReplacedInPlaceWhateverItsCaseOrAddedLast) {
  Profile expected = SampleProfile();
  expected.settings[1] = {SettingScope::PersistVar, "", "LT_EINHEIT", "Stück"};
  expected.settings[6] = {SettingScope::PrivateUser, "ÄNNE", "GRÖSSE",
                          host::ValueArray{host::Value(1.5), host::Value("x")}};
  store_->WriteSetting(expected.settings[1]);
  // "ß" has no upper case of its own: another name.
  store_->WriteSetting(expected.settings[6]);
  expected.settings.push_back(expected.settings[6]);
  expected.settings[6] = {SettingScope::PrivateUser, "ÄNNE", "GRÖße", std::int32_t{3}};
  store_->WriteSetting(expected.settings[6]);
  store_->Commit();
  EXPECT_EQ(Text(store_->ReadProfile()), Text(expected));

  expected.settings[1].value = host::ValueArray{host::Value("nur eins")};
  store_->WriteSetting(expected.settings[1]);
  EXPECT_EQ(Text(store_->ReadProfile()), Text(expected));
}

TEST_P(StoreUnit, TheStampStaysWhileNobodyElseWrites) {
  const std::int64_t stamp = store_->ProfileStamp();
  InsertedOid(*store_, table::Adressen);
  EXPECT_EQ(store_->ProfileStamp(), stamp);
  store_->Commit();
  EXPECT_EQ(store_->ProfileStamp(), stamp);
}

INSTANTIATE_TEST_SUITE_P(Stores, StoreUnit, testing::ValuesIn(support::AllStoreKinds()),
                         support::StoreName);

}  // namespace
}  // namespace pactora::store
