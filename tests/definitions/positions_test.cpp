// The position list between catalogue, position dialog and tables.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "definition_world.h"

namespace pactora::definitions {
namespace {

using testing::ElementsAre;

class PositionsTest : public DefinitionTest {
 protected:
  std::vector<std::string> RowTexts(const DialogUser& user, std::int32_t row) {
    std::vector<std::string> texts;
    for (std::int32_t column = 0; column <= 22; ++column) {
      texts.push_back(user.Cell("lvwPositionen", row, column));
    }
    return texts;
  }
  void Delete(DialogUser& user, std::int32_t row, Answer answer = Answer::Yes) {
    user.ChooseRow("lvwPositionen", row);
    Expect(kDeleteQuestion, kYesNoQuestion, "Pactora", answer);
    user.Click("cmdDeletePos");
  }
};

TEST_F(PositionsTest, AnArticleBecomesARow) {
  OpenNew([&](DialogUser& user) {
    user.ChooseRow("lvwArtikel", 1);
    ExpectPosition([](DialogUser& position) {
      EXPECT_EQ(position.Text("txtNettopreis"), "120,00");
      EXPECT_EQ(position.Text("lblPeriod"), "monatlich");
      position.Paste("txtBeschreibung", "im Haus");
      position.Choose("cboEinheit", "Stunde");
      position.Retype("txtPreisM1", "11,5");
      position.Retype("txtAnzahl", "2,5");
      position.Click("cmdOk");
    });
    user.Click("cmdAddPos");
    EXPECT_THAT(
        RowTexts(user, 1),
        ElementsAre("", "Wartung Server", "2,50", "11,50", "28,75", "1000", "Dienst", "Stunde",
                    "19", "im Haus", "8400", "A1", "11,50", "30,00", "60,00", "120,00", "240,00",
                    "360,00", "480,00", "600,00", "120,00", "11,50", ""));
    Expect("Der ausgewählte Artikel ist bereits eine Vertragsposition");
    user.Click("cmdAddPos");
    EXPECT_EQ(user.RowCount("lvwPositionen"), 1);
    ExpectPosition([](DialogUser& position) { position.Click("cmdCancel"); });
    user.ChooseRow("lvwArtikel", 2);
    user.Click("cmdAddPos");
    EXPECT_EQ(user.RowCount("lvwPositionen"), 1);
  });
}

TEST_F(PositionsTest, ARowFromTheTableIsEditedInPlace) {
  AddPosition(AddType({{field::Zahlungsperiode, 3}}), "A7", "Netz", 10.125, 2);
  OpenEdit([&](DialogUser& user) {
    const std::vector<std::string> before = RowTexts(user, 1);
    EXPECT_EQ(before[2], "2,00");
    EXPECT_EQ(before[3], "10,13");
    EXPECT_EQ(before[4], "20,25");
    EXPECT_EQ(before[12], "10,125");
    EXPECT_EQ(before[21], "10,125");
    ExpectPosition([](DialogUser& position) {
      EXPECT_EQ(position.Text("txtPreisM1"), "10,13");
      EXPECT_EQ(position.Text("txtGesamt"), "60,76");
      position.Paste("txtArtikel", "Neuer Text");
      position.Click("cmdOk");
    });
    user.Click("cmdEditPos");
    const std::vector<std::string> after = RowTexts(user, 1);
    EXPECT_EQ(after[0], before[0]);
    EXPECT_EQ(after[1], "Neuer Text");
    EXPECT_EQ(after[3], "30,38");
    EXPECT_EQ(after[4], "60,76");
    EXPECT_EQ(after[11], "A7");
    EXPECT_EQ(after[12], "10,13");
    EXPECT_EQ(after[21], "30,38");
    EXPECT_EQ(after[22], "Netz");
    ExpectPosition([](DialogUser& position) { position.Paste("txtArtikel", "verworfen"); });
    user.Click("cmdEditPos");
    EXPECT_EQ(RowTexts(user, 1), after);
  });
}

TEST_F(PositionsTest, UnlimitedTypesCountPricesByTheYear) {
  OpenNew([&](DialogUser& user) {
    user.Click("optUnbefristet");
    ExpectPosition([](DialogUser& position) {
      EXPECT_EQ(position.Text("lblDuration"), "Gesamtlaufzeit: 12 Monate");
      EXPECT_EQ(position.Text("txtPreisM1"), "10,00");
    });
    user.Click("cmdAddPos");
  });
}

TEST_F(PositionsTest, WithoutATermNothingIsAddedButRowsCanBeEdited) {
  AddPosition(AddType(), "A7", "");
  OpenEdit([&](DialogUser& user) {
    Expect(kReminder, 0);
    user.Paste("txtDauer", "0");
    ExpectError("vv_FEditDefinitions.cmdAddPos_Click", platform::RuntimeError::DivisionByZero);
    user.Click("cmdAddPos");
    EXPECT_EQ(user.RowCount("lvwPositionen"), 1);
    ExpectPosition([](DialogUser& position) { position.Click("cmdOk"); });
    user.Click("cmdEditPos");
  });
}

TEST_F(PositionsTest, WithNothingSelectedTheButtonsSaySo) {
  world.Add(table::Artikelgruppen, {{field::ID, "G2"}, {field::Artikelgruppe, "Leer"}});
  AddPosition(AddType(), "A7", "");
  OpenEdit([&](DialogUser& user) {
    user.Choose("cboArtikelGruppen", "Leer");
    EXPECT_EQ(user.RowCount("lvwArtikel"), 0);
    ExpectError("vv_FEditDefinitions.cmdAddPos_Click", platform::RuntimeError::ObjectNotSet);
    user.Click("cmdAddPos");
    user.ChooseRow("lvwPositionen", 0);
    ExpectError("vv_FEditDefinitions.cmdEditPos_Click", platform::RuntimeError::ObjectNotSet);
    user.Click("cmdEditPos");
    Expect(kDeleteQuestion, kYesNoQuestion, "Pactora", Answer::Yes);
    ExpectError("vv_FEditDefinitions.cmdDeletePos_Click", platform::RuntimeError::ObjectNotSet);
    user.Click("cmdDeletePos");
    EXPECT_EQ(user.RowCount("lvwPositionen"), 1);
  });
}

TEST_F(PositionsTest, AnArticleThatIsGoneIsNotAdded) {
  OpenNew([&](DialogUser& user) {
    world.Goto(table::Artikel, world.server);
    world.host.Table(table::Artikel)->DeleteRec(0);
    user.Click("cmdAddPos");
    EXPECT_EQ(user.RowCount("lvwPositionen"), 0);
  });
}

TEST_F(PositionsTest, DeletingSelectsTheRowBefore) {
  const store::Oid type = AddType();
  for (const char* id : {"P1", "P2", "P3"}) AddPosition(type, id, "");
  OpenEdit([&](DialogUser& user) {
    const auto& list = user.Get<ui::ListView>("lvwPositionen");
    EXPECT_EQ(list.SelectedRow(), 1);
    Delete(user, 3, Answer::No);
    EXPECT_EQ(list.RowCount(), 3);
    Delete(user, 3);
    EXPECT_EQ(list.SelectedRow(), 2);
    Delete(user, 1);
    EXPECT_EQ(list.SelectedRow(), 1);
    EXPECT_EQ(user.Cell("lvwPositionen", 1, 1), "P2");
    Delete(user, 1);
    user.Click("cmdDeletePos");
    user.Click("cmdEditPos");
    user.Click("cmdCancel");
  });
  EXPECT_EQ(Positions().size(), 3u);
}

TEST_F(PositionsTest, GroupsAreWrittenTogether) {
  const store::Oid type = AddType();
  for (const char* group : {"A", "B", "A"}) AddPosition(type, group, group);
  AddPosition(AddType(), "fremd", "");
  world.Goto(table::vv_Vertragsdefinitionen, type);
  OpenEdit([&](DialogUser& user) { user.Click("cmdSave"); });
  std::vector<std::string> written;
  for (const Row& row : Positions()) {
    written.push_back(host::ToText(row[field::Row]) + " " +
                      host::ToText(row[field::Positionsnummer]) + " " +
                      host::ToText(row[field::Gruppierungsposition]));
  }
  EXPECT_THAT(written, ElementsAre("001 1 1", "002 3 2", "003 2 1", "  "));
  EXPECT_EQ(Types().front()[field::NettoSumme], host::Value(30.0));
}

TEST_F(PositionsTest, RemovedAndNewRowsAreStored) {
  const store::Oid type = AddType();
  const store::Oid kept = AddPosition(type, "A2", "");
  AddPosition(type, "A1", "");
  OpenEdit([&](DialogUser& user) {
    Delete(user, 2);
    AddArticle(user, 1);
    Delete(user, 1, Answer::No);
    user.Click("cmdSave");
    EXPECT_FALSE(user.IsOpen());
  });
  const std::vector<Row> rows = Positions();
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0].oid, kept);
  EXPECT_EQ(rows[1].parent, type);
  EXPECT_EQ(rows[1][field::Artikel], host::Value("Wartung Server"));
  EXPECT_EQ(rows[1][field::Nettopreis], host::Value(10.0));
  EXPECT_EQ(rows[1][field::Preis], host::Value(120.0));
  EXPECT_EQ(rows[1][field::PreisM60], host::Value(600.0));
  EXPECT_EQ(rows[1][field::Erloeskonto], host::Value(8400));
  EXPECT_EQ(rows[1][field::Row], host::Value("002"));
}

TEST_F(PositionsTest, EmptyingTheListEmptiesTheTypeAfterAQuestion) {
  AddPosition(AddType({{field::NettoSumme, 10.0}}), "P1", "");
  OpenEdit([&](DialogUser& user) {
    Delete(user, 1);
    ExpectNoPositionsQuestion(Answer::No);
    user.Click("cmdSave");
    EXPECT_EQ(Positions().size(), 1u);
    ExpectNoPositionsQuestion(Answer::Yes);
    user.Click("cmdSave");
  });
  EXPECT_EQ(Positions().size(), 0u);
  EXPECT_EQ(Types().front()[field::NettoSumme], host::Value(0.0));
}

TEST_F(PositionsTest, ARowThatSomebodyDeletedStopsTheSaveWithoutAMessage) {
  const store::Oid type = AddType({{field::NettoSumme, 1.0}});
  const store::Oid first = AddPosition(type, "P1", "");
  OpenEdit([&](DialogUser& user) {
    AddArticle(user, 1);
    world.Goto(table::vv_Definitionspositionen, first);
    world.host.Table(table::vv_Definitionspositionen)->DeleteRec(0);
    user.Click("cmdSave");
    EXPECT_TRUE(user.IsOpen());
    EXPECT_EQ(Types().front()[field::NettoSumme], host::Value(1.0));
    EXPECT_EQ(Positions().size(), 0u);
  });
}

}  // namespace
}  // namespace pactora::definitions
