// A small company with the add-on on windows or on a screen of expectations.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "desktop/QtScreen.h"
#include "desktop/window_user.h"
#include "newcontract/dialog_world.h"
#include "shell/entry/CVV.h"
#include "support/attributes.h"
#include "support/contract_world.h"
#include "support/dialog_user.h"

namespace pactora::desktop {

namespace table = schema::table;
namespace field = schema::field;

// Contract types, attributes and workflows on top of the company of the world.
inline void Furnish(support::ContractWorld& world) {
  using newcontract::Position;
  using newcontract::Quarterly;
  const auto type = [&](const support::Values& values) {
    const store::Oid oid = world.Add(table::vv_Vertragsdefinitionen, Quarterly(values));
    world.Add(table::vv_Definitionspositionen, Position(), oid);
    return oid;
  };
  type({{field::ID, "D1"},
        {field::Bezeichnung, "Wartung"},
        {field::WorkflowID, "W1"},
        {field::SetztMerkmalGruppe, "Kunde"},
        {field::SetztMerkmal, "Branche"},
        {field::SetztWert, "Handel"}});
  type({{field::ID, "D2"},
        {field::Bezeichnung, "Ohne Ende"},
        {field::Art, 3},
        {field::ArtStr, "unbefristet"},
        {field::Dauer, 0},
        {field::Verlaengerungsdauer, 0}});
  type({{field::ID, "D3"}, {field::Bezeichnung, "Zulieferung"}, {field::Typ, "K"}});
  const store::Oid group = support::AddGroup(world, "Kunde");
  support::AddAttribute(world, group, "Branche", {"Handel", "Industrie"});
  support::AddAttribute(world, group, "Kunde seit", {"<Datum>"});
  support::AddWorkflow(world, "W1", "Verlängern");
  world.host.EndUnit();
}

// All rows that the dialogs write, as readable text.
inline std::vector<std::string> Written(support::ContractWorld& world) {
  std::vector<std::string> lines;
  for (const auto name :
       {table::vv_Vertraege, table::vv_Vertragsstaende, table::vv_Vertragspositionen,
        table::vv_VertragsAktivitaeten, table::Adressmerkmale, table::KELM_Nummern,
        table::vv_Vertragsdefinitionen, table::vv_Definitionspositionen}) {
    for (const support::Row& row : world.Rows(name)) {
      const std::string oids = std::to_string(row.parent) + "/" + std::to_string(row.oid);
      lines.push_back(std::string(name) + " " + oids + " " + support::All(row));
    }
  }
  return lines;
}

// Calls of the add-on in the company, on windows or on the world's screen of expectations.
struct Office {
  enum class On { Windows, Expectations };
  explicit Office(On on = On::Windows)
      : module({on == On::Windows ? static_cast<ui::Screen&>(windows) : world.screen, world.clock,
                platform::Locale{}, embedded::CreateErrorTexts,
                [this] { return world.host.App(); }}) {
    Furnish(world);
  }

  void NewContract() {
    bool show_details = false;
    world.Goto(table::Adressen, world.address);
    entry.NewContract(world.host.App(), saved, status_rows, show_details);
  }
  void NewType() { entry.EditContractDefinition(world.host.App(), true); }
  void EditType(std::string_view name) {
    for (const support::Row& row : world.Rows(table::vv_Vertragsdefinitionen)) {
      if (support::Shown(row[field::Bezeichnung]) == name) {
        world.Goto(table::vv_Vertragsdefinitionen, row.oid);
      }
    }
    entry.EditContractDefinition(world.host.App(), false);
  }

  support::ContractWorld world;
  QtScreen windows{[this] { world.host.EndUnit(); }};
  shell::Module module;
  shell::CVV entry{module};
  bool saved = false;
  std::int32_t status_rows = 0;
};

}  // namespace pactora::desktop
