// Every host operation of a save fails in turn.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "definition_world.h"
#include "support/failing_probe.h"

namespace pactora::definitions {
namespace {

using testing::IsEmpty;

// Writes down the operations instead of failing one.
class Operations final : public embedded::OperationProbe {
 public:
  explicit Operations(embedded::Host& host) : host_(host) { host_.SetProbe(this); }
  ~Operations() override { host_.SetProbe(nullptr); }
  void Before(std::string_view operation, std::string_view table_name) override {
    seen.emplace_back(operation, table_name);
  }
  std::vector<std::pair<std::string, std::string>> seen;

 private:
  embedded::Host& host_;
};

class SaveFailureTest : public DefinitionTest {
 protected:
  // Opens the dialog on a type of its own and enters what is to be saved.
  using Scenario = std::function<void(const Acts& save)>;

  // What the scenario's type holds, without Oids and IDs.
  std::vector<std::map<std::string, host::Value, std::less<>>> LastType() {
    std::vector<std::map<std::string, host::Value, std::less<>>> rows;
    const Row type = Types().back();
    rows.push_back(type.cells);
    rows.back().erase(std::string(field::ID));
    for (const Row& position : Positions()) {
      if (position.parent == type.oid) rows.push_back(position.cells);
    }
    return rows;
  }

  // A failed save reports itself, leaves the dialog open and no net sum behind,
  // and a second save gives what an undisturbed one does.
  void FailEachOperation(const Scenario& scenario, const std::string& position_procedure,
                         bool makes_type) {
    std::vector<std::pair<std::string, std::string>> operations;
    scenario([&](DialogUser& user) {
      const Operations probe(world.host);
      user.Click("cmdSave");
      operations = probe.seen;
    });
    const auto saved = LastType();
    ASSERT_GT(operations.size(), 50u);
    for (std::size_t nth = 1; nth <= operations.size(); ++nth) {
      const auto& [operation, table_name] = operations[nth - 1];
      SCOPED_TRACE(std::to_string(nth) + " " + operation + " " + table_name);
      const std::size_t types_before = Types().size();
      scenario([&](DialogUser& user) {
        const std::size_t types_open = Types().size();
        const host::Value net_sum_before =
            makes_type ? host::Value() : Types().back()[field::NettoSumme];
        const bool at_positions = table_name == table::vv_Definitionspositionen;
        world.screen.ExpectMessage(support::ReporterMessage(
            "vv_FEditDefinitions." + (at_positions ? position_procedure : "cmdSave_Click"),
            "Fehler &H80049999 in Probe\r\nUnbekannter Fehler"));
        {
          const support::FailingProbe probe(world.host, nth);
          user.Click("cmdSave");
          EXPECT_TRUE(probe.HasFailed());
        }
        EXPECT_TRUE(user.IsOpen());
        if (!makes_type || Types().size() > types_open) {
          EXPECT_EQ(Types().back()[field::NettoSumme], net_sum_before);
        }
        user.Click("cmdSave");
        EXPECT_FALSE(user.IsOpen());
      });
      EXPECT_EQ(Types().size(), types_before + 1);
      // Only its Oid tells the dialog that a new position is stored: one whose Oid
      // could not be read is stored once more.
      const bool stored_twice = operation == "Oid" && LastType().size() == saved.size() + 1;
      EXPECT_TRUE(stored_twice || LastType() == saved);
      ASSERT_THAT(world.screen.Problems(), IsEmpty());
    }
  }
};

TEST_F(SaveFailureTest, NewType) {
  FailEachOperation(
      [this](const Acts& save) {
        OpenNew([&](DialogUser& user) {
          user.Type("txtBezeichnung", "Neu");
          user.Choose("cboPutGroup", "Kunde");
          AddArticle(user, 1);
          AddArticle(user, 2);
          save(user);
        });
      },
      "WritePositions", true);
}

TEST_F(SaveFailureTest, ChangedType) {
  FailEachOperation(
      [this](const Acts& save) {
        const store::Oid type = AddType({{field::NettoSumme, 30.0}});
        AddPosition(type, "P1", "A");
        AddPosition(type, "P2", "B");
        AddPosition(type, "P3", "A");
        OpenEdit([&](DialogUser& user) {
          user.Paste("txtBezeichnung", "Geändert");
          for (const std::int32_t row : {1, 2}) {
            user.ChooseRow("lvwPositionen", row);
            Expect(kDeleteQuestion, kYesNoQuestion, "Pactora", Answer::Yes);
            user.Click("cmdDeletePos");
          }
          AddArticle(user, 1);
          save(user);
        });
      },
      "WritePositions", false);
}

TEST_F(SaveFailureTest, NewCreditorType) {
  FailEachOperation(
      [this](const Acts& save) {
        OpenNew([&](DialogUser& user) {
          user.Type("txtBezeichnung", "Miete");
          user.Click("optKreditor");
          save(user);
        });
      },
      "WriteDummyPosition", true);
}

TEST_F(SaveFailureTest, CreditorTypeWithoutAPosition) {
  FailEachOperation(
      [this](const Acts& save) {
        AddType({{field::Typ, "K"}});
        OpenEdit(save);
      },
      "WriteDummyPosition", false);
}

// Nothing is stored on the way to memory; what fails there is reported, and the
// dialog closes all the same.
TEST_F(SaveFailureTest, ToMemory) {
  AddPosition(AddType(), "P1", "");
  std::size_t operations = 1;
  for (std::size_t nth = 1; nth <= operations; ++nth) {
    OpenForNewContract([&](DialogUser& user) {
      world.screen.ExpectMessage(
          support::ReporterMessage("vv_FEditDefinitions.WriteToNewContract",
                                   "Fehler &H80049999 in Probe\r\nUnbekannter Fehler"));
      const support::FailingProbe probe(world.host, nth);
      user.Click("cmdSave");
      operations = std::max(operations, probe.Seen());
      EXPECT_FALSE(user.IsOpen());
    });
  }
}

}  // namespace
}  // namespace pactora::definitions
