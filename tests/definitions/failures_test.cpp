// Every host operation of a save fails in turn.

#include "definition_world.h"
#include "support/fault_sweep.h"

namespace pactora::definitions {
namespace {

using support::FaultSweep;

class SaveFailureTest : public DefinitionTest {
 protected:
  // The newest type and its positions.
  std::vector<std::string> LastType() {
    const Row type = Types().back();
    std::vector<std::string> rows = {Written(type)};
    for (const Row& position : Positions()) {
      if (position.parent == type.oid) rows.push_back(All(position));
    }
    return rows;
  }
  void ExpectFailure(const std::string& procedure) {
    world.screen.ExpectMessage(support::ReporterMessage(
        "vv_FEditDefinitions." + procedure, platform::ErrorNumber(0x80049999), "Probe"));
  }

  // A failed save reports itself, leaves the dialog open and no net sum behind,
  // and a second save gives what an undisturbed one does. The scenario opens the
  // dialog on a type of its own and enters what is to be saved.
  void FailEachOperation(const std::function<void(const Acts& save)>& scenario,
                         const std::string& position_procedure, bool makes_type) {
    std::vector<std::string> saved;
    for (FaultSweep sweep(FaultSweep::kSparse); sweep.Next();) {
      const std::size_t types_before = Types().size();
      scenario([&](DialogUser& user) {
        const std::size_t types_open = Types().size();
        const host::Value net_sum = makes_type ? host::Value() : Types().back()[field::NettoSumme];
        if (sweep.Fails()) {
          const bool at_positions = sweep.Failing().ends_with(table::vv_Definitionspositionen);
          ExpectFailure(at_positions ? position_procedure : "cmdSave_Click");
        }
        sweep.Run(world.host, [&] { user.Click("cmdSave"); });
        if (!sweep.Fails()) return;
        EXPECT_TRUE(user.IsOpen());
        if (!makes_type || Types().size() > types_open) {
          EXPECT_EQ(Types().back()[field::NettoSumme], net_sum);
        }
        user.Click("cmdSave");
        EXPECT_FALSE(user.IsOpen());
      });
      EXPECT_EQ(Types().size(), types_before + 1);
      if (!sweep.Fails()) saved = LastType();
      // Only its Oid tells the dialog that a new position is stored: one whose Oid
      // could not be read is stored once more.
      const bool stored_twice =
          sweep.Failing().starts_with("Oid ") && LastType().size() == saved.size() + 1;
      EXPECT_TRUE(stored_twice || LastType() == saved);
      ASSERT_THAT(world.screen.Problems(), testing::IsEmpty());
      ASSERT_GT(sweep.Operations(), 50u);
    }
  }
};

TEST_F(SaveFailureTest, OfANewTypeStoreItOnce) {
  const auto claim = [this](const Acts& save) {
    OpenNew([&](DialogUser& user) {
      user.Type("txtBezeichnung", "Neu");
      user.Choose("cboPutGroup", "Kunde");
      AddArticle(user, 1);
      AddArticle(user, 2);
      save(user);
    });
  };
  FailEachOperation(claim, "WritePositions", true);
  const auto liability = [this](const Acts& save) {
    OpenNew([&](DialogUser& user) {
      user.Type("txtBezeichnung", "Miete");
      user.Click("optKreditor");
      save(user);
    });
  };
  FailEachOperation(liability, "WriteDummyPosition", true);
}

TEST_F(SaveFailureTest, OfAChangedTypeChangeItOnce) {
  const auto claim = [this](const Acts& save) {
    const store::Oid type = AddType({{field::NettoSumme, 30.0}});
    AddPosition(type, "P1", "A");
    AddPosition(type, "P2", "B");
    AddPosition(type, "P3", "A");
    OpenEdit([&](DialogUser& user) {
      user.Paste("txtBezeichnung", "Geändert");
      for (const std::int32_t row : {1, 2}) DeletePosition(user, row);
      AddArticle(user, 1);
      save(user);
    });
  };
  FailEachOperation(claim, "WritePositions", false);
  const auto liability_without_position = [this](const Acts& save) {
    AddType({{field::Typ, "K"}});
    OpenEdit(save);
  };
  FailEachOperation(liability_without_position, "WriteDummyPosition", false);
}

// Nothing is stored on the way to memory; what fails there is reported, and the
// dialog closes all the same.
TEST_F(SaveFailureTest, ToMemory) {
  AddPosition(AddType(), "P1", "");
  for (FaultSweep sweep; sweep.Next();) {
    OpenForNewContract([&](DialogUser& user) {
      if (sweep.Fails()) ExpectFailure("WriteToNewContract");
      sweep.Run(world.host, [&] { user.Click("cmdSave"); });
      EXPECT_FALSE(user.IsOpen());
    });
  }
}

}  // namespace
}  // namespace pactora::definitions
