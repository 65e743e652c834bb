#include "dialogs/layouts.h"

namespace pactora::dialogs {
namespace {

Item Type() {
  return Frame(
      "fraTyp",
      Grid({At(0, 0, "lblBezeichnung"), At(0, 1, "txtBezeichnung"), At(0, 2, "lblStatus"),
            At(0, 3, "cboStatus"), At(1, 0, "lblArt"),
            At(1, 1, Frame("fraArt", Row({"optDebitor", "optKreditor"}))), At(1, 2, "lblDauer"),
            At(1, 3,
               Frame("fraDauer", Row({"optBefristet", "chkVerlaengerbar", "optUnbefristet"})))},
           {0, 1, 0, 1}));
}

// The terms of the first or the follow-up contract, in columns: label, box, unit.
Item FirstContract() {
  return Frame(
      "fraErstvertrag",
      Grid({At(0, 0, "lblDauer1"), At(0, 1, "txtDauer"), At(0, 2, "lblDauerEinheit"),
            At(1, 0, "lblZahlungsPeriode"), At(1, 1, "cboZahlungsperiode"),
            At(2, 0, "lblRechnungWann"), At(2, 1, "cboRechnungWann"), At(2, 2, "chkNoBooking", 2),
            At(3, 0,
               Frame("fraKuendFrist", Row({"lblKuendFrist", "cboKuendFrist", "cboKuendEinh",
                                           "cboKuenfristBezug", Stretch()})),
               4)},
           {0, 0, 0, 1}));
}

Item FollowUpContract() {
  return Frame(
      "fraVerlaengerung",
      Grid({At(0, 0, "lblDauer2"), At(0, 1, "txtDauer2"), At(0, 2, "lblDauerEinheit2"),
            At(1, 0, "lblZahlungsPeriode2"), At(1, 1, "cboZahlungsperiode2"),
            At(2, 0, "lblKuendFrist2"), At(2, 1, Row({"cboKuendFrist2", "cboKuendEinh2"}), 2)},
           {0, 0, 0, 1}, {0, 0, 0, 1}));
}

// Group, attribute and value; a value that is a date stands where the box is.
Item Attribute(const char* frame, const std::string& role) {
  std::vector<Item> cells;
  std::int32_t row = 0;
  for (const char* part : {"Group", "Attribute", "Value"}) {
    cells.push_back(At(row, 0, ("lbl" + role + part).c_str()));
    cells.push_back(At(row++, 1, ("cbo" + role + part).c_str()));
  }
  cells.push_back(At(row - 1, 1, ("DTP" + role + "Value").c_str()));
  return Frame(frame, Grid(std::move(cells), {0, 1}));
}

Item Positions() {
  Item catalogue = Row({"lblArtikel", Stretched("cboArtikelGruppen")});
  Item buttons = Column({Stretch(), "cmdAddPos", "cmdDeletePos", "cmdEditPos", Stretch()});
  return Frame("fraPositionen", Grid({At(0, 0, std::move(catalogue)), At(0, 2, "lblPositionen"),
                                      At(1, 0, "lvwArtikel"), At(1, 1, std::move(buttons)),
                                      At(1, 2, "lvwPositionen")},
                                     {2, 0, 3}, {0, 1}));
}

}  // namespace

Layout EditDefinitionsLayout() {
  Item note = Frame("fraPositionenK", Column({Aligned(Item::Align::Center, "lblPositionenK")}));
  Item body = Grid({At(0, 0, Type(), 2), At(1, 0, FirstContract()), At(1, 1, FollowUpContract()),
                    At(2, 0, Attribute("Frame3", "Requi")), At(2, 1, Attribute("Frame4", "Put")),
                    At(3, 0, Frame("fraWF", Row({"lblWorkflow", Stretched("cboWorkflow")})), 2),
                    At(4, 0, Stack({Positions(), std::move(note)}), 2)},
                   {1, 1}, {0, 0, 0, 0, 1});
  return {.form = "frmFEditDefinitions",
          .body = std::move(body),
          .buttons = {"cmdSave", "cmdCancel"},
          .plain_frames = {"fraKuendFrist"},
          .same_width = {{"lblDauer1", "lblZahlungsPeriode", "lblRechnungWann", "lblKuendFrist"},
                         {"lblDauer2", "lblZahlungsPeriode2", "lblKuendFrist2"}},
          .names = {{"cboKuendEinh", "Einheit der Kündigungsfrist"},
                    {"cboKuenfristBezug", "Bezug der Kündigungsfrist"},
                    {"cboKuendEinh2", "Einheit der Kündigungsfrist im Folgevertrag"},
                    {"DTPRequiValue", "Wert"},
                    {"DTPPutValue", "Wert"},
                    {"lvwArtikel", "Artikel der Gruppe"},
                    {"cmdAddPos", "Artikel als Vertragsposition übernehmen"},
                    {"cmdDeletePos", "Vertragsposition löschen"},
                    {"cmdEditPos", "Vertragsposition bearbeiten"}},
          .opened_by = {{"lvwArtikel", "cmdAddPos"}, {"lvwPositionen", "cmdEditPos"}}};
}

}  // namespace pactora::dialogs
