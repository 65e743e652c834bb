// A type changed for one contract: it comes from memory and goes back there.
#include <memory>

#include "definitions/frmFEditDefinitions.h"
#include "definitions/loading_scope.h"
#include "definitions/position_columns.h"
#include "definitions/tables.h"
#include "definitions/vv_CPosition.h"
#include "schema/names.h"

namespace pactora::definitions {

void frmFEditDefinitions::ShowForNewContract() {
  Report("ShowForNewContract", [this] {
    mbForNewContract = true;
    cboZahlungsperiode.AddItem(kSinglePayment, Dauer());
    if (module_.gDefinition && module_.gDefinition->Dirty) ShowFromMemory();
    cboStatus.SetEnabled(false);
    requi_attribute_.Frame().SetEnabled(false);
    cmdSave.SetCaption("Übernehmen");
  });
}

void frmFEditDefinitions::ShowFromMemory() {
  Report("ShowFromMemory", [this] {
    // Once shown, the dialog holds the values, and only saving gives them back:
    // nothing stays in memory, whether all could be shown or not.
    struct Release {
      std::shared_ptr<vv_CDefinition>& definition;
      ~Release() { definition.reset(); }
    } const release{module_.gDefinition};
    ShowDefinition(*module_.gDefinition);
  });
}

void frmFEditDefinitions::ShowDefinition(const vv_CDefinition& definition) {
  msTyp = definition.Typ;
  SelectKind(definition.Art);
  chkNoBooking.SetChecked(definition.NoBooking);
  txtBezeichnung.SetText(definition.Bezeichnung);
  {
    const LoadingScope loading(mbLoading);
    txtDauer.SetText(std::to_string(definition.Dauer));
  }
  txtDauer2.SetText(std::to_string(definition.Verlaengerungsdauer));
  cboKuendFrist.SetText(std::to_string(definition.Kuendigungsfrist));
  cboKuendEinh.SetText(definition.KuendigungsfristEinh);
  cboKuendFrist2.SetText(std::to_string(definition.VerlKuendigungsfrist));
  cboKuendEinh2.SetText(definition.VerlKuendigungsfristEinh);
  SetSinglePaymentTerm(definition.Dauer);
  {
    const LoadingScope loading(mbLoading);
    SelectPeriod(cboZahlungsperiode, definition.Zahlungsperiode);
  }
  SelectPeriod(cboZahlungsperiode2, definition.VerlaengerungsZahlungsperiode);
  SelectRechnungWann(definition.RechnungWann);
  msWorkflowID = definition.VerlaengerungsWorkflowID;
  EnableWorkflowSelection(msTyp == schema::kTypDebtor && definition.Art == schema::kArtRenewable);
  put_attribute_.Restore(
      {definition.SetztMerkmalGruppe, definition.SetztMerkmal, definition.SetztWert});
  if (module_.gPositions) ShowPositionsFromMemory(*module_.gPositions);
}

void frmFEditDefinitions::WriteToNewContract() {
  Report("WriteToNewContract", [this] {
    const double net_sum = CollectPositions();
    const auto definition = std::make_shared<vv_CDefinition>();
    module_.gDefinition = definition;
    *definition = EnteredDefinition();
    definition->NettoSumme = net_sum;
    definition->Dirty = true;
    definition->DefOid = Held(moDefinitionen).Oid();
  });
}

// A claim without positions leaves the collection of an earlier change alone.
double frmFEditDefinitions::CollectPositions() {
  if (msTyp != schema::kTypDebtor) {
    module_.gPositions = std::make_shared<shell::PositionCollection>(
        1, std::make_shared<vv_CPosition>(DummyPosition()));
    return 0.0;
  }
  if (lvwPositionen.RowCount() == 0) return 0.0;
  const auto positions = std::make_shared<shell::PositionCollection>();
  module_.gPositions = positions;
  const platform::Locale& locale = module_.environment.locale;
  double net_sum = 0.0;
  for (std::int32_t row = 1; row <= lvwPositionen.RowCount(); ++row) {
    positions->push_back(std::make_shared<vv_CPosition>(RecordOf(lvwPositionen, row, locale)));
    net_sum += TotalOf(lvwPositionen, row, locale);
  }
  return net_sum;
}

}  // namespace pactora::definitions
