// Two hosts over one database file, as two users have it open.

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>

#include "embedded/Host.h"
#include "schema/names.h"
#include "store/errors.h"
#include "store/sqlite/SqliteStore.h"
#include "support/TemporaryFolder.h"

namespace pactora::embedded {
namespace {

using namespace std::chrono_literals;
namespace field = schema::field;
namespace table = schema::table;

class TwoUsers : public testing::Test {
 protected:
  TwoUsers() {
    store::Profile profile;
    profile.name = "FIRMA";
    Host host(store::CreateSqlite(path_, schema::ContractCatalog(true), profile));
    Add(host, table::KELM_Mandanten, field::TessarinName, "FIRMA");
    Add(host, table::KELM_Nummern, field::Nummer, "00000005");
    Add(host, table::Adressen, field::Name, "Alt");
    host.EndUnit();
  }

  static void Add(Host& host, std::string_view name, std::string_view key, const char* value) {
    const auto rows = host.Table(name);
    rows->GotoRec(rows->NewRecordOid(0));
    rows->Fields().Item(key).SetValue(value);
    rows->StoreNew(256);
  }

  std::unique_ptr<Host> Open(std::chrono::milliseconds lock_timeout = 20s) {
    store::OpenOptions options;
    options.lock_timeout = lock_timeout;
    return std::make_unique<Host>(store::OpenSqlite(path_, options));
  }

  static std::string Rename(Host& host, const char* name) {
    const auto addresses = host.Table(table::Adressen);
    addresses->Fields().Item(field::Name).SetValue(name);
    try {
      addresses->Store(256);
    } catch (const platform::Error& error) {
      return error.Number() == Number(HostError::RowChanged) ? "changed" : error.Description();
    }
    return "stored";
  }

  // Draws the next number as the add-on does, but for the unit's end.
  static int Draw(Host& host) {
    const auto numbers = host.Table(table::KELM_Nummern);
    numbers->Indexes().Select(schema::index::Tabelle_Feld, 256);
    numbers->SeekNear("", 256);
    host::HostField& number = numbers->Fields().Item(field::Nummer);
    const int next = std::stoi(number.Value().AsText()) + 1;
    number.SetValue(std::to_string(next));
    numbers->Store(256);
    return next;
  }

  support::TemporaryFolder folder_;
  const std::string path_ = folder_.File("firma.db");
};

TEST_F(TwoUsers, ARowThatAnotherUserChangedIsNotOverwritten) {
  const auto anna = Open();
  const auto jan = Open();
  anna->Table(table::Adressen)->MoveFirst(256);
  jan->Table(table::Adressen)->MoveFirst(256);
  EXPECT_EQ(Rename(*anna, "Anna war hier"), "stored");
  anna->EndUnit();
  EXPECT_EQ(Rename(*jan, "Jan auch"), "changed");
  jan->EndUnit();
  jan->Table(table::Adressen)->MoveFirst(256);
  EXPECT_EQ(jan->Table(table::Adressen)->Fields().Item(field::Name).Value().AsText(),
            "Anna war hier");
  EXPECT_EQ(Rename(*jan, "Jan"), "stored") << "read again, it can be written";

  jan->EndUnit();
  anna->Table(table::Adressen)->MoveFirst(256);
  jan->Table(table::Adressen)->DeleteRec(0);
  jan->EndUnit();
  EXPECT_EQ(Rename(*anna, "zu spät"), "changed");
}

TEST_F(TwoUsers, ACounterIsLockedFromTheSeekToTheEndOfTheUnit) {
  const auto anna = Open();
  EXPECT_EQ(Draw(*anna), 6);
  std::atomic<bool> jan_began = false;
  std::atomic<int> jan_drew = 0;
  std::thread other([&] {
    const auto jan = Open();
    jan_began = true;
    const int drawn = Draw(*jan);
    jan->EndUnit();
    jan_drew = drawn;
  });
  while (!jan_began) std::this_thread::yield();
  std::this_thread::sleep_for(50ms);
  EXPECT_EQ(jan_drew, 0) << "waits while Anna's unit is open";
  anna->EndUnit();
  other.join();
  EXPECT_EQ(jan_drew, 7);
}

TEST_F(TwoUsers, WaitingForACounterHasALimit) {
  const auto anna = Open();
  const auto jan = Open(20ms);
  Draw(*anna);
  try {
    Draw(*jan);
    FAIL() << "the database is locked";
  } catch (const platform::Error& error) {
    EXPECT_EQ(error.Number(), store::Number(store::StoreError::Locked));
  }
  anna->EndUnit();
  EXPECT_EQ(Draw(*jan), 7);
}

TEST_F(TwoUsers, WhatAnotherUserSetIsSeen) {
  const auto anna = Open();
  const auto jan = Open();
  host::HostPersistVars& mine = anna->App()->CurrentDb()->Formulas().PersistVars();
  EXPECT_FALSE(mine.Exists("neu"));
  jan->App()->CurrentDb()->Formulas().PersistVars().Add("neu", "1");
  EXPECT_FALSE(mine.Exists("neu")) << "not before the unit's end";
  jan->EndUnit();
  ASSERT_TRUE(mine.Exists("neu"));
  jan->App()->CurrentDb()->Formulas().PersistVars().Item("neu")->SetValue("2");
  jan->EndUnit();
  EXPECT_EQ(mine.Item("neu")->Value().AsText(), "2");
}

TEST_F(TwoUsers, AUnitThatIsNotEndedIsGone) {
  {
    const auto anna = Open();
    anna->Table(table::Adressen)->MoveFirst(256);
    EXPECT_EQ(Rename(*anna, "verworfen"), "stored");
  }
  const auto jan = Open();
  jan->Table(table::Adressen)->MoveFirst(256);
  EXPECT_EQ(jan->Table(table::Adressen)->Fields().Item(field::Name).Value().AsText(), "Alt");
}

}  // namespace
}  // namespace pactora::embedded
