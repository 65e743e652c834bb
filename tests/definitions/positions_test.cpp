// The position list between catalogue, position dialog and tables.

#include "definition_world.h"

namespace pactora::definitions {
namespace {

using platform::RuntimeError;
using testing::ElementsAre;

using PositionsTest = DefinitionTest;

std::string RowText(const DialogUser& user, std::int32_t row) {
  return user.Cells("lvwPositionen", row, 1, 22);
}

TEST_F(PositionsTest, AnArticleBecomesARow) {
  OpenNew([&](DialogUser& user) {
    AddArticle(user, 1, [](DialogUser& position) {
      position.Shows({{"txtNettopreis", "120,00"}, {"lblPeriod", "monatlich"}});
      position.Enter({{"txtBeschreibung", "im Haus"}, {"cboEinheit", "Stunde"}});
      position.Enter({{"txtPreisM1", "11,5"}, {"txtAnzahl", "2,5"}, {"cmdOk", ""}});
    });
    EXPECT_EQ(RowText(user, 1),
              "Wartung Server|2,50|11,50|28,75|1000|Dienst|Stunde|19|im Haus|8400|A1|"
              "11,50|30,00|60,00|120,00|240,00|360,00|480,00|600,00|120,00|11,50||");
    Expect("Der ausgewählte Artikel ist bereits eine Vertragsposition");
    user.Click("cmdAddPos");
    AddArticle(user, 2, [](DialogUser& position) { position.Click("cmdCancel"); });
    EXPECT_EQ(user.RowCount("lvwPositionen"), 1);
    // Prices of an unlimited type are those of a year.
    Expect(kReminder, 0);
    user.Click("optUnbefristet");
    AddArticle(user, 2, [](DialogUser& position) {
      position.Shows({{"lblDuration", "Gesamtlaufzeit: 12 Monate"}, {"txtPreisM1", "0,83"}});
    });
  });
}

TEST_F(PositionsTest, ARowFromTheTableIsEditedInPlace) {
  AddPosition(AddType({{field::Zahlungsperiode, 3}}), "A7", "Netz", 10.125, 2);
  OpenEdit([&](DialogUser& user) {
    EXPECT_EQ(RowText(user, 1),
              "A7|2,00|10,13|20,25|Nr|Ware|Paar|19|Text|8400|A7|"
              "10,125|30,375|60,75|121,5|243|364,5|486|607,5|121,5|10,125|Netz|");
    const std::string oid = user.Cell("lvwPositionen", 1, 0);
    EditPosition(user, [](DialogUser& position) {
      position.Shows({{"txtPreisM1", "10,13"}, {"txtGesamt", "60,76"}});
      position.Enter({{"txtArtikel", "Neuer Text"}, {"cmdOk", ""}});
    });
    const std::string after =
        "Neuer Text|2,00|30,38|60,76|Nr|Ware|Paar|19|Text|8400|A7|"
        "10,13|30,38|60,75|121,50|243,00|364,50|486,00|607,50|121,50|30,38|Netz|";
    EXPECT_EQ(RowText(user, 1), after);
    EXPECT_EQ(user.Cell("lvwPositionen", 1, 0), oid);
    EditPosition(user, [](DialogUser& position) { position.Paste("txtArtikel", "verworfen"); });
    EXPECT_EQ(RowText(user, 1), after);
  });
}

TEST_F(PositionsTest, WithNothingToWorkOnTheButtonsSaySo) {
  AddPosition(AddType(), "A7", "");
  OpenEdit([&](DialogUser& user) {
    // Without a term nothing is added, but rows can be edited.
    Expect(kReminder, 0);
    user.Paste("txtDauer", "0");
    ExpectError("vv_FEditDefinitions.cmdAddPos_Click", RuntimeError::DivisionByZero);
    user.Click("cmdAddPos");
    EditPosition(user, Accept);
    user.ChooseRow("lvwPositionen", 0);
    ExpectError("vv_FEditDefinitions.cmdEditPos_Click", RuntimeError::ObjectNotSet);
    user.Click("cmdEditPos");
    EXPECT_EQ(user.RowCount("lvwPositionen"), 1);
  });
}

TEST_F(PositionsTest, DeletingSelectsTheRowBefore) {
  const store::Oid type = AddType();
  for (const char* id : {"P1", "P2", "P3"}) AddPosition(type, id, "");
  OpenEdit([&](DialogUser& user) {
    const auto& list = user.Get<ui::ListView>("lvwPositionen");
    EXPECT_EQ(list.SelectedRow(), 1);
    DeletePosition(user, 3, Answer::No);
    EXPECT_EQ(list.RowCount(), 3);
    DeletePosition(user, 3);
    EXPECT_EQ(list.SelectedRow(), 2);
    DeletePosition(user, 1);
    EXPECT_EQ(list.SelectedRow(), 1);
    EXPECT_EQ(list.Text(1, 1), "P2");
    user.Click("cmdCancel");
  });
  EXPECT_EQ(Positions().size(), 3u);
}

TEST_F(PositionsTest, RowsAreWrittenGroupByGroup) {
  const store::Oid type = AddType();
  std::vector<store::Oid> oids;
  for (const char* group : {"A", "B", "A", "B"}) oids.push_back(AddPosition(type, group, group));
  AddPosition(AddType(), "fremd", "");
  world.Goto(table::vv_Vertragsdefinitionen, type);
  OpenEdit([&](DialogUser& user) {
    AddArticle(user, 1);
    DeletePosition(user, 4);
    user.Click("cmdSave");
  });
  std::vector<std::string> written;
  for (const Row& row : Positions()) {
    if (row.parent != type) continue;
    std::string line = std::to_string(std::ranges::find(oids, row.oid) - oids.begin());
    for (const std::string_view name :
         {field::Artikel, field::Row, field::Positionsnummer, field::Gruppierungsposition}) {
      line += " " + host::ToText(row[name]);
    }
    written.push_back(line);
  }
  EXPECT_THAT(written,
              ElementsAre("0 A 001 1 1", "1 B 002 3 2", "2 A 003 2 1", "4 Wartung Server 004 4 3"));
  EXPECT_EQ(Positions().size(), 5u);
  EXPECT_EQ(Positions().back()[field::PreisM60], host::Value(600.0));
}

}  // namespace
}  // namespace pactora::definitions
