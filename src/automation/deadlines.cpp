#include "automation/deadlines.h"

#include <algorithm>
#include <tuple>

#include "automation/database.h"
#include "automation/files.h"
#include "automation/row_walk.h"
#include "contract/dates.h"
#include "host/Value.h"
#include "schema/names.h"

namespace pactora::automation {
namespace {

namespace field = schema::field;
namespace table = schema::table;

// The cells of a contract row by field name.
class ContractRow {
 public:
  ContractRow(const schema::Table& schema, const store::Record& record)
      : schema_(schema), record_(record) {}

  std::string Text(std::string_view name) const { return host::ToText(Cell(name)); }
  // Nothing where there is no date.
  std::optional<platform::Date> Date(std::string_view name) const {
    const platform::Date date = host::ToDate(Cell(name));
    if (date == platform::kNoDate) return std::nullopt;
    return date;
  }

 private:
  const host::Value& Cell(std::string_view name) const {
    return record_.cells[schema_.FindField(name).value()];
  }

  const schema::Table& schema_;
  const store::Record& record_;
};

std::string AddressName(store::RecordStore& store, store::Oid oid) {
  const store::TableId addresses = store.Catalog().FindTable(table::Adressen).value();
  store::Record record;
  if (!store.Read(addresses, oid, record)) return {};
  const schema::Table& schema = store.Catalog().tables[addresses];
  return host::ToText(record.cells[schema.FindField(field::Name).value()]);
}

}  // namespace

std::string Text(Deadline::Kind kind) {
  return kind == Deadline::Kind::Notice ? "Kündigung" : "Ende";
}

std::vector<Deadline> DeadlinesOf(const schema::Table& contracts, const store::Record& contract,
                                  const std::string& address, platform::Date today) {
  std::vector<Deadline> deadlines;
  const ContractRow row(contracts, contract);
  const auto add = [&](Deadline::Kind kind, std::optional<platform::Date> date) {
    if (!date || *date < today) return;
    Deadline deadline;
    deadline.kind = kind;
    deadline.contract = contract.oid;
    deadline.date = *date;
    if (kind == Deadline::Kind::Notice) deadline.safe_receipt = contract::AddDays(*date, -1);
    deadline.address = address;
    deadline.number = row.Text(field::Vertragnummer);
    deadline.name = row.Text(field::Bezeichnung);
    deadline.side = row.Text(field::Typ);
    deadline.responsible = row.Text(field::Verantwortlich);
    deadlines.push_back(std::move(deadline));
  };
  add(Deadline::Kind::Notice, row.Date(field::KuendfristDatum));
  add(Deadline::Kind::End, row.Date(field::VertragEnde));
  return deadlines;
}

std::vector<Deadline> ReadDeadlines(store::RecordStore& store, platform::Date today,
                                    std::optional<std::int32_t> weeks) {
  std::optional<platform::Date> last;
  if (weeks) last = contract::AddWeeks(today, *weeks);
  const store::TableId contracts = store.Catalog().FindTable(table::vv_Vertraege).value();
  const schema::Table& schema = store.Catalog().tables[contracts];
  std::vector<Deadline> deadlines;
  ForEachRow(store, contracts, [&](const store::Record& record) {
    for (Deadline& deadline : DeadlinesOf(schema, record, {}, today)) {
      if (last && deadline.date > *last) continue;
      deadline.address = AddressName(store, record.parent);
      deadlines.push_back(std::move(deadline));
    }
    return true;
  });
  std::sort(deadlines.begin(), deadlines.end(), [](const Deadline& a, const Deadline& b) {
    return std::tie(a.date, a.contract, a.kind) < std::tie(b.date, b.contract, b.kind);
  });
  return deadlines;
}

void WriteCalendar(const std::vector<Deadline>& deadlines, const std::string& database,
                   store::RecordStore& store, platform::Date today, const std::string& file) {
  RequireOutside(database, file);
  WriteOutput(file, [&](std::ostream& out) {
    out << CalendarText(deadlines, store.ReadProfile().name, today);
  });
}

}  // namespace pactora::automation
