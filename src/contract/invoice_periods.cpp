#include "contract/invoice_periods.h"

#include "contract/dates.h"
#include "schema/names.h"

namespace pactora::contract {

namespace {

// Adds the periods that start before end.
void AddRows(std::vector<InvoicePeriod>& rows, Date start, Date end, std::int32_t months) {
  if (months <= 0) return;  // would never reach the end
  while (start < end) {
    const Date next = AddMonths(start, months);
    rows.push_back({start, AddDays(next, -1)});
    start = next;
  }
}

// The first period start on or after today.
Date FirstStartFromToday(const InvoicePeriodTerms& terms) {
  Date start = terms.begin;
  if (terms.zahlungsperiode <= 0) return start;
  while (start < terms.today) start = AddMonths(start, terms.zahlungsperiode);
  return start;
}

}  // namespace

InvoicePeriodList ListInvoicePeriods(const InvoicePeriodTerms& terms) {
  InvoicePeriodList list;
  if (terms.art == schema::kArtRenewable) {
    const Date term_end = TermEnd(terms.begin, terms.dauer);
    AddRows(list.rows, terms.begin, term_end, terms.zahlungsperiode);
    AddRows(list.rows, AddDays(term_end, 1), terms.today, terms.verl_zahlungsperiode);
    return list;
  }
  list.mdtListEnde = terms.art == schema::kArtOnce
                         ? TermEnd(terms.begin, terms.dauer)
                         : TermEnd(FirstStartFromToday(terms), terms.zahlungsperiode);
  AddRows(list.rows, terms.begin, *list.mdtListEnde, terms.zahlungsperiode);
  return list;
}

}  // namespace pactora::contract
