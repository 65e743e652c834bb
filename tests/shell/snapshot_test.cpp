// Putting a table's cursor back.

#include "shell/CTableProperties.h"
#include "support/contract_world.h"

namespace pactora::shell {
namespace {

namespace table = schema::table;

class Snapshot : public support::ContractWorldTest {
 protected:
  Snapshot() {
    world.Enter();
    articles = world.host.Table(table::Artikel);
    snapshot.Init(articles);
  }
  void Search() {
    articles->Indexes().Select(schema::index::Id, 256);
    EXPECT_TRUE(articles->SeekKey("A2", 256));
    articles->SetCursorFlagA(true);
    articles->SetCursorFlagB(true);
  }

  std::shared_ptr<host::HostTable> articles;
  CTableProperties snapshot{world.module};
};

TEST_F(Snapshot, PutsBackRowIndexAndModes) {
  articles->Indexes().Select(schema::index::Id, 256);
  const auto index = articles->Indexes().Current()->Name();
  world.Goto(table::Artikel, world.server);
  articles->SetCursorFlagA(true);
  snapshot.Save();
  Search();
  articles->SetCursorFlagA(false);
  articles->Indexes().SelectNone(256);
  for (int again = 0; again < 2; ++again) {
    snapshot.Restore();
    EXPECT_EQ(articles->Oid(), std::to_string(world.server));
    ASSERT_TRUE(articles->Indexes().Current());
    EXPECT_EQ(articles->Indexes().Current()->Name(), index);
    EXPECT_TRUE(articles->CursorFlagA());
    EXPECT_FALSE(articles->CursorFlagB());
    world.Goto(table::Artikel, world.hotline);
  }
}

TEST_F(Snapshot, ARowThatIsGoneLeavesTheCursorWhereItIs) {
  world.Goto(table::Artikel, world.server);
  snapshot.Save();
  articles->DeleteRec(0);
  Search();
  snapshot.Restore();
  EXPECT_EQ(articles->Oid(), std::to_string(world.hotline));
}

TEST_F(Snapshot, TheApplicationIsPutBackOnlyWhenAsked) {
  host::HostApp& app = *world.module.gHostApp;
  const auto mine = std::make_shared<host::Object>();
  const auto choose = [&](const host::ObjectRef& object) {
    app.SelectionA().SetCurrent(object);
    app.SelectionB().SetCurrent(object);
    app.ActivateSelectionC(object);
    app.SetApplicationFlag(object == mine);
  };
  choose(mine);
  snapshot.Save();
  choose(nullptr);
  snapshot.Restore();
  EXPECT_FALSE(app.SelectionA().Current() || app.ApplicationFlag());
  snapshot.Restore(true);
  for (host::HostSelection* selection : {&app.SelectionA(), &app.SelectionB(), &app.SelectionC()})
    EXPECT_EQ(selection->Current(), mine);
  EXPECT_TRUE(app.ApplicationFlag());
}

}  // namespace
}  // namespace pactora::shell
