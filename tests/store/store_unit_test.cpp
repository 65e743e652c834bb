// The unit of work and the profile in every store.
#include "store/StoreSuite.h"

namespace pactora::store {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

namespace field = schema::field;
namespace table = schema::table;

class StoreUnit : public StoreSuite {
 protected:
  // All rows and the profile as text.
  std::string Everything() {
    std::string text;
    for (TableId id = 0; id < store_->Catalog().tables.size(); ++id) {
      text += store_->Catalog().tables[id].name + "\n";
      const auto parent = store_->Catalog().tables[id].parent;
      Record owner;
      if (!parent) AddRows(id, 0, text);
      while (parent && store_->NextInParent(*parent, owner.parent, owner.order, owner)) {
        AddRows(id, owner.oid, text);
      }
    }
    return text + Text(store_->ReadProfile());
  }

 private:
  void AddRows(TableId id, Oid parent, std::string& text) {
    Record record;
    while (store_->NextInParent(id, parent, record.order, record)) {
      text += "  " + TextWithKeys(record) + "\n";
    }
  }
};

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

TEST_P(StoreUnit, ReadsSeeItsOwnWrites) {
  const Oid group = InsertedOid(*store_, table::Artikelgruppen, 0, {}, {"G"});
  const Oid article = InsertedOid(*store_, table::Artikel, group, {}, {"A"});
  EXPECT_THAT(Children(table::Artikel, group), ElementsAre(article));
  EXPECT_THAT(ByKey(table::Artikel, "Id", "A"), ElementsAre(article));
  EXPECT_EQ(store_->Count(TableOf(*store_, table::Artikel)), 1);
}

TEST_P(StoreUnit, RollbackTakesBackEveryKindOfWrite) {
  const TableId groups = TableOf(*store_, table::Artikelgruppen);
  const TableId articles = TableOf(*store_, table::Artikel);
  const Oid group = InsertedOid(*store_, table::Artikelgruppen, 0, {{field::ID, "G"}}, {"G"});
  const Oid first = InsertedOid(*store_, table::Artikel, group, {}, {"A"});
  const Oid second = InsertedOid(*store_, table::Artikel, group, {}, {"B"});
  store_->Commit();
  const std::string before = Everything();

  Record record;
  ASSERT_TRUE(store_->Read(groups, group, record));
  Cell(*store_, table::Artikelgruppen, record, field::ID) = "H";
  record.keys[0] = "H";
  EXPECT_TRUE(store_->Update(groups, record));
  EXPECT_TRUE(store_->Update(groups, record));
  EXPECT_TRUE(store_->Erase(articles, first, 1));
  store_->UpdateKeys(articles, second, {"C"});
  const Oid third = InsertedOid(*store_, table::Artikel, group, {}, {"A"});
  EXPECT_TRUE(store_->Erase(articles, third, 1));
  InsertedOid(*store_, table::Artikel, group, {}, {"A"});
  store_->WriteSetting({SettingScope::PersistVar, "", "lt_Einheit", "weg"});
  store_->WriteProfile({});
  EXPECT_NE(Everything(), before);
  store_->Rollback();
  EXPECT_EQ(Everything(), before);
  EXPECT_THAT(ByKey(table::Artikel, "Id"), ElementsAre(first, second));
}

TEST_P(StoreUnit, AnErrorInItTakesBackTheFailedWriteAlone) {
  const Oid oid = InsertedOid(*store_, table::Adressen);
  Record taken = Row(*store_, table::Adressen);
  taken.oid = oid;
  EXPECT_NE(ErrorOf([&] { store_->Insert(TableOf(*store_, table::Adressen), taken); }), 0);
  const Oid next = InsertedOid(*store_, table::Adressen);
  store_->Commit();
  EXPECT_THAT(Children(table::Adressen, 0), ElementsAre(oid, next));
}

TEST_P(StoreUnit, TheProfileComesBackAsItWasWritten) {
  EXPECT_EQ(Text(store_->ReadProfile()), Text(SampleProfile()));
  Profile other = SampleProfile();
  other.name = "ANDERE";
  other.users = {"Clara"};
  other.settings.erase(other.settings.begin() + 1, other.settings.begin() + 4);
  other.macros.clear();
  store_->WriteProfile(other);
  EXPECT_EQ(Text(store_->ReadProfile()), Text(other));
  store_->Commit();
  EXPECT_EQ(Text(store_->ReadProfile()), Text(other));
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

INSTANTIATE_TEST_SUITE_P(Stores, StoreUnit, testing::ValuesIn(support::StoreKindsWithDisk()),
                         support::StoreName);

}  // namespace
}  // namespace pactora::store
