// The new-contract dialog over a small company, driven by control name as a
// person would.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "newcontract/frmNewContract.h"
#include "shell/modGlobalDefs.h"
#include "support/contract_world.h"
#include "support/dialog_user.h"
#include "support/row_text.h"

namespace pactora::newcontract {

namespace field = schema::field;
namespace table = schema::table;
using host::Value;
using support::All;
using support::Day;
using support::Line;
using support::Lines;
using support::Row;
using support::Shown;
using support::Values;
using support::With;

// A released, renewing, quarterly claim over twelve months.
inline Values Quarterly(const Values& changes = {}) {
  return With({{field::ID, "D1"},
               {field::Status, schema::kReleased},
               {field::Typ, "D"},
               {field::Bezeichnung, "Wartung"},
               {field::Art, 1},
               {field::ArtStr, "verlängerbar"},
               {field::Dauer, 12},
               {field::Verlaengerungsdauer, 12},
               {field::Kuendigungsfrist, 6},
               {field::KuendigungsfristEinh, "Wochen"},
               {field::VerlKuendigungsfrist, 3},
               {field::VerlKuendigungsfristEinh, "Monate"},
               {field::Zahlungsperiode, 3},
               {field::VerlaengerungsZahlungsperiode, 6},
               {field::RechnungWann, 0},
               {field::NoBooking, false},
               {field::NettoSumme, 99.99}},
              changes);
}

inline Values Once(const Values& changes = {}) {
  return With(Quarterly({{field::Art, 2},
                         {field::ArtStr, "einmalig"},
                         {field::Dauer, 6},
                         {field::Verlaengerungsdauer, 0},
                         {field::Kuendigungsfrist, 0},
                         {field::VerlKuendigungsfrist, 0}}),
              changes);
}

inline Values Unlimited(const Values& changes = {}) {
  return With(Quarterly({{field::Art, 3},
                         {field::ArtStr, "unbefristet"},
                         {field::Dauer, 0},
                         {field::Verlaengerungsdauer, 0}}),
              changes);
}

inline Values Position(const Values& changes = {}) {
  return With({{field::Artikel, "Wartung Server"},
               {field::Nettopreis, 30.0},
               {field::Artikelnummer, "1000"},
               {field::Artikelart, "Dienst"},
               {field::Einheit, "Stück"},
               {field::UStSatz, 19.0},
               {field::Beschreibung, "Vor Ort"},
               {field::Anzahl, 2.0},
               {field::Erloeskonto, 1111},
               {field::ArtikelID, "A1"},
               {field::PreisM1, 10.0},
               {field::PreisM3, 30.0},
               {field::PreisM6, 59.99},
               {field::PreisM12, 110.0},
               {field::PreisM24, 200.0},
               {field::PreisM36, 300.0},
               {field::PreisM48, 400.0},
               {field::PreisM60, 500.0},
               {field::Preis, 120.0},
               {field::NettoOhneRabatt, 30.0},
               {field::Row, "001"},
               {field::Positionsnummer, "1"},
               {field::Gruppierung, "Basis"},
               {field::Gruppierungsposition, 1}},
              changes);
}

inline ui::Message Plain(std::string text) { return {std::move(text), ui::style::kOkOnly}; }
inline ui::Message Warning(std::string text) {
  return {std::move(text), ui::style::kExclamation, shell::kAddonTitle};
}
// What the dialog shows when an operation of its own ends with that error.
inline ui::Message Failure(std::string_view number, std::string_view description,
                           std::string_view operation = "cmdOK_Click") {
  return Plain("Fehler &H" + std::string(number) + "\r\n(" + std::string(description) +
               ")\r\nin vv_FNewContract." + std::string(operation));
}

// The dialog with its user.
class Dialog : public support::DialogUser {
 public:
  explicit Dialog(support::ContractWorld& world)
      : DialogUser(form), form(world.module), world_(world) {}

  // Opens the dialog for the first address and shows it.
  bool Open() {
    world_.Enter();
    if (!form.InitNew()) return false;
    form.BeginModal();
    return true;
  }
  // Empties the box and types the discount key by key, then leaves it.
  ui::Outcome TypeDiscount(std::string_view keys) {
    Retype("txtRabatt", keys);
    return ui::Person(form).Leave(form.txtRabatt);
  }

  frmNewContract form;

 private:
  support::ContractWorld& world_;
};

class DialogTest : public support::ContractWorldTest {
 protected:
  store::Oid AddType(const Values& values) {
    return world.Add(table::vv_Vertragsdefinitionen, values);
  }
  void AddPosition(store::Oid type, const Values& changes = {}) {
    world.Add(table::vv_Definitionspositionen, Position(changes), type);
  }
  void Open() { ASSERT_TRUE(dialog.Open()); }
  // OK closes the dialog with a contract saved.
  void Save() {
    dialog.Click("cmdOK");
    EXPECT_TRUE(dialog.form.mbOK);
    EXPECT_FALSE(dialog.form.Visible());
  }
  // OK leaves it open with nothing saved.
  void SaveRefused() {
    dialog.Click("cmdOK");
    EXPECT_FALSE(dialog.form.mbOK);
    EXPECT_TRUE(dialog.form.Visible());
  }
  Row Contract() { return world.TheOnly(table::vv_Vertraege); }

  Dialog dialog{world};
  frmNewContract& form = dialog.form;
};

}  // namespace pactora::newcontract
