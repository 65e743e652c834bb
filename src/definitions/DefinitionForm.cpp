#include "definitions/DefinitionForm.h"

#include "definitions/position_columns.h"

namespace pactora::definitions {

DefinitionForm::DefinitionForm(shell::Module& module)
    : Form("frmFEditDefinitions"),
      module_(module),
      requi_attribute_(*this, kRequiAttribute, module, attribute_tables_, mbLoading),
      put_attribute_(*this, kPutAttribute, module, attribute_tables_, mbLoading) {
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
