#include "contract/takeover.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "contract/dates.h"
#include "platform/Error.h"

namespace pactora::contract {
namespace {

using platform::FromCivil;
using platform::kNoInvoiceDate;

Date Day(std::string_view text) {  // "dd.MM.yyyy"
  const auto number = [&](std::size_t from, std::size_t count) {
    return std::stoi(std::string(text.substr(from, count)));
  };
  return FromCivil(number(6, 4), number(3, 2), number(0, 2));
}

std::string Text(Date date) {
  return date == kNoInvoiceDate ? "none" : FormatDate(date, platform::kGermanPattern);
}

std::string Text(const TakeoverAmount& amount) {
  switch (amount.kind) {
    case TakeoverAmount::Kind::FirstTerm:
      return "first";
    case TakeoverAmount::Kind::Zero:
      return "0";
    default:
      return "sum " + std::to_string(amount.term);
  }
}

// One line for each step: "1 start-end next", "contract end notice period amount
// next", "alarm date notice".
std::vector<std::string> Lines(const TakeoverPlan& plan) {
  std::vector<std::string> lines;
  for (const TakeoverStep& step : plan.steps) {
    if (const auto* term = std::get_if<TakeoverTerm>(&step)) {
      lines.push_back(std::string(term->renewal ? "2 " : "1 ") + Text(term->start) + "-" +
                      Text(term->end) + " " + Text(term->next_invoice) +
                      (term->provisional_value ? "" : " late value"));
    } else if (const auto* row = std::get_if<TakeoverContract>(&step)) {
      std::string line = "contract " + Text(row->end) + " " + Text(row->notice);
      if (row->in_force) {
        line += std::string(row->in_force->renewal ? " renewal " : " first term ") +
                Text(row->in_force->amount) + " " + Text(row->in_force->next_invoice);
      }
      lines.push_back(line);
    } else {
      const auto& alarm = std::get<TakeoverAlarm>(step);
      lines.push_back("alarm " + Text(alarm.date) + " " + Text(alarm.notice) +
                      (alarm.after_last_renewal ? " last" : ""));
    }
  }
  return lines;
}

// A contract of twelve months, quarterly, six weeks' notice, and the row of its
// list that starts on selected.
RunningContract Quarterly(Date today, Date selected, std::int32_t rechnung_wann = 0) {
  RunningContract contract;
  contract.terms = {1, Day("01.01.2023"), 12, 3, 3, today};
  contract.verl_dauer = 12;
  contract.rechnung_wann = rechnung_wann;
  contract.notice = contract.renewal_notice = {6, "Wochen"};
  contract.alarm_weeks = 6;
  const auto rows = ListInvoicePeriods(contract.terms).rows;
  contract.selected = static_cast<std::size_t>(
      std::find_if(rows.begin(), rows.end(), [&](const auto& r) { return r.start == selected; }) -
      rows.begin());
  contract.last_listed = rows.back().start;
  return contract;
}

struct TakeoverCase {
  const char* name;
  const char* today;
  const char* selected;
  std::int32_t rechnung_wann;
  std::vector<std::string> lines;
};

class QuarterlyTakeover : public testing::TestWithParam<TakeoverCase> {};

TEST_P(QuarterlyTakeover, WritesTheseRows) {
  const TakeoverCase& c = GetParam();
  EXPECT_EQ(Lines(PlanRenewableTakeover(Quarterly(Day(c.today), Day(c.selected), c.rechnung_wann))),
            c.lines);
}

INSTANTIATE_TEST_SUITE_P(
    Table, QuarterlyTakeover,
    testing::Values(
        TakeoverCase{"FirstTermRunningPeriodInIt",
                     "15.10.2023",
                     "01.04.2023",
                     0,
                     {"1 01.01.2023-31.12.2023 01.07.2023",
                      "contract 31.12.2023 20.11.2023 first term first 01.07.2023",
                      "alarm 09.10.2023 20.11.2023"}},
        TakeoverCase{
            "FirstTermRunningLastPeriod",
            "15.10.2023",
            "01.10.2023",
            0,
            {"1 01.01.2023-31.12.2023 none", "contract 31.12.2023 20.11.2023 first term first none",
             "alarm 09.10.2023 20.11.2023"}},
        TakeoverCase{"FirstRenewalRunningPeriodOfFirstTerm",
                     "15.03.2024",
                     "01.04.2023",
                     0,
                     {"1 01.01.2023-31.12.2023 01.07.2023",
                      "contract 31.12.2023 20.11.2023 first term first 01.07.2023",
                      "2 01.01.2024-31.12.2024 01.01.2024 late value",
                      "contract 31.12.2024 20.11.2024", "alarm 09.10.2024 20.11.2024"}},
        TakeoverCase{"FirstRenewalRunningLastPeriodOfFirstTerm",
                     "15.03.2024",
                     "01.10.2023",
                     0,
                     {"1 01.01.2023-31.12.2023 none", "2 01.01.2024-31.12.2024 01.01.2024",
                      "contract 31.12.2024 20.11.2024 renewal sum 1 01.01.2024",
                      "alarm 09.10.2024 20.11.2024 last"}},
        TakeoverCase{"FirstRenewalRunningPeriodInIt",
                     "15.03.2024",
                     "01.01.2024",
                     0,
                     {"1 01.01.2023-31.12.2023 none", "2 01.01.2024-31.12.2024 01.04.2024",
                      "contract 31.12.2024 20.11.2024 renewal sum 1 01.04.2024",
                      "alarm 09.10.2024 20.11.2024 last"}},
        TakeoverCase{
            "ThirdRenewalRunningLastPeriodOfFirstTerm",
            "15.03.2026",
            "01.10.2023",
            0,
            {"1 01.01.2023-31.12.2023 none", "contract 31.12.2023 20.11.2023 first term first none",
             "alarm 09.10.2023 20.11.2023"}},
        TakeoverCase{"ThirdRenewalRunningLastPeriodOfTheSecond",
                     "15.03.2026",
                     "01.10.2025",
                     0,
                     {"1 01.01.2023-31.12.2023 none", "2 01.01.2024-31.12.2024 none",
                      "2 01.01.2025-31.12.2025 none", "2 01.01.2026-31.12.2026 01.01.2026",
                      "contract 31.12.2026 20.11.2026 renewal sum 3 01.01.2026",
                      "alarm 09.10.2026 20.11.2026 last"}},
        TakeoverCase{"OnTheNoticeDateTheRenewalHasNotTakenEffect",
                     "20.11.2023",
                     "01.04.2023",
                     0,
                     {"1 01.01.2023-31.12.2023 01.07.2023",
                      "contract 31.12.2023 20.11.2023 first term first 01.07.2023",
                      "alarm 09.10.2023 20.11.2023"}},
        TakeoverCase{
            "OnTheNoticeDateTheRenewalAfterTheLastPeriodHasNot",
            "20.11.2023",
            "01.10.2023",
            0,
            {"1 01.01.2023-31.12.2023 none", "contract 31.12.2023 20.11.2023 first term first none",
             "alarm 09.10.2023 20.11.2023"}},
        TakeoverCase{"TheDayAfterTheNoticeDateItHas",
                     "21.11.2023",
                     "01.10.2023",
                     0,
                     {"1 01.01.2023-31.12.2023 none", "2 01.01.2024-31.12.2024 01.01.2024",
                      "contract 31.12.2024 20.11.2024 renewal sum 1 01.01.2024",
                      "alarm 09.10.2024 20.11.2024 last"}},
        TakeoverCase{"InvoiceFoundInAnEarlierRenewalComesFirst",
                     "15.12.2025",
                     "01.04.2024",
                     0,
                     {"1 01.01.2023-31.12.2023 none", "2 01.01.2024-31.12.2024 01.07.2024",
                      "2 01.01.2025-31.12.2025 01.01.2025",
                      "contract 31.12.2025 20.11.2025 renewal sum 1 01.07.2024",
                      "alarm 09.10.2025 20.11.2025 last"}},
        TakeoverCase{"NextRenewalTakesEffectWhileThePeriodIsInTheOneBefore",
                     "15.03.2026",
                     "01.07.2025",
                     0,
                     {"1 01.01.2023-31.12.2023 none", "2 01.01.2024-31.12.2024 none",
                      "2 01.01.2025-31.12.2025 01.10.2025", "2 01.01.2026-31.12.2026 01.01.2026",
                      "contract 31.12.2026 20.11.2026 renewal sum 2 01.10.2025",
                      "alarm 09.10.2026 20.11.2026 last"}},
        TakeoverCase{"EndsAfterTheRenewalOfThePeriod",
                     "15.03.2026",
                     "01.04.2024",
                     0,
                     {"1 01.01.2023-31.12.2023 none", "2 01.01.2024-31.12.2024 01.07.2024",
                      "contract 31.12.2024 20.11.2024 renewal sum 1 01.07.2024",
                      "alarm 09.10.2024 20.11.2024"}},
        TakeoverCase{"ArrearsAddOnePeriodOfTheFirstTerm",
                     "15.03.2024",
                     "01.04.2023",
                     1,
                     {"1 01.01.2023-31.12.2023 01.10.2023",
                      "contract 31.12.2023 20.11.2023 first term first 01.10.2023",
                      "2 01.01.2024-31.12.2024 01.04.2024 late value",
                      "contract 31.12.2024 20.11.2024", "alarm 09.10.2024 20.11.2024"}},
        TakeoverCase{"ArrearsPlayNoPartInAPassedRenewal",
                     "15.03.2026",
                     "01.04.2024",
                     1,
                     {"1 01.01.2023-31.12.2023 none", "2 01.01.2024-31.12.2024 01.07.2024",
                      "contract 31.12.2024 20.11.2024 renewal sum 1 01.07.2024",
                      "alarm 09.10.2024 20.11.2024"}}),
    [](const auto& row) { return row.param.name; });

TEST(Takeover, NoInvoiceStaysNoInvoiceInArrears) {
  // The list goes on beyond the renewal's last period only when the period is
  // longer than what is left of it: the selected one is its last.
  RunningContract contract = Quarterly(Day("15.12.2024"), Day("01.10.2024"), 1);
  EXPECT_THAT(Lines(PlanRenewableTakeover(contract)),
              testing::ElementsAre("1 01.01.2023-31.12.2023 none", "2 01.01.2024-31.12.2024 none",
                                   "contract 31.12.2024 20.11.2024 renewal sum 1 none",
                                   "alarm 09.10.2024 20.11.2024 last"));
}

TEST(Takeover, UsesTheRenewalsOwnPeriodTermAndNotice) {
  RunningContract contract = Quarterly(Day("01.07.2024"), Day("01.10.2023"), 1);
  contract.terms.verl_zahlungsperiode = 6;
  contract.verl_dauer = 24;
  contract.renewal_notice = {3, "Monate"};
  EXPECT_THAT(
      Lines(PlanRenewableTakeover(contract)),
      testing::ElementsAre("1 01.01.2023-31.12.2023 none", "2 01.01.2024-31.12.2025 01.04.2024",
                           "contract 31.12.2025 01.10.2025 renewal sum 1 01.04.2024",
                           "alarm 20.08.2025 01.10.2025 last"));
}

TEST(Takeover, RenewalTermOfZeroEndsTheContract) {
  RunningContract contract = Quarterly(Day("15.03.2026"), Day("01.10.2025"));
  contract.verl_dauer = 0;
  EXPECT_THAT(Lines(PlanRenewableTakeover(contract)),
              testing::ElementsAre("1 01.01.2023-31.12.2023 none",
                                   "contract 31.12.2023 20.11.2023 first term first none",
                                   "alarm 09.10.2023 20.11.2023"));
}

TEST(Takeover, ARowThatIsNotInTheListIsErrorNine) {
  RunningContract contract = Quarterly(Day("15.10.2023"), Day("01.04.2023"));
  contract.selected = 4;
  try {
    PlanRenewableTakeover(contract);
    FAIL() << "no error";
  } catch (const platform::Error& error) {
    EXPECT_EQ(error.Number(), 9);
  }
}

TEST(Takeover, NextInvoiceOfTheOtherKinds) {
  struct Case {
    std::int32_t art, dauer, period, rechnung_wann;
    std::size_t selected;
    const char* next;
  };
  const Case cases[] = {{2, 12, 3, 0, 0, "01.04.2023"}, {2, 12, 3, 1, 0, "01.07.2023"},
                        {2, 12, 3, 1, 2, "01.01.2024"}, {2, 12, 3, 0, 3, "none"},
                        {2, 12, 3, 1, 3, "none"},       {2, 12, 12, 0, 0, "none"},
                        {3, 0, 3, 0, 1, "01.07.2023"},  {3, 0, 3, 1, 1, "01.10.2023"}};
  for (const Case& c : cases) {
    RunningContract contract;
    contract.terms = {c.art, Day("01.01.2023"), c.dauer, c.period, 0, Day("15.05.2023")};
    contract.rechnung_wann = c.rechnung_wann;
    contract.selected = c.selected;
    EXPECT_EQ(Text(TakeoverNextInvoice(contract)), c.next)
        << "kind " << c.art << ", row " << c.selected << ", timing " << c.rechnung_wann;
  }
  // From the 31st the day stays clamped after February.
  RunningContract contract;
  contract.terms = {3, Day("31.01.2024"), 0, 1, 0, Day("15.05.2024")};
  contract.selected = 1;
  EXPECT_EQ(Text(TakeoverNextInvoice(contract)), "29.03.2024");
}

// Today on every day of four years, every row selectable: contracts of several
// terms and periods keep these laws.
struct LawCase {
  const char* name;
  const char* begin;
  std::int32_t dauer, period, verl_dauer, verl_period, rechnung_wann;
  NoticeRule notice;
};

class TakeoverLaws : public testing::TestWithParam<LawCase> {};

void CheckLaws(const RunningContract& contract, const InvoicePeriod& selected) {
  const TakeoverPlan plan = PlanRenewableTakeover(contract);
  std::vector<TakeoverTerm> terms;
  std::vector<TakeoverContract> writes;
  for (const TakeoverStep& step : plan.steps) {
    if (const auto* term = std::get_if<TakeoverTerm>(&step)) terms.push_back(*term);
    if (const auto* write = std::get_if<TakeoverContract>(&step)) writes.push_back(*write);
  }
  // Terms follow each other from the begin on, the first one alone no renewal.
  Date start = contract.terms.begin;
  Date first_next = kNoInvoiceDate;
  for (std::size_t i = 0; i < terms.size(); ++i) {
    ASSERT_EQ(terms[i].renewal, i > 0);
    ASSERT_EQ(terms[i].start, start);
    ASSERT_EQ(terms[i].end, TermEnd(start, i > 0 ? contract.verl_dauer : contract.terms.dauer));
    start = AddDays(terms[i].end, 1);
    first_next = std::min(first_next, terms[i].next_invoice);
  }
  // The contract row ends with the last term and carries its notice date; the
  // next invoice is the first one that any term waits for, written once.
  ASSERT_FALSE(writes.empty());
  const NoticeRule& rule = terms.size() == 1 ? contract.notice : contract.renewal_notice;
  const Date end = terms.back().end;
  ASSERT_EQ(writes.back().end, end);
  ASSERT_EQ(plan.valid_until, end);
  ASSERT_EQ(writes.back().notice, NoticeDate(end, rule.frist, rule.einheit));
  ASSERT_TRUE(writes.front().in_force);
  ASSERT_EQ(std::count_if(writes.begin(), writes.end(), [](auto& w) { return w.in_force; }), 1);
  ASSERT_EQ(writes.front().in_force->next_invoice, first_next);
  // Nothing that was invoiced is invoiced again.
  ASSERT_GT(first_next, selected.last_day);
  const TakeoverAmount amount = writes.front().in_force->amount;
  if (amount.kind == TakeoverAmount::Kind::TermSum) {
    ASSERT_LT(amount.term, terms.size());
    ASSERT_TRUE(terms[amount.term].renewal);
    ASSERT_EQ(terms[amount.term].next_invoice, first_next);
  }
  // One appointment, for the notice date of the contract row, at the very end.
  const auto* alarm = std::get_if<TakeoverAlarm>(&plan.steps.back());
  ASSERT_NE(alarm, nullptr);
  ASSERT_EQ(alarm->notice, writes.back().notice);
  ASSERT_EQ(plan.steps.size(), terms.size() + writes.size() + 1);
}

TEST_P(TakeoverLaws, HoldOnEveryDayOfFourYears) {
  const LawCase& c = GetParam();
  RunningContract contract;
  contract.terms = {1, Day(c.begin), c.dauer, c.period, c.verl_period, {}};
  contract.verl_dauer = c.verl_dauer;
  contract.rechnung_wann = c.rechnung_wann;
  contract.notice = contract.renewal_notice = c.notice;
  contract.alarm_weeks = 6;
  for (Date today = Day("01.01.2023"); today < Day("01.01.2027"); today.days += 1) {
    contract.terms.today = today;
    const auto rows = ListInvoicePeriods(contract.terms).rows;
    contract.last_listed = rows.back().start;
    for (std::size_t row = 0; row < rows.size(); ++row) {
      contract.selected = row;
      CheckLaws(contract, rows[row]);
      if (testing::Test::HasFatalFailure()) {
        FAIL() << "today " << Text(today) << ", selected " << Text(rows[row].start);
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    Forms, TakeoverLaws,
    testing::Values(
        LawCase{"QuarterlyFromNewYear", "01.01.2023", 12, 3, 12, 3, 0, {6, "Wochen"}},
        LawCase{"MonthlyFromTheMiddle", "15.03.2022", 6, 1, 12, 1, 0, {3, "Monate"}},
        LawCase{"ArrearsWithLongRenewals", "01.06.2021", 24, 12, 24, 12, 1, {6, "Wochen"}},
        LawCase{"FromALeapDay", "29.02.2020", 12, 6, 12, 6, 0, {1, "Monate"}},
        LawCase{"ShortRenewalsWithLongNotice", "01.02.2023", 12, 1, 1, 1, 0, {8, "Wochen"}},
        LawCase{"NoNotice", "01.11.2022", 3, 3, 3, 3, 1, {0, "Monate"}}),
    [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace pactora::contract
