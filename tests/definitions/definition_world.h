// A company with attributes, workflows and contract types, and the dialog of
// contract types opened in its three ways.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "definitions/frmFEditDefinitions.h"
#include "definitions/vv_CDefinition.h"
#include "definitions/vv_CPosition.h"
#include "support/attributes.h"
#include "support/contract_world.h"
#include "support/dialog_user.h"
#include "support/row_text.h"

namespace pactora::definitions {

namespace table = schema::table;
namespace field = schema::field;
using support::DialogUser;
using support::Fields;
using support::Row;
using support::Values;
using ui::Answer;

inline constexpr std::int32_t kInformation = 64;
inline constexpr std::int32_t kYesNoQuestion = 292;
inline constexpr char kReminder[] = "Überprüfen Sie bitte, ob die Preise noch stimmen !";
inline constexpr char kDeleteQuestion[] = "Wollen Sie die markierte Position wirklich löschen?";

class DefinitionTest : public support::ContractWorldTest {
 protected:
  using Acts = std::function<void(DialogUser& user)>;

  DefinitionTest() {
    using support::AddAttribute, support::AddGroup, support::AddWorkflow;
    customer = AddGroup(world, "Kunde");
    AddAttribute(world, customer, "Branche", {"Handel", "Industrie"});
    AddAttribute(world, customer, "Betreuer", {"<Benutzername>"});
    AddAttribute(world, customer, "Kunde seit", {"<Datum>", "nie"});
    AddAttribute(world, customer, "Sperre", {});
    AddAttribute(world, AddGroup(world, "Abteilung"), "Branche", {"Vertrieb"});
    AddGroup(world, "Zukunft");
    AddWorkflow(world, "W1", "Verlängern");
    AddWorkflow(world, "W2", "Alt", "gesperrt");
    AddWorkflow(world, "W3", "Nachfragen");
    world.host.EndUnit();
    world.Enter();
  }

  // A renewable claim of 12 months unless the values say otherwise; its row is
  // current afterwards.
  store::Oid AddType(const Values& values = {}) {
    const Values usual = Fields(
        "Status=freigegeben, Typ=D, Bezeichnung=Wartung, Art=1, ArtStr=verlängerbar, Dauer=12, "
        "Verlaengerungsdauer=12, Kuendigungsfrist=6, KuendigungsfristEinh=Wochen, "
        "VerlKuendigungsfrist=6, VerlKuendigungsfristEinh=Wochen, Zahlungsperiode=1, "
        "VerlaengerungsZahlungsperiode=1, RechnungWann=0, NoBooking=False");
    const store::Oid type = world.Add(table::vv_Vertragsdefinitionen, support::With(usual, values));
    world.host.EndUnit();
    world.Goto(table::vv_Vertragsdefinitionen, type);
    return type;
  }
  store::Oid AddPosition(store::Oid type, std::string_view article_id, std::string_view group,
                         double price = 10.0, double quantity = 1.0) {
    Values values =
        support::With(Fields("UStSatz=19, Erloeskonto=8400, Artikelnummer=Nr, Artikelart=Ware, "
                             "Einheit=Paar, Beschreibung=Text"),
                      {{field::Artikel, article_id},
                       {field::ArtikelID, article_id},
                       {field::Anzahl, quantity},
                       {field::Nettopreis, price},
                       {field::NettoOhneRabatt, price},
                       {field::Preis, 12 * price},
                       {field::Gruppierung, group}});
    for (std::size_t i = 0; i < schema::kPeriods.size(); ++i) {
      values.emplace_back(schema::kPriceFields[i], price * schema::kPeriods[i]);
    }
    const store::Oid position = world.Add(table::vv_Definitionspositionen, values, type);
    world.host.EndUnit();
    return position;
  }

  void OpenNew(const Acts& acts) {
    frmFEditDefinitions dialog(world.module);
    ASSERT_TRUE(dialog.InitNew());
    Show(dialog, acts);
  }
  // The current type.
  void OpenEdit(const Acts& acts, bool for_new_contract = false) {
    frmFEditDefinitions dialog(world.module);
    ASSERT_TRUE(dialog.InitEdit());
    if (for_new_contract) dialog.ShowForNewContract();
    Show(dialog, acts);
  }
  void OpenForNewContract(const Acts& acts) { OpenEdit(acts, true); }
  void Show(ui::Form& dialog, Acts acts) {
    world.screen.ExpectDialog(dialog.ClassName(), support::AsUser(std::move(acts)));
    dialog.Show(world.screen);
  }

  // The position dialog comes next.
  void ExpectPosition(Acts acts) {
    world.screen.ExpectDialog("frmFEditDefPositions", support::AsUser(std::move(acts)));
  }
  static void Accept(DialogUser& position) { position.Click("cmdOk"); }
  void AddArticle(DialogUser& user, std::int32_t row, Acts acts = Accept) {
    user.ChooseRow("lvwArtikel", row);
    ExpectPosition(std::move(acts));
    user.Click("cmdAddPos");
  }
  void EditPosition(DialogUser& user, Acts acts) {
    ExpectPosition(std::move(acts));
    user.Click("cmdEditPos");
  }
  void DeletePosition(DialogUser& user, std::int32_t row, Answer answer = Answer::Yes) {
    user.ChooseRow("lvwPositionen", row);
    Expect(kDeleteQuestion, kYesNoQuestion, "Pactora", answer);
    user.Click("cmdDeletePos");
  }
  void SaveWithoutPositions(DialogUser& user) {
    ExpectNoPositionsQuestion(Answer::Yes);
    user.Click("cmdSave");
  }

  void Expect(std::string text, std::int32_t style = kInformation, std::string title = "Pactora",
              Answer answer = Answer::Ok) {
    world.screen.ExpectMessage({std::move(text), style, std::move(title)}, answer);
  }
  void ExpectNoPositionsQuestion(Answer answer) {
    Expect("Sie haben keine Vertragspositionen eingegeben!\r\nHaben Sie das gewollt?",
           kYesNoQuestion, "Vertrag ohne Rechnungslegung?", answer);
  }
  // The reporter's box for a run-time error of the add-on's own.
  void ExpectError(std::string_view procedure, platform::RuntimeError error) {
    world.screen.ExpectMessage(support::ReporterMessage(procedure, error));
  }

  void ExpectInputError(const std::string& name) {
    Expect("Ungültige Eingabe in " + name + " !", kInformation, "Bitte ändern ...");
  }

  // All of a row but its ID, which counts up.
  static std::string Written(Row row) {
    row.cells.erase(std::string(field::ID));
    return All(row);
  }
  std::vector<Row> Types() { return world.Rows(table::vv_Vertragsdefinitionen); }
  std::vector<Row> Positions() { return world.Rows(table::vv_Definitionspositionen); }

  store::Oid customer = 0;
};

}  // namespace pactora::definitions
