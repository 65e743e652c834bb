#include "definitions/DefinitionForm.h"

#include "definitions/position_columns.h"

namespace pactora::definitions {

DefinitionForm::DefinitionForm(shell::Module& module)
    : Form("frmFEditDefinitions"),
      module_(module),
      required_attribute_(*this, kRequiredAttribute, module, attribute_tables_, mbLoading),
      set_attribute_(*this, kSetAttribute, module, attribute_tables_, mbLoading) {
  optDebitor.SetValue(true);
  optBefristet.SetValue(true);
  chkVerlaengerbar.SetChecked(true);
  txtDauer.SetText("12");
  txtDauer2.SetText("12");
  lblDauerEinheit.SetCaption(kInMonths);
  lblDauerEinheit2.SetCaption(kInMonths);
  cboKuenfristBezug.SetEnabled(false);
  lvwArtikel.AddColumn("Artikel", 70);
  lvwArtikel.AddColumn("Preis", 30);
  lvwArtikel.AddColumn("OID", 0);
  lvwArtikel.AddColumn("ID", 0);
  AddPositionColumns(lvwPositionen);
  fraPositionen.LieOver(fraPositionenK);
}

}  // namespace pactora::definitions
