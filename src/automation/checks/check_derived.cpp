// Values that follow from others in the same contract.
#include <fmt/format.h>
#include <fmt/ranges.h>

#include <cmath>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "automation/checks/check.h"
#include "automation/workspace/row_walk.h"
#include "contract/dates.h"
#include "platform/Date.h"
#include "schema/names.h"
#include "store/RowView.h"

namespace pactora::checks {
namespace {

namespace table = schema::table;
namespace field = schema::field;

using platform::Date;
using store::RowView;

std::string German(std::optional<Date> date) {
  return date ? platform::FormatDate(*date, platform::kGermanPattern) : "keines";
}

class DerivedValues {
 public:
  DerivedValues(store::RecordStore& store, const Finding& hint)
      : store_(store),
        catalog_(store.Catalog()),
        contracts_(catalog_.Table(table::vv_Vertraege)),
        terms_(catalog_.Table(table::vv_Vertragsstaende)),
        positions_(catalog_.Table(table::vv_Vertragspositionen)),
        hint_(hint) {}

  void Check(const store::Record& record) {
    const RowView contract(catalog_.tables[contracts_], record);
    name_ = fmt::format("Vertrag {} ({}, Oid {})", contract.Text(field::Vertragnummer),
                        table::vv_Vertraege, record.oid);
    std::size_t count = 0;
    std::optional<Date> end;
    store::Record row;
    for (std::int64_t after = 0; store_.NextInParent(terms_, record.oid, after, row);
         after = row.order) {
      const RowView term(catalog_.tables[terms_], row);
      CheckTerm(contract, term, row.oid);
      end = term.Date(field::LaufzeitEnde);
      ++count;
    }
    if (count == 0) return;
    Compare(contract, field::VertragEnde, end, {});
    if (contract.Long(field::Art) == schema::kArtRenewable && end) {
      const bool first = count == 1;
      Compare(
          contract, field::KuendfristDatum,
          contract::NoticeDate(
              *end, contract.Long(first ? field::Kuendigungsfrist : field::VerlKuendigungsfrist),
              contract.Text(first ? field::KuendigungsfristEinh : field::VerlKuendigungsfristEinh)),
          {});
    }
  }

 private:
  void Hint(const std::string& where, std::string_view name, const std::string& stored,
            const std::string& expected) {
    hint_(
        fmt::format("{}{}: {} abweichend, „{}“ statt „{}“", name_, where, name, stored, expected));
  }

  void Compare(const RowView& row, std::string_view name, std::optional<Date> expected,
               const std::string& where) {
    if (const auto stored = row.Date(name); stored != expected)
      Hint(where, name, German(stored), German(expected));
  }

  void CheckTerm(const RowView& contract, const RowView& term, store::Oid oid) {
    const std::string where =
        fmt::format(", Vertragsstand ab {} (Oid {})", German(term.Date(field::LaufzeitStart)), oid);
    const bool renewal = term.Text(field::LaufTyp) == schema::kRenewalTerm;
    const std::int32_t months = contract.Long(renewal ? field::Verlaengerungsdauer : field::Dauer);
    const auto start = term.Date(field::LaufzeitStart);
    if (start && months > 0)
      Compare(term, field::LaufzeitEnde, contract::TermEnd(*start, months), where);
    double sum = 0;
    double units = 0;
    std::set<std::string> rows;
    std::size_t count = 0;
    store::Record row;
    for (std::int64_t after = 0; store_.NextInParent(positions_, oid, after, row);
         after = row.order) {
      const RowView position(catalog_.tables[positions_], row);
      const double number = position.Double(field::Anzahl);
      sum += position.Double(field::Nettopreis) * number;
      units += std::abs(number);
      rows.insert(position.Text(field::Row));
      ++count;
    }
    if (count == 0) return;
    // A discount is taken off each price, or off their sum: then each unit may differ by half
    // a cent.
    constexpr double kHalfCent = 0.005;
    const double value = term.Double(field::Value);
    if (std::abs(value - sum) >= kHalfCent * (units + 1))
      Hint(where, field::Value, fmt::format("{:.2f}", value), fmt::format("{:.2f}", sum));
    // The rows are numbered from 001 on without a gap.
    const std::string last = fmt::format("{:03}", count);
    if (rows.size() != count || *rows.rbegin() != last)
      Hint(where, field::Row, fmt::format("{}", fmt::join(rows, " ")), "001 bis " + last);
  }

  store::RecordStore& store_;
  const schema::Catalog& catalog_;
  store::TableId contracts_;
  store::TableId terms_;
  store::TableId positions_;
  const Finding& hint_;
  std::string name_;
};

}  // namespace

void CheckDerived(store::RecordStore& store, const Finding& hint,
                  const std::function<void()>& at_row) {
  DerivedValues values(store, hint);
  workspace::ForEachRow(store, store.Catalog().Table(table::vv_Vertraege),
                        [&](const store::Record& record) {
                          if (at_row) at_row();
                          values.Check(record);
                          return true;
                        });
}

}  // namespace pactora::checks
