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
#include "support/contract_world.h"
#include "support/dialog_user.h"

namespace pactora::definitions {

namespace table = schema::table;
namespace field = schema::field;
using support::DialogUser;
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
    customer = AddGroup("Kunde");
    AddAttribute(customer, "Branche", {"Handel", "Industrie"});
    AddAttribute(customer, "Betreuer", {"<Benutzername>"});
    AddAttribute(customer, "Kunde seit", {"<Datum>", "nie"});
    AddAttribute(customer, "Sperre", {});
    AddAttribute(AddGroup("Abteilung"), "Branche", {"Vertrieb"});
    AddGroup("Zukunft");
    AddWorkflow("W1", "Verlängern", "freigegeben");
    AddWorkflow("W2", "Alt", "gesperrt");
    AddWorkflow("W3", "Nachfragen", "freigegeben");
    world.host.EndUnit();
    world.Enter();
  }

  store::Oid AddGroup(std::string_view name) {
    return world.Add(table::MerkmalgruppeAdressen, {{field::Gruppe, name}});
  }
  void AddAttribute(store::Oid group, std::string_view name,
                    const std::vector<std::string>& values) {
    const store::Oid attribute =
        world.Add(table::MerkmallisteAdressen, {{field::Merkmal, name}}, group);
    for (const std::string& value : values) {
      world.Add(table::WerteMerkmalAdressen, {{field::Wert, value}}, attribute);
    }
  }
  void AddWorkflow(std::string_view id, std::string_view name, std::string_view status) {
    world.Add(table::KELDO_Vorgaenge,
              {{field::ID, id}, {field::Betreff, name}, {field::Status, status}});
  }

  // A renewable claim of 12 months unless the values say otherwise; its row is
  // current afterwards.
  store::Oid AddType(const Values& values = {}) {
    const Values usual = {{field::Status, "freigegeben"},
                          {field::Typ, "D"},
                          {field::Bezeichnung, "Wartung"},
                          {field::Art, 1},
                          {field::ArtStr, "verlängerbar"},
                          {field::Dauer, 12},
                          {field::Verlaengerungsdauer, 12},
                          {field::Kuendigungsfrist, 6},
                          {field::KuendigungsfristEinh, "Wochen"},
                          {field::VerlKuendigungsfrist, 6},
                          {field::VerlKuendigungsfristEinh, "Wochen"},
                          {field::Zahlungsperiode, 1},
                          {field::VerlaengerungsZahlungsperiode, 1},
                          {field::RechnungWann, 0},
                          {field::NoBooking, false}};
    const store::Oid type = world.Add(table::vv_Vertragsdefinitionen, support::With(usual, values));
    world.host.EndUnit();
    world.Goto(table::vv_Vertragsdefinitionen, type);
    return type;
  }
  store::Oid AddPosition(store::Oid type, std::string_view article_id, std::string_view group,
                         double price = 10.0, double quantity = 1.0) {
    Values values = {
        {field::Artikel, article_id}, {field::ArtikelID, article_id},  {field::Anzahl, quantity},
        {field::Nettopreis, price},   {field::NettoOhneRabatt, price}, {field::Preis, 12 * price},
        {field::UStSatz, 19.0},       {field::Erloeskonto, 8400},      {field::Gruppierung, group}};
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
  void OpenEdit(const Acts& acts) {
    frmFEditDefinitions dialog(world.module);
    ASSERT_TRUE(dialog.InitEdit());
    Show(dialog, acts);
  }
  void OpenForNewContract(const Acts& acts) {
    frmFEditDefinitions dialog(world.module);
    ASSERT_TRUE(dialog.InitEdit());
    dialog.ShowForNewContract();
    Show(dialog, acts);
  }
  void Show(frmFEditDefinitions& dialog, const Acts& acts) {
    world.screen.ExpectDialog("frmFEditDefinitions", [&](ui::Form& form, ui::Person& person) {
      DialogUser user(form, person);
      acts(user);
    });
    dialog.Show(world.screen);
  }
  // The position dialog comes next.
  void ExpectPosition(Acts acts) {
    world.screen.ExpectDialog("frmFEditDefPositions",
                              [acts = std::move(acts)](ui::Form& form, ui::Person& person) {
                                DialogUser user(form, person);
                                acts(user);
                              });
  }
  void AddArticle(DialogUser& user, std::int32_t row) {
    user.ChooseRow("lvwArtikel", row);
    ExpectPosition([](DialogUser& position) { position.Click("cmdOk"); });
    user.Click("cmdAddPos");
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
    const auto number = static_cast<std::int32_t>(error);
    world.screen.ExpectMessage(support::ReporterMessage(
        procedure, "Fehler &H" + platform::HexNumber(number) + " in Pactora2\r\n" +
                       platform::RuntimeErrorText(error)));
  }

  std::vector<Row> Types() { return world.Rows(table::vv_Vertragsdefinitionen); }
  std::vector<Row> Positions() { return world.Rows(table::vv_Definitionspositionen); }

  store::Oid customer = 0;
};

}  // namespace pactora::definitions
