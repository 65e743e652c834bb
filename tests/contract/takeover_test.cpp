// The walk of a takeover: worked examples, and laws for every day of four years.

#include "contract/takeover.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "contract/dates.h"
#include "contract/rule_texts.h"
#include "platform/Error.h"

namespace pactora::contract {
namespace {

std::string Amount(const TakeoverAmount& amount) {
  if (amount.kind == TakeoverAmount::Kind::TermSum) return "sum" + std::to_string(amount.term);
  return amount.kind == TakeoverAmount::Kind::Zero ? "0" : "first";
}

// The steps: "1" or "2" for a term, its end and its next invoice, with "*" when its
// value comes late; "row" with end, notice date and what is in force; "alarm" with
// its day, with "!" after a last renewal.
std::string Steps(const TakeoverPlan& plan) {
  std::string text;
  for (const TakeoverStep& step : plan.steps) {
    if (std::holds_alternative<TakeoverRenewals>(step)) continue;
    text += text.empty() ? "" : ", ";
    if (const auto* term = std::get_if<TakeoverTerm>(&step)) {
      text += std::string(term->renewal ? "2" : "1") + (term->provisional_value ? " " : "* ") +
              Text(term->end) + " " + Text(term->next_invoice);
    } else if (const auto* row = std::get_if<TakeoverContract>(&step)) {
      text += "row " + Text(row->end) + " " + Text(row->notice);
      if (row->in_force) {
        text += std::string(row->in_force->renewal ? " 2 " : " 1 ") +
                Amount(row->in_force->amount) + " " + Text(row->in_force->next_invoice);
      }
    } else {
      const auto& alarm = std::get<TakeoverAlarm>(step);
      text += "alarm" + std::string(alarm.after_last_renewal ? "! " : " ") + Text(alarm.date);
    }
  }
  return text;
}

// From 01.01.2023 for twelve months, quarterly, six weeks' notice; selected is the
// start of the period that was invoiced last.
RunningContract Quarterly(const char* today, const char* selected, std::int32_t timing = 0) {
  RunningContract contract;
  contract.terms = {1, Day("01.01.2023"), 12, 3, 3, Day(today)};
  contract.verl_dauer = 12;
  contract.rechnung_wann = timing;
  contract.notice = contract.renewal_notice = {6, "Wochen"};
  contract.alarm_weeks = 6;
  const auto rows = ListInvoicePeriods(contract.terms).rows;
  const auto row = std::ranges::find(rows, Day(selected), &InvoicePeriod::start);
  contract.selected = static_cast<std::size_t>(row - rows.begin());
  contract.mdtLetzteListe = rows.back().start;
  return contract;
}

TEST(Takeover, OfAQuarterlyContractWritesTheseSteps) {
  struct {
    const char* today;
    const char* selected;
    std::int32_t timing;
    const char* steps;
  } const cases[] = {
      {"15.10.2023", "01.04.2023", 0,
       "1 31.12.2023 01.07.2023, row 31.12.2023 20.11.2023 1 first 01.07.2023, alarm 09.10.2023"},
      {"15.10.2023", "01.10.2023", 0,
       "1 31.12.2023 none, row 31.12.2023 20.11.2023 1 first none, alarm 09.10.2023"},
      {"15.03.2024", "01.04.2023", 0,
       "1 31.12.2023 01.07.2023, row 31.12.2023 20.11.2023 1 first 01.07.2023, "
       "2* 31.12.2024 01.01.2024, row 31.12.2024 20.11.2024, alarm 09.10.2024"},
      {"15.03.2024", "01.10.2023", 0,
       "1 31.12.2023 none, 2 31.12.2024 01.01.2024, row 31.12.2024 20.11.2024 2 sum1 01.01.2024, "
       "alarm! 09.10.2024"},
      {"15.03.2024", "01.01.2024", 0,
       "1 31.12.2023 none, 2 31.12.2024 01.04.2024, row 31.12.2024 20.11.2024 2 sum1 01.04.2024, "
       "alarm! 09.10.2024"},
      {"15.03.2026", "01.10.2023", 0,
       "1 31.12.2023 none, row 31.12.2023 20.11.2023 1 first none, alarm 09.10.2023"},
      {"15.03.2026", "01.10.2025", 0,
       "1 31.12.2023 none, 2 31.12.2024 none, 2 31.12.2025 none, 2 31.12.2026 01.01.2026, "
       "row 31.12.2026 20.11.2026 2 sum3 01.01.2026, alarm! 09.10.2026"},
      // On the notice date itself the renewal has not taken effect.
      {"20.11.2023", "01.04.2023", 0,
       "1 31.12.2023 01.07.2023, row 31.12.2023 20.11.2023 1 first 01.07.2023, alarm 09.10.2023"},
      {"20.11.2023", "01.10.2023", 0,
       "1 31.12.2023 none, row 31.12.2023 20.11.2023 1 first none, alarm 09.10.2023"},
      {"21.11.2023", "01.10.2023", 0,
       "1 31.12.2023 none, 2 31.12.2024 01.01.2024, row 31.12.2024 20.11.2024 2 sum1 01.01.2024, "
       "alarm! 09.10.2024"},
      // What an earlier renewal waits for comes first.
      {"15.12.2025", "01.04.2024", 0,
       "1 31.12.2023 none, 2 31.12.2024 01.07.2024, 2 31.12.2025 01.01.2025, "
       "row 31.12.2025 20.11.2025 2 sum1 01.07.2024, alarm! 09.10.2025"},
      {"15.03.2026", "01.07.2025", 0,
       "1 31.12.2023 none, 2 31.12.2024 none, 2 31.12.2025 01.10.2025, 2 31.12.2026 01.01.2026, "
       "row 31.12.2026 20.11.2026 2 sum2 01.10.2025, alarm! 09.10.2026"},
      {"15.03.2026", "01.04.2024", 0,
       "1 31.12.2023 none, 2 31.12.2024 01.07.2024, row 31.12.2024 20.11.2024 2 sum1 01.07.2024, "
       "alarm 09.10.2024"},
      // In arrears by one period of the first term, but not in a renewal passed by;
      // no invoice stays none.
      {"15.03.2024", "01.04.2023", 1,
       "1 31.12.2023 01.10.2023, row 31.12.2023 20.11.2023 1 first 01.10.2023, "
       "2* 31.12.2024 01.04.2024, row 31.12.2024 20.11.2024, alarm 09.10.2024"},
      {"15.03.2026", "01.04.2024", 1,
       "1 31.12.2023 none, 2 31.12.2024 01.07.2024, row 31.12.2024 20.11.2024 2 sum1 01.07.2024, "
       "alarm 09.10.2024"},
      {"15.12.2024", "01.10.2024", 1,
       "1 31.12.2023 none, 2 31.12.2024 none, row 31.12.2024 20.11.2024 2 sum1 none, "
       "alarm! 09.10.2024"}};
  for (const auto& c : cases) {
    EXPECT_EQ(Steps(PlanRenewableTakeover(Quarterly(c.today, c.selected, c.timing))), c.steps)
        << "today " << c.today << ", selected " << c.selected << ", timing " << c.timing;
  }
}

TEST(Takeover, UsesTheRenewalsOwnPeriodTermAndNotice) {
  RunningContract contract = Quarterly("01.07.2024", "01.10.2023", 1);
  contract.terms.verl_zahlungsperiode = 6;
  contract.verl_dauer = 24;
  contract.renewal_notice = {3, "Monate"};
  EXPECT_EQ(Steps(PlanRenewableTakeover(contract)),
            "1 31.12.2023 none, 2 31.12.2025 01.04.2024, "
            "row 31.12.2025 01.10.2025 2 sum1 01.04.2024, alarm! 20.08.2025");
}

TEST(Takeover, RenewalTermOfZeroEndsTheContract) {
  RunningContract contract = Quarterly("15.03.2026", "01.10.2025");
  contract.verl_dauer = 0;
  EXPECT_EQ(Steps(PlanRenewableTakeover(contract)),
            "1 31.12.2023 none, row 31.12.2023 20.11.2023 1 first none, alarm 09.10.2023");
}

TEST(Takeover, NextInvoiceOfTheOtherKinds) {
  struct {
    std::int32_t art;
    const char* begin;
    std::int32_t dauer, period, timing;
    std::size_t selected;
    const char* next;
  } const cases[] = {
      {2, "01.01.2023", 12, 3, 0, 0, "01.04.2023"}, {2, "01.01.2023", 12, 3, 1, 2, "01.01.2024"},
      {2, "01.01.2023", 12, 3, 1, 3, "none"},       {2, "01.01.2023", 12, 12, 0, 0, "none"},
      {3, "01.01.2023", 0, 3, 0, 1, "01.07.2023"},  {3, "01.01.2023", 0, 3, 1, 1, "01.10.2023"},
      {3, "31.01.2023", 0, 1, 0, 1, "28.03.2023"}};
  for (const auto& c : cases) {
    RunningContract contract;
    contract.terms = {c.art, Day(c.begin), c.dauer, c.period, 0, Day("15.05.2023")};
    contract.rechnung_wann = c.timing;
    contract.selected = c.selected;
    EXPECT_EQ(Text(TakeoverNextInvoice(contract)), c.next)
        << "kind " << c.art << ", row " << c.selected << ", timing " << c.timing;
  }
}

void CheckLaws(const RunningContract& contract, const InvoicePeriod& selected) {
  const TakeoverPlan plan = PlanRenewableTakeover(contract);
  std::vector<TakeoverTerm> terms;
  std::vector<TakeoverContract> rows;
  std::size_t renewals = 0;
  for (const TakeoverStep& step : plan.steps) {
    if (const auto* term = std::get_if<TakeoverTerm>(&step)) {
      // Reported once, after the first term.
      ASSERT_EQ(renewals, term->renewal ? 1u : 0u);
      terms.push_back(*term);
    }
    if (std::holds_alternative<TakeoverRenewals>(step)) ++renewals;
    if (const auto* row = std::get_if<TakeoverContract>(&step)) rows.push_back(*row);
  }
  // Terms follow each other from the begin on, the first one alone no renewal.
  Date start = contract.terms.begin;
  Date first_next = platform::kNoInvoiceDate;
  for (std::size_t i = 0; i < terms.size(); ++i) {
    ASSERT_EQ(terms[i].renewal, i > 0);
    ASSERT_EQ(terms[i].start, start);
    ASSERT_EQ(terms[i].end, TermEnd(start, i > 0 ? contract.verl_dauer : contract.terms.dauer));
    start = AddDays(terms[i].end, 1);
    first_next = std::min(first_next, terms[i].next_invoice);
  }
  // The contract row ends with the last term and has its notice date. Its next
  // invoice is the first one that any term waits for, written once, and nothing
  // that was invoiced is invoiced again.
  ASSERT_FALSE(rows.empty());
  const NoticeRule& rule = terms.size() == 1 ? contract.notice : contract.renewal_notice;
  const Date end = terms.back().end;
  ASSERT_EQ(rows.back().end, end);
  ASSERT_EQ(plan.valid_until, end);
  ASSERT_EQ(rows.back().notice, NoticeDate(end, rule.frist, rule.einheit));
  ASSERT_TRUE(rows.front().in_force);
  ASSERT_TRUE(rows.size() == 1 || !rows.back().in_force);
  ASSERT_EQ(rows.front().in_force->next_invoice, first_next);
  ASSERT_GT(first_next, selected.last_day);
  const TakeoverAmount amount = rows.front().in_force->amount;
  if (amount.kind == TakeoverAmount::Kind::TermSum) {
    ASSERT_TRUE(terms.at(amount.term).renewal);
    ASSERT_EQ(terms[amount.term].next_invoice, first_next);
  }
  // One appointment, for the notice date of the contract row, at the very end.
  const auto* alarm = std::get_if<TakeoverAlarm>(&plan.steps.back());
  ASSERT_NE(alarm, nullptr);
  ASSERT_EQ(alarm->notice, rows.back().notice);
  ASSERT_EQ(plan.steps.size(), terms.size() + renewals + rows.size() + 1);
}

TEST(Takeover, LawsHoldForEveryRowOnEveryDayOfFourYears) {
  struct {
    const char* begin;
    std::int32_t dauer, period, verl_dauer, verl_period, timing;
    NoticeRule notice;
  } const forms[] = {{"01.01.2023", 12, 3, 12, 3, 0, {6, "Wochen"}},
                     {"15.03.2022", 6, 1, 12, 1, 0, {3, "Monate"}},
                     {"01.06.2021", 24, 12, 24, 12, 1, {6, "Wochen"}},
                     {"29.02.2020", 12, 6, 12, 6, 0, {1, "Monate"}},
                     {"01.02.2023", 12, 1, 1, 1, 0, {8, "Wochen"}},
                     {"01.11.2022", 3, 3, 3, 3, 1, {0, "Monate"}}};
  for (const auto& form : forms) {
    RunningContract contract;
    contract.terms = {1, Day(form.begin), form.dauer, form.period, form.verl_period, {}};
    contract.verl_dauer = form.verl_dauer;
    contract.rechnung_wann = form.timing;
    contract.notice = contract.renewal_notice = form.notice;
    for (Date today = Day("01.01.2023"); today < Day("01.01.2027"); today.days += 1) {
      contract.terms.today = today;
      const auto rows = ListInvoicePeriods(contract.terms).rows;
      contract.mdtLetzteListe = rows.back().start;
      for (contract.selected = 0; contract.selected < rows.size(); ++contract.selected) {
        const InvoicePeriod& row = rows[contract.selected];
        CheckLaws(contract, row);
        if (HasFatalFailure()) {
          FAIL() << form.begin << ", today " << Text(today) << ", selected " << Text(row.start);
        }
      }
    }
  }
}

}  // namespace
}  // namespace pactora::contract
