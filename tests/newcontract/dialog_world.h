// The new-contract dialog over a small company, driven by control name as a
// person would.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "definitions/vv_CDefinition.h"
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
using support::Fields;
using support::Line;
using support::Lines;
using support::Row;
using support::Shown;
using support::Values;
using support::With;

// A released, renewing, quarterly claim over twelve months.
inline Values Quarterly(const Values& changes = {}) {
  return With(Fields("ID=D1, Status=freigegeben, Typ=D, Bezeichnung=Wartung, Art=1, "
                     "ArtStr=verlängerbar, Dauer=12, Verlaengerungsdauer=12, Kuendigungsfrist=6, "
                     "KuendigungsfristEinh=Wochen, VerlKuendigungsfrist=3, "
                     "VerlKuendigungsfristEinh=Monate, Zahlungsperiode=3, "
                     "VerlaengerungsZahlungsperiode=6, RechnungWann=0, NoBooking=False, "
                     "NettoSumme=99,99"),
              changes);
}

inline Values Once(const Values& changes = {}) {
  return With(Quarterly(Fields("Art=2, ArtStr=einmalig, Dauer=6, Verlaengerungsdauer=0, "
                               "Kuendigungsfrist=0, VerlKuendigungsfrist=0")),
              changes);
}

inline Values Unlimited(const Values& changes = {}) {
  return With(Quarterly(Fields("Art=3, ArtStr=unbefristet, Dauer=0, Verlaengerungsdauer=0")),
              changes);
}

inline Values Position(const Values& changes = {}) {
  return With(
      Fields("Artikel=Wartung Server, Nettopreis=30, Artikelnummer=1000, Artikelart=Dienst, "
             "Einheit=Stück, UStSatz=19, Beschreibung=Vor Ort, Anzahl=2, Erloeskonto=1111, "
             "ArtikelID=A1, PreisM1=10, PreisM3=30, PreisM6=59,99, PreisM12=110, "
             "PreisM24=200, PreisM36=300, PreisM48=400, PreisM60=500, Preis=120, "
             "NettoOhneRabatt=30, Row=001, Positionsnummer=1, Gruppierung=Basis, "
             "Gruppierungsposition=1"),
      changes);
}

// What a type may set as an attribute of the address.
inline Values Sets(const Values& changes = {}) {
  return With(Fields("SetztMerkmalGruppe=Kunden, SetztMerkmal=Wartung, SetztWert=ja"), changes);
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

// Puts a changed copy of the first type of the list into memory.
inline definitions::vv_CDefinition& HoldChange(support::ContractWorld& world,
                                               const frmNewContract& form) {
  auto type = std::make_shared<definitions::vv_CDefinition>();
  type->DefOid = form.lvwBezeichnung.Text(1, 2);
  type->Typ = "D";
  type->Bezeichnung = "Sonderwartung";
  type->Art = 1;
  type->ArtStr = "verlängerbar";
  type->Dauer = type->Verlaengerungsdauer = 6;
  type->Zahlungsperiode = type->VerlaengerungsZahlungsperiode = 6;
  type->Kuendigungsfrist = 1;
  type->KuendigungsfristEinh = "Monate";
  type->VerlKuendigungsfrist = 2;
  type->VerlKuendigungsfristEinh = "Wochen";
  type->RechnungWann = 1;
  type->NettoSumme = 50.0;
  world.module.gDefinition = type;
  return *type;
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
