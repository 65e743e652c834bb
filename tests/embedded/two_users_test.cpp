// Two hosts over one database file, as two users have it open.

#include <gtest/gtest.h>

#include <chrono>

#include "embedded/Host.h"
#include "schema/names.h"
#include "store/errors.h"
#include "store/sqlite/SqliteStore.h"
#include "support/TemporaryFolder.h"
#include "support/error_of.h"

namespace pactora::embedded {
namespace {

namespace field = schema::field;
namespace table = schema::table;
using support::ErrorNumberOf;

class TwoUsers : public testing::Test {
 protected:
  static std::unique_ptr<store::RecordStore> NewStore(const std::string& path) {
    return store::CreateSqlite(path, schema::ContractCatalog(true), {});
  }
  std::unique_ptr<Host> Open() {
    store::OpenOptions options;
    options.lock_timeout = std::chrono::milliseconds(0);
    return std::make_unique<Host>(store::OpenSqlite(path_, options));
  }

  static void Add(Host& host, std::string_view name, std::string_view key, const char* value) {
    const auto rows = host.Table(name);
    rows->GotoRec(rows->NewRecordOid(0));
    rows->Fields().Item(key).SetValue(value);
    rows->StoreNew(256);
  }

  support::TemporaryFolder folder_;
  const std::string path_ = folder_.File("firma.db");
  std::unique_ptr<Host> anna_ = std::make_unique<Host>(NewStore(path_));
  std::unique_ptr<Host> jan_ = Open();
};

TEST_F(TwoUsers, ARowThatAnotherUserChangedIsNotOverwritten) {
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

TEST_F(TwoUsers, ACounterIsLockedFromTheSeekToTheEndOfTheUnit) {
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

TEST_F(TwoUsers, WhatAnotherUserSetIsSeen) {
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

}  // namespace
}  // namespace pactora::embedded
