#include "newcontract/ContractRows.h"

#include "contract/dates.h"
#include "contract/modVV.h"
#include "contract/money.h"
#include "host/row.h"
#include "schema/names.h"

namespace pactora::newcontract {

namespace field = schema::field;
namespace table = schema::table;

namespace {

// A date field and the field that holds it as text for sorting.
void SetDate(host::HostTable& row, std::string_view name, std::string_view text_name, Date date) {
  Set(row, name, host::DateOrNone(date));
  Set(row, text_name, contract::SortText(date));
}

}  // namespace

ContractRows::ContractRows(shell::Module& module, DefinitionSource& source,
                           const ContractInput& input)
    : module_(module), source_(source), input_(input), discount_(input.discount) {
  host::HostTables& tables = module.gDb->Tables();
  const auto moDefPositionen = tables.Item(table::vv_Definitionspositionen);
  moVertraege = tables.Item(table::vv_Vertraege);
  moVertragsstaende = tables.Item(table::vv_Vertragsstaende);
  moVertragspositionen = tables.Item(table::vv_Vertragspositionen);
  moDefinitionen = tables.Item(table::vv_Vertragsdefinitionen);
  moArtikel = tables.Item(table::Artikel);

  ShowAllRows(*moDefPositionen, host::kFlagsUsual);
  moDefPositionen->Indexes().SelectNone(host::kFlagsNone);
  moVertraege->Indexes().SelectNone(host::kFlagsUsual);
  moVertraege->LinkChildren();
  moVertragsstaende->LinkChildren();
  ShowAllRows(*moArtikel, host::kFlagsNone);
  moArtikel->Indexes().Select(schema::index::Id, host::kFlagsNone);
}

double ContractRows::FirstTermAmount() {
  return contract::ApplyDiscount(source_.NettoSumme(), discount_);
}

void ContractRows::NewContract() { BeginNewRow(*moVertraege); }

void ContractRows::WriteTypAndBegin() {
  Set(*moVertraege, field::Typ, input_.typ);
  Set(*moVertraege, field::VertragBeginn, input_.begin);
}

void ContractRows::WriteEnd(Date end) {
  Set(*moVertraege, field::VertragEnde, host::DateOrNone(end));
}

void ContractRows::WriteSigned() {
  Set(*moVertraege, field::GeschlossenAm,
      host::DateOrNone(input_.signed_on.value_or(platform::kNoDate)));
}

void ContractRows::WriteTerms() {
  Set(*moVertraege, field::Memo, input_.memo);
  CopyToContract(field::Bezeichnung);
  CopyToContract(field::Art);
  CopyToContract(field::ArtStr);
  Set(*moVertraege, field::Dauer, input_.dauer);
  Set(*moVertraege, field::Verlaengerungsdauer, input_.verl_dauer);
  CopyToContract(field::Kuendigungsfrist);
  CopyToContract(field::KuendigungsfristEinh);
  CopyToContract(field::KuendigungsfristBezug);
  CopyToContract(field::VerlKuendigungsfrist);
  CopyToContract(field::VerlKuendigungsfristEinh);
  Set(*moVertraege, field::Zahlungsperiode, input_.zahlungsperiode);
  Set(*moVertraege, field::VerlaengerungsZahlungsperiode, input_.verl_zahlungsperiode);
}

void ContractRows::WritePeriodInForce(bool renewal) {
  Set(*moVertraege, field::AktZahlungsperiode,
      renewal ? input_.verl_zahlungsperiode : input_.zahlungsperiode);
  Set(*moVertraege, field::AktZahlungsperiodeStr, PeriodName(renewal));
}

void ContractRows::WriteAmountInForce(double amount) { Set(*moVertraege, field::AktValue, amount); }

void ContractRows::WriteNextInvoice(Date next_invoice) {
  SetDate(*moVertraege, field::AktNaechsteRechnung, field::AktNaechsteRechnungStr, next_invoice);
}

void ContractRows::WriteNotice(Date notice) { Set(*moVertraege, field::KuendfristDatum, notice); }

void ContractRows::WriteResponsibility() {
  Set(*moVertraege, field::Verantwortlich, input_.responsible);
  CopyToContract(field::ErfordertMerkmalGruppe);
  CopyToContract(field::ErfordertMerkmal);
  CopyToContract(field::ErfordertWert);
  CopyToContract(field::SetztMerkmalGruppe);
  CopyToContract(field::SetztMerkmal);
  CopyToContract(field::SetztWert);
  // The way back to the type is that of the stored one, changed in memory or not.
  Set(*moVertraege, field::VertragsDefinitionID, Get(*moDefinitionen, field::ID));
  Set(*moVertraege, field::NoBooking, input_.no_booking);
}

host::HostField& ContractRows::NumberField() {
  return moVertraege->Fields().Item(field::Vertragnummer);
}

void ContractRows::WriteNumber(const std::string& number) { NumberField().SetValue(number); }

void ContractRows::WriteRenewal() {
  Set(*moVertraege, field::VerlaengerungsWorkflowID, source_.RenewalWorkflowId());
  if (input_.art == schema::kArtRenewable && input_.discount_first_term_only) {
    Set(*moVertraege, field::RabattNurErsteLaufzeit, true);
  }
}

void ContractRows::StoreNewContract() { moVertraege->StoreNew(host::kFlagsUsual); }

void ContractRows::StoreContract() { moVertraege->Store(host::kFlagsUsual); }

void ContractRows::AddStatusRow(const StatusRow& row) {
  host::HostTable& status = *moVertragsstaende;
  BeginNewRow(status);
  if (row.taken_over) Set(status, field::AlteFakturierung, true);
  if (!row.lauf_typ.empty()) Set(status, field::LaufTyp, row.lauf_typ);
  SetDate(status, field::LaufzeitStart, field::LaufzeitStartStr, row.start);
  SetDate(status, field::LaufzeitEnde, field::LaufzeitEndeStr, row.end);
  const host::ObjectRef document = host::ToObject(Get(*moDefinitionen, field::Dokument));
  if (document) Set(status, field::Dokument, document);
  Set(status, field::Zahlungsperiode,
      row.renewal ? input_.verl_zahlungsperiode : input_.zahlungsperiode);
  Set(status, field::ZahlungsperiodeStr, PeriodName(row.renewal));
  if (row.value) Set(status, field::Value, *row.value);
  Set(status, field::RechnungWann, input_.rechnung_wann);
  SetDate(status, field::NaechsteRechnung, field::NaechsteRechnungStr, row.next_invoice);
  Set(status, field::Rabattprozent, discount_);
  status.StoreNew(host::kFlagsUsual);
}

void ContractRows::CopyToContract(std::string_view name) {
  Set(*moVertraege, name, source_.Field(name));
}

std::string ContractRows::PeriodName(bool renewal) {
  return renewal ? contract::GetPeriodName(input_.verl_zahlungsperiode)
                 : source_.FirstPeriodName(input_.zahlungsperiode);
}

}  // namespace pactora::newcontract
