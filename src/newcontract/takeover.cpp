// The road of a running contract whose past periods were invoiced already.
#include "contract/takeover.h"

#include <vector>

#include "contract/dates.h"
#include "contract/modVV.h"
#include "newcontract/frmNewContract.h"
#include "platform/Error.h"
#include "schema/names.h"

namespace pactora::newcontract {

namespace {

constexpr char kNoPeriodChosen[] = "Wählen Sie den Zeitraum aus, der zuletzt fakturiert wurde";

// The amount of a plan, once the sums of the terms before it are known.
double AmountOf(const contract::TakeoverAmount& amount, double first_term,
                const std::vector<double>& term_sums) {
  switch (amount.kind) {
    case contract::TakeoverAmount::Kind::FirstTerm:
      return first_term;
    case contract::TakeoverAmount::Kind::TermSum:
      return term_sums.at(amount.term);
    case contract::TakeoverAmount::Kind::Zero:
      return 0.0;
  }
  return 0.0;
}

}  // namespace

// Nothing, after a message, when no period is chosen; nothing for a number that
// is no contract kind.
std::optional<frmNewContract::Validity> frmNewContract::SaveTakeover(ContractRows& rows,
                                                                     DefinitionSource& source,
                                                                     const ContractInput& input) {
  if (lstInvoices.ListIndex() == ui::ListBox::kNone) {
    Say(kNoPeriodChosen);
    return std::nullopt;
  }
  switch (input.art) {
    case schema::kArtRenewable:
      return TakeOverRenewable(rows, source, input);
    case schema::kArtOnce:
    case schema::kArtUnlimited:
      return TakeOverOther(rows, source, input);
    default:
      return std::nullopt;
  }
}

contract::RunningContract frmNewContract::RunningContractOf(DefinitionSource& source) const {
  contract::RunningContract running;
  running.terms = InvoiceTerms();
  running.verl_dauer = mlVerlDauer;
  running.rechnung_wann = mlRechnungWann;
  running.notice = source.Notice();
  running.renewal_notice = source.RenewalNotice();
  running.alarm_weeks = module_.gAlarmWochenKuendigung;
  running.selected = static_cast<std::size_t>(lstInvoices.ListIndex());
  running.mdtLetzteListe = mdtLetzteListe;
  return running;
}

frmNewContract::Validity frmNewContract::TakeOverRenewable(ContractRows& rows,
                                                           DefinitionSource& source,
                                                           const ContractInput& input) {
  const contract::TakeoverPlan plan = contract::PlanRenewableTakeover(RunningContractOf(source));

  rows.NewContract();
  rows.WriteSigned();
  rows.WriteTypAndBegin();
  rows.WriteTerms();
  rows.WriteResponsibility();
  DrawNumber(rows);
  rows.WriteRenewal();
  rows.StoreNewContract();
  RemindOfSignature();

  mlVSCount = 0;
  const double first_term_amount = rows.FirstTermAmount();
  std::vector<double> term_sums;
  for (const contract::TakeoverStep& step : plan.steps) {
    if (const auto* term = std::get_if<contract::TakeoverTerm>(&step)) {
      ++mlVSCount;
      StatusRow row{.start = term->start,
                    .end = term->end,
                    .lauf_typ = term->renewal ? schema::kRenewalTerm : schema::kFirstTerm,
                    .taken_over = true,
                    .renewal = term->renewal,
                    .next_invoice = term->next_invoice};
      if (term->provisional_value) row.value = rows.FirstTermAmount();
      rows.AddStatusRow(row);
      if (term->renewal) {
        term_sums.push_back(rows.AddRenewalPositions());
      } else {
        rows.AddFirstTermPositions();
        term_sums.push_back(first_term_amount);
      }
    } else if (std::holds_alternative<contract::TakeoverRenewals>(step)) {
      if (!input.discount_first_term_only) continue;
      // The dialog's too: a save after one that fails goes on without the discount.
      mdblRabatt = 0.0;
      rows.DropDiscount();
    } else if (const auto* write = std::get_if<contract::TakeoverContract>(&step)) {
      rows.WriteNotice(write->notice);
      rows.WriteEnd(write->end);
      if (write->in_force) {
        rows.WritePeriodInForce(write->in_force->renewal);
        rows.WriteAmountInForce(AmountOf(write->in_force->amount, first_term_amount, term_sums));
        rows.WriteNextInvoice(write->in_force->next_invoice);
      }
      rows.StoreContract();
    } else {
      const auto& alarm = std::get<contract::TakeoverAlarm>(step);
      if (module_.gAppointment4AllContracts ||
          (alarm.after_last_renewal && source.AlwaysAlarmsLastRenewal())) {
        contract::CreateCancellationAlarm(module_, "", alarm.date, alarm.notice, input.responsible,
                                          contract::kAlarmNotice);
      }
    }
  }
  return {input.begin, plan.valid_until};
}

// A contract that ends or has no end: one term, with the next invoice after the
// chosen period.
frmNewContract::Validity frmNewContract::TakeOverOther(ContractRows& rows, DefinitionSource& source,
                                                       const ContractInput& input) {
  const bool unlimited = input.art == schema::kArtUnlimited;
  if (!unlimited) mlVSCount = 1;
  const Date term_end = contract::TermEnd(input.begin, input.dauer);
  const Date end = unlimited ? platform::kNoDate : term_end;
  const Date next_invoice = contract::TakeoverNextInvoice(RunningContractOf(source));
  // Before the first row: a date outside the calendar stores nothing.
  const Date alarm =
      unlimited ? platform::kNoDate : contract::WeeksBefore(term_end, module_.gAlarmWochenEnde);

  rows.NewContract();
  rows.WriteSigned();
  rows.WriteTypAndBegin();
  rows.WriteEnd(end);
  rows.WriteTerms();
  rows.WritePeriodInForce(/*renewal=*/false);
  rows.WriteAmountInForce(rows.FirstTermAmount());
  rows.WriteNextInvoice(next_invoice);
  rows.WriteResponsibility();
  DrawNumber(rows);
  rows.StoreNewContract();

  if (!unlimited) {
    contract::CreateCancellationAlarm(module_, "", alarm, term_end, input.responsible,
                                      contract::kAlarmEnd);
  }
  RemindOfSignature();

  mlVSCount = 1;
  rows.AddStatusRow({.start = input.begin,
                     .end = end,
                     .taken_over = true,
                     .value = rows.FirstTermAmount(),
                     .next_invoice = next_invoice});
  rows.AddFirstTermPositions();
  return {input.begin, end};
}

}  // namespace pactora::newcontract
