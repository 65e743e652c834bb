// Two hosts over one database, as two users have it open.

#include <gtest/gtest.h>

#include <chrono>

#include "embedded/Host.h"
#include "schema/names.h"
#include "store/errors.h"
#include "support/error_of.h"
#include "support/store_kinds.h"

namespace pactora::embedded {
namespace {

namespace field = schema::field;
namespace table = schema::table;
using support::ErrorNumberOf;

class TwoUsers : public support::StoreTest {
 protected:
  void SetUp() override {
    StoreTest::SetUp();
    if (IsSkipped()) return;
    name_ = GetParam().new_name();
    anna_ = std::make_unique<Host>(GetParam().create_at(name_, schema::ContractCatalog(true), {}));
    jan_ = Open();
  }
  std::unique_ptr<Host> Open() {
    return std::make_unique<Host>(GetParam().open(name_, std::chrono::milliseconds(0)));
  }

  static void Add(Host& host, std::string_view name, std::string_view key, const char* value) {
    const auto rows = host.Table(name);
    rows->GotoRec(rows->NewRecordOid(0));
    rows->Fields().Item(key).SetValue(value);
    rows->StoreNew(256);
  }

  std::string name_;
  std::unique_ptr<Host> anna_;
  std::unique_ptr<Host> jan_;
};

TEST_P(TwoUsers, ARowThatAnotherUserChangedIsNotOverwritten) {
  const auto hers = anna_->Table(table::Adressen);
  const auto his = jan_->Table(table::Adressen);
  const auto rename = [](host::HostTable& addresses, const char* name) {
    addresses.Fields().Item(field::Name).SetValue(name);
    return ErrorNumberOf([&] { addresses.Store(256); });
  };
  const auto name = [](host::HostTable& addresses) {
    addresses.MoveFirst(256);
    return addresses.Fields().Item(field::Name).Value().AsText();
  };
  Add(*anna_, table::Adressen, field::Name, "Alt");
  anna_->EndUnit();
  EXPECT_EQ(name(*his), "Alt");
  EXPECT_EQ(rename(*hers, "Anna war hier"), 0);
  anna_->EndUnit();
  EXPECT_EQ(rename(*his, "Jan auch"), Number(HostError::RowChanged));
  EXPECT_EQ(ErrorNumberOf([&] { his->DeleteRec(0); }), Number(HostError::RowChanged));
  jan_->EndUnit();
  EXPECT_EQ(name(*his), "Anna war hier");
  EXPECT_EQ(rename(*his, "Jan"), 0) << "read again, it can be written";
  jan_.reset();
  EXPECT_EQ(name(*hers), "Anna war hier") << "a unit that is not ended is gone";

  jan_ = Open();
  jan_->Table(table::Adressen)->MoveFirst(256);
  jan_->Table(table::Adressen)->DeleteRec(0);
  jan_->EndUnit();
  EXPECT_EQ(rename(*hers, "zu spät"), Number(HostError::RowChanged));
}

TEST_P(TwoUsers, ACounterIsLockedFromTheSeekToTheEndOfTheUnit) {
  Add(*anna_, table::KELM_Mandanten, field::TessarinName, "FIRMA");
  Add(*anna_, table::KELM_Nummern, field::Nummer, "00000005");
  anna_->EndUnit();
  const auto seek = [](Host& host) {
    const auto numbers = host.Table(table::KELM_Nummern);
    numbers->Indexes().Select(schema::index::Tabelle_Feld, 256);
    return ErrorNumberOf([&] { numbers->SeekNear("", 256); });
  };
  EXPECT_EQ(seek(*anna_), 0);
  EXPECT_EQ(seek(*jan_), store::Number(store::StoreError::Locked));
  anna_->EndUnit();
  EXPECT_EQ(seek(*jan_), 0);
}

TEST_P(TwoUsers, WhatAnotherUserSetIsSeen) {
  host::HostPersistVars& hers = anna_->App()->CurrentDb()->Formulas().PersistVars();
  host::HostPersistVars& his = jan_->App()->CurrentDb()->Formulas().PersistVars();
  EXPECT_FALSE(hers.Exists("neu"));
  his.Add("neu", "1");
  EXPECT_FALSE(hers.Exists("neu")) << "not before the unit's end";
  jan_->EndUnit();
  ASSERT_TRUE(hers.Exists("neu"));
  his.Item("neu")->SetValue("2");
  jan_->EndUnit();
  EXPECT_EQ(hers.Item("neu")->Value().AsText(), "2");
}

INSTANTIATE_TEST_SUITE_P(Stores, TwoUsers, testing::ValuesIn(support::SharedStoreKinds()),
                         support::StoreName);

}  // namespace
}  // namespace pactora::embedded
