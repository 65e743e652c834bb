// The road of a new contract: one contract row, one term, its positions.
#include "contract/dates.h"
#include "contract/modVV.h"
#include "newcontract/frmNewContract.h"
#include "schema/names.h"

namespace pactora::newcontract {

frmNewContract::Validity frmNewContract::SaveNew(ContractRows& rows, DefinitionSource& source,
                                                 const ContractInput& input) {
  mlVSCount = 1;
  const bool renewable = input.art == schema::kArtRenewable;
  const bool unlimited = input.art == schema::kArtUnlimited;
  const contract::NoticeRule rule = source.Notice();
  const Date term_end = contract::TermEnd(input.begin, input.dauer);
  const Date notice = contract::NoticeDate(term_end, rule.frist, rule.einheit);
  const Date end = unlimited ? platform::kNoDate : term_end;
  const Date next_invoice =
      contract::InvoiceDate(input.begin, input.rechnung_wann, input.zahlungsperiode);
  const Date alarm = renewable   ? contract::WeeksBefore(notice, module_.gAlarmWochenKuendigung)
                     : unlimited ? platform::kNoDate
                                 : contract::WeeksBefore(term_end, module_.gAlarmWochenEnde);

  rows.NewContract();
  rows.WriteTypAndBegin();
  rows.WriteEnd(end);
  rows.WriteSigned();
  rows.WriteTerms();
  rows.WritePeriodInForce(/*renewal=*/false);
  rows.WriteAmountInForce(rows.FirstTermAmount());
  rows.WriteNextInvoice(next_invoice);
  if (renewable) rows.WriteNotice(notice);
  rows.WriteResponsibility();
  DrawNumber(rows);
  rows.WriteRenewal();
  rows.StoreNewContract();

  if (renewable && module_.gAppointment4AllContracts) {
    contract::CreateCancellationAlarm(module_, "", alarm, notice, input.responsible,
                                      contract::kAlarmNotice);
  } else if (input.art == schema::kArtOnce) {
    contract::CreateCancellationAlarm(module_, "", alarm, term_end, input.responsible,
                                      contract::kAlarmEnd);
  }
  RemindOfSignature();

  rows.AddStatusRow({.start = input.begin,
                     .end = end,
                     .value = rows.FirstTermAmount(),
                     .next_invoice = next_invoice});
  rows.AddNewPositions();
  return {input.begin, end};
}

}  // namespace pactora::newcontract
