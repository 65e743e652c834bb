#include "contract/takeover.h"

#include "contract/dates.h"
#include "platform/Error.h"
#include "schema/names.h"

namespace pactora::contract {

using platform::kNoInvoiceDate;

namespace {

Date SelectedStart(const RunningContract& contract) {
  const InvoicePeriodList list = ListInvoicePeriods(contract.terms);
  if (contract.selected >= list.rows.size()) {
    platform::Raise(platform::RuntimeError::IndexOutOfRange);
  }
  return list.rows[contract.selected].start;
}

Date NoticeOf(Date end, const NoticeRule& rule) {
  return NoticeDate(end, rule.frist, rule.einheit);
}

// Walks the terms of a renewing contract.
class RenewableTakeover {
 public:
  explicit RenewableTakeover(const RunningContract& contract)
      : contract_(contract),
        terms_(contract.terms),
        first_end_(TermEnd(contract.terms.begin, contract.terms.dauer)),
        last_invoiced_(SelectedStart(contract)),
        notice_(NoticeOf(first_end_, contract.notice)) {}

  TakeoverPlan Plan() {
    const Date following = AddMonths(last_invoiced_, terms_.zahlungsperiode);
    if (following < first_end_) {
      FirstTermGoesOn(following);
    } else {
      FirstTermIsInvoiced();
    }
    return std::move(plan_);
  }

 private:
  // A period of the first term is still to be invoiced. At most one renewal can
  // have taken effect: the one whose notice date has passed.
  void FirstTermGoesOn(Date following) {
    const Date next = InvoiceDate(following, contract_.rechnung_wann, terms_.zahlungsperiode);
    AddTerm({.renewal = false,
             .start = terms_.begin,
             .end = first_end_,
             .next_invoice = next,
             .provisional_value = true});
    plan_.valid_until = first_end_;
    AddContract(first_end_, TakeoverContract::InForce{false, {}, next});
    if (terms_.today > notice_) {
      plan_.steps.emplace_back(TakeoverRenewals{});
      BeginRenewal(first_end_);
      plan_.valid_until = renewal_end_;
      // In arrears by the first term's period, as for every renewal.
      AddRenewal(InvoiceDate(renewal_start_, contract_.rechnung_wann, terms_.zahlungsperiode),
                 /*provisional_value=*/false);
      notice_ = NoticeOf(renewal_end_, contract_.renewal_notice);
      AddContract(renewal_end_, std::nullopt);
    }
    AddAlarm(/*after_last_renewal=*/false);
  }

  // The selected period is the last of the first term or lies in a renewal.
  void FirstTermIsInvoiced() {
    AddTerm({.renewal = false,
             .start = terms_.begin,
             .end = first_end_,
             .next_invoice = kNoInvoiceDate,
             .provisional_value = true});
    plan_.steps.emplace_back(TakeoverRenewals{});
    BeginRenewal(first_end_);
    for (;;) {
      if (IsLastRenewal()) return EndWithLastRenewal();
      if (!SelectionReachesRenewal()) return EndBeforeRenewal();
      PassRenewal();
    }
  }

  // The renewal is the last one that has taken effect.
  bool IsLastRenewal() const {
    return terms_.today > notice_ && last_invoiced_ < renewal_end_ &&
           contract_.mdtLetzteListe < renewal_end_;
  }

  // The selected period lies in this renewal or in a later one. A renewal term
  // of 0 months would be passed for ever.
  bool SelectionReachesRenewal() const {
    return contract_.verl_dauer > 0 &&
           AddMonths(last_invoiced_, contract_.verl_dauer) >= renewal_end_;
  }

  void EndWithLastRenewal() {
    plan_.valid_until = renewal_end_;
    Date next = renewal_start_;
    if (last_invoiced_ >= renewal_start_) {
      next = AddMonths(last_invoiced_, terms_.verl_zahlungsperiode);
      if (next > renewal_end_) next = found_next_ = kNoInvoiceDate;
    }
    next = InvoiceDate(next, contract_.rechnung_wann, terms_.zahlungsperiode);
    const TakeoverAmount sum = AddRenewal(next, /*provisional_value=*/true);
    notice_ = NoticeOf(renewal_end_, contract_.renewal_notice);
    // An invoice that an earlier renewal still waits for comes first.
    const bool nothing_found = found_next_ == kNoInvoiceDate;
    AddContract(renewal_end_, TakeoverContract::InForce{true, nothing_found ? sum : found_amount_,
                                                        nothing_found ? next : found_next_});
    AddAlarm(/*after_last_renewal=*/true);
  }

  // Writes a renewal that is followed by another one or by the end. Timing plays
  // no part in its next invoice.
  void PassRenewal() {
    Date next = kNoInvoiceDate;
    const bool before = last_invoiced_ < renewal_start_;
    const bool after = last_invoiced_ > renewal_end_;
    if (before) {
      next = renewal_start_;
      if (found_next_ == kNoInvoiceDate) found_next_ = next;
    } else {
      if (!after) {
        const Date following = AddMonths(last_invoiced_, terms_.verl_zahlungsperiode);
        if (following <= renewal_end_) next = following;
      }
      found_next_ = next;
    }
    const TakeoverAmount sum = AddRenewal(next, /*provisional_value=*/true);
    notice_ = NoticeOf(renewal_end_, contract_.renewal_notice);
    if (!before) found_amount_ = after ? TakeoverAmount{TakeoverAmount::Kind::Zero} : sum;
    BeginRenewal(renewal_end_);
  }

  // The contract ends with the terms written so far.
  void EndBeforeRenewal() {
    const bool first_term_only = term_count_ == 1;
    const Date end = first_term_only ? first_end_ : AddDays(renewal_start_, -1);
    notice_ = NoticeOf(end, first_term_only ? contract_.notice : contract_.renewal_notice);
    plan_.valid_until = end;
    AddContract(end, TakeoverContract::InForce{!first_term_only, found_amount_, found_next_});
    AddAlarm(/*after_last_renewal=*/false);
  }

  void BeginRenewal(Date previous_end) {
    renewal_start_ = AddDays(previous_end, 1);
    renewal_end_ = TermEnd(renewal_start_, contract_.verl_dauer);
  }

  TakeoverAmount AddTerm(const TakeoverTerm& term) {
    plan_.steps.emplace_back(term);
    return {TakeoverAmount::Kind::TermSum, term_count_++};
  }

  TakeoverAmount AddRenewal(Date next_invoice, bool provisional_value) {
    return AddTerm({.renewal = true,
                    .start = renewal_start_,
                    .end = renewal_end_,
                    .next_invoice = next_invoice,
                    .provisional_value = provisional_value});
  }

  void AddContract(Date end, std::optional<TakeoverContract::InForce> in_force) {
    plan_.steps.emplace_back(TakeoverContract{notice_, end, in_force});
  }

  void AddAlarm(bool after_last_renewal) {
    plan_.steps.emplace_back(
        TakeoverAlarm{WeeksBefore(notice_, contract_.alarm_weeks), notice_, after_last_renewal});
  }

  const RunningContract& contract_;
  const InvoicePeriodTerms& terms_;
  const Date first_end_;
  const Date last_invoiced_;  // start of the selected period
  Date notice_;               // of the last term written
  Date renewal_start_;
  Date renewal_end_;
  Date found_next_ = kNoInvoiceDate;  // next invoice and its amount as found so far
  TakeoverAmount found_amount_;
  std::size_t term_count_ = 0;
  TakeoverPlan plan_;
};

}  // namespace

TakeoverPlan PlanRenewableTakeover(const RunningContract& contract) {
  return RenewableTakeover(contract).Plan();
}

platform::Date TakeoverNextInvoice(const RunningContract& contract) {
  const InvoicePeriodTerms& terms = contract.terms;
  const Date next = AddMonths(SelectedStart(contract), terms.zahlungsperiode);
  if (terms.art == schema::kArtOnce && next > TermEnd(terms.begin, terms.dauer)) {
    return kNoInvoiceDate;
  }
  return InvoiceDate(next, contract.rechnung_wann, terms.zahlungsperiode);
}

}  // namespace pactora::contract
