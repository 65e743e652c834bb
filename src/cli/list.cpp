// list: tables of what is there.
#include <fmt/format.h>

#include <array>
#include <charconv>
#include <cstdint>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "automation/deadlines/deadlines.h"
#include "automation/formats/files.h"
#include "automation/workspace/database.h"
#include "automation/workspace/row_walk.h"
#include "cli/TextTable.h"
#include "cli/commands.h"
#include "cli/options.h"
#include "schema/names.h"

namespace pactora::cli {

namespace {

namespace table = schema::table;
namespace field = schema::field;

// What a list shows: a title and the name of a field of the table.
struct FieldColumn {
  const char* title;
  std::string_view field;
};

std::vector<Column> Columns(std::vector<Column> first, const std::vector<FieldColumn>& fields) {
  for (const FieldColumn& column : fields)
    first.push_back({column.title, std::string(column.field)});
  return first;
}

host::Value OidOf(const store::Record& record) { return std::to_string(record.oid); }

void AddFields(const schema::Table& schema, const store::Record& record,
               const std::vector<FieldColumn>& fields, std::vector<host::Value>& row) {
  for (const FieldColumn& column : fields)
    row.push_back(record.cells[schema.FindField(column.field).value()]);
}

// The rows of one table by these fields; before adds the cells in front of them.
template <typename Before>
TextTable ListTable(store::RecordStore& store, std::string_view name, std::vector<Column> first,
                    const std::vector<FieldColumn>& fields, const Before& before) {
  TextTable list(Columns(std::move(first), fields));
  const store::TableId id = store.Catalog().FindTable(name).value();
  workspace::ForEachRow(store, id, [&](const store::Record& record) {
    std::vector<host::Value> row = before(record);
    AddFields(store.Catalog().tables[id], record, fields, row);
    list.Add(std::move(row));
    return true;
  });
  return list;
}

host::Value Cell(store::RecordStore& store, std::string_view name, store::Oid oid,
                 std::string_view column) {
  const store::TableId id = store.Catalog().FindTable(name).value();
  store::Record record;
  if (!store.Read(id, oid, record)) return {};
  return record.cells[store.Catalog().tables[id].FindField(column).value()];
}

TextTable Addresses(store::RecordStore& store) {
  const store::TableId contracts = store.Catalog().FindTable(table::vv_Vertraege).value();
  return ListTable(store, table::Adressen, {{"Oid", "oid"}, {"Verträge", "contracts"}},
                   {{"Name", field::Name}}, [&](const store::Record& record) {
                     return std::vector<host::Value>{
                         OidOf(record),
                         static_cast<std::int32_t>(store.CountInParent(contracts, record.oid))};
                   });
}

TextTable Types(store::RecordStore& store) {
  return ListTable(
      store, table::vv_Vertragsdefinitionen, {{"Oid", "oid"}},
      {{"ID", field::ID},
       {"Bezeichnung", field::Bezeichnung},
       {"Status", field::Status},
       {"Typ", field::Typ},
       {"Art", field::ArtStr},
       {"Dauer", field::Dauer},
       {"Periode", field::Zahlungsperiode},
       {"Netto", field::NettoSumme}},
      [](const store::Record& record) { return std::vector<host::Value>{OidOf(record)}; });
}

TextTable Contracts(store::RecordStore& store) {
  return ListTable(store, table::vv_Vertraege, {{"Oid", "oid"}, {"Adresse", "Adresse"}},
                   {{"Nummer", field::Vertragnummer},
                    {"Bezeichnung", field::Bezeichnung},
                    {"Typ", field::Typ},
                    {"Art", field::ArtStr},
                    {"Beginn", field::VertragBeginn},
                    {"Ende", field::VertragEnde},
                    {"Kündigung bis", field::KuendfristDatum},
                    {"Periode", field::AktZahlungsperiodeStr},
                    {"Betrag", field::AktValue},
                    {"Nächste Rechnung", field::AktNaechsteRechnung},
                    {"Verantwortlich", field::Verantwortlich}},
                   [&store](const store::Record& record) {
                     return std::vector<host::Value>{
                         OidOf(record), Cell(store, table::Adressen, record.parent, field::Name)};
                   });
}

TextTable Appointments(store::RecordStore& store) {
  constexpr std::size_t kDate = 2;
  TextTable list = ListTable(
      store, table::vv_VertragsAktivitaeten, {{"Oid", "oid"}, {"Vertrag", "Vertrag"}},
      {{"Datum", field::Datum},
       {"Betreff", field::Betreff},
       {"Verantwortlich", field::Verantwortlich},
       {"Erledigt", field::Erledigt}},
      [&store](const store::Record& record) {
        return std::vector<host::Value>{
            OidOf(record), Cell(store, table::vv_Vertraege, record.parent, field::Vertragnummer)};
      });
  list.SortByDate(kDate);
  return list;
}

struct ListArguments {
  std::string database;
  std::string what;
  std::optional<platform::Date> today;
  std::optional<std::int32_t> within;  // weeks
  std::string calendar;                // file, empty for none
  bool json = false;
};

constexpr const char* kDeadlines = "deadlines";

TextTable DeadlineTable(const std::vector<deadlines::Deadline>& found) {
  TextTable list({{"Datum", "Datum"},
                  {"Frist", "Frist"},
                  {"Zugang spätestens", "Zugang"},
                  {"Adresse", "Adresse"},
                  {"Nummer", "Vertragnummer"},
                  {"Bezeichnung", "Bezeichnung"},
                  {"Typ", "Typ"},
                  {"Verantwortlich", "Verantwortlich"},
                  {"Oid", "oid"}});
  for (const deadlines::Deadline& deadline : found) {
    list.Add({deadline.date, deadlines::Text(deadline.kind),
              deadline.safe_receipt ? host::Value(*deadline.safe_receipt) : host::Value(),
              deadline.address, deadline.number, deadline.name, deadline.side, deadline.responsible,
              std::to_string(deadline.contract)});
  }
  return list;
}

TextTable Deadlines(store::RecordStore& store, const ListArguments& arguments) {
  const platform::Date today = ClockFor(arguments.today)->Today();
  const auto found = deadlines::ReadDeadlines(store, today, arguments.within);
  if (!arguments.calendar.empty())
    deadlines::WriteCalendar(found, arguments.database, store, today, arguments.calendar);
  return DeadlineTable(found);
}

template <TextTable (*kMake)(store::RecordStore&)>
TextTable Plain(store::RecordStore& store, const ListArguments&) {
  return kMake(store);
}

using MakeList = TextTable (*)(store::RecordStore& store, const ListArguments& arguments);

constexpr std::array<std::pair<const char*, MakeList>, 5> kLists = {{
    {"addresses", Plain<Addresses>},
    {"types", Plain<Types>},
    {"contracts", Plain<Contracts>},
    {"appointments", Plain<Appointments>},
    {kDeadlines, Deadlines},
}};

Status RunList(const ListArguments& arguments) {
  const bool for_deadlines = arguments.within || !arguments.calendar.empty();
  if (for_deadlines && arguments.what != kDeadlines) {
    Complain("--within und --ical gibt es nur zu deadlines");
    return Status::BadInput;
  }
  if (!arguments.calendar.empty() && !deadlines::HasCalendars()) {
    Complain("Kalenderdateien sind in diesem Programm nicht enthalten");
    return Status::BadInput;
  }
  if (arguments.json && arguments.calendar == formats::kStandardStream) {
    Complain("--json und --ical - gehen nicht zusammen: beides käme auf die Standardausgabe");
    return Status::BadInput;
  }
  const auto store = workspace::OpenDatabase(arguments.database, workspace::Access::Read);
  for (const auto& [name, make] : kLists) {
    if (arguments.what != name) continue;
    const TextTable list =
        workspace::Naming(arguments.database, [&, make = make] { return make(*store, arguments); });
    if (arguments.calendar == formats::kStandardStream) break;
    arguments.json ? list.PrintJson(std::cout) : list.PrintText(std::cout);
  }
  return Status::Done;
}

std::int32_t ReadWeeks(const std::string& text) {
  std::int32_t weeks = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, weeks);
  if (error != std::errc() || stop != end || weeks < 0 || weeks > deadlines::kMostWeeks) {
    throw CLI::ValidationError("--within", fmt::format("eine ganze Zahl von 0 bis {} wird erwartet",
                                                       deadlines::kMostWeeks));
  }
  return weeks;
}

}  // namespace

void AddList(CLI::App& app, Run& run) {
  const auto arguments = std::make_shared<ListArguments>();
  CLI::App* command = AddCommand(app, "list", "Zeigt, was in der Datenbank steht");
  AddDatabase(*command, arguments->database);
  command
      ->add_option_function<std::string>(
          "LISTE",
          [arguments](const std::string& what) {
            for (const auto& known : kLists)
              if (what == known.first) arguments->what = what;
            if (arguments->what.empty())
              throw CLI::ValidationError(
                  what, "addresses, types, contracts, appointments oder deadlines");
          },
          "addresses, types, contracts, appointments oder deadlines")
      ->required();
  command
      ->add_option_function<std::string>(
          "--within", [arguments](const std::string& text) { arguments->within = ReadWeeks(text); },
          "Zu deadlines: nur Fristen der nächsten WOCHEN Wochen")
      ->type_name("WOCHEN")
      ->group(kOptionGroup);
  command
      ->add_option("--ical", arguments->calendar,
                   "Zu deadlines: schreibt die Fristen in diese Kalenderdatei")
      ->type_name("DATEI")
      ->group(kOptionGroup);
  AddToday(*command, arguments->today);
  AddJson(*command, arguments->json);
  command->callback([&run, arguments] { run = [arguments] { return RunList(*arguments); }; });
}

}  // namespace pactora::cli
