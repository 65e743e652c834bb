// list: the content of a database as tables.
#include <fmt/format.h>

#include <array>
#include <charconv>
#include <cstdint>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "automation/deadlines/deadlines.h"
#include "automation/formats/files.h"
#include "automation/lists/ListReader.h"
#include "automation/workspace/database.h"
#include "cli/TextTable.h"
#include "cli/commands.h"
#include "cli/options.h"

namespace pactora::cli {

namespace {

using MakeList = const lists::List& (*)();

constexpr std::array<std::pair<const char*, MakeList>, 5> kLists = {{
    {"addresses", lists::Addresses},
    {"types", lists::Types},
    {"contracts", lists::Contracts},
    {"appointments", lists::Appointments},
    {"deadlines", lists::Deadlines},
}};
constexpr const char* kListNames = "addresses, types, contracts, appointments oder deadlines";

struct ListArguments {
  std::string database;
  MakeList list = nullptr;
  std::optional<platform::Date> today;
  std::optional<std::int32_t> within;  // weeks
  std::string calendar;                // file, empty for none
  bool json = false;
};

TextTable ReadList(store::RecordStore& store, const ListArguments& arguments) {
  const lists::List& list = arguments.list();
  std::vector<Column> columns;
  for (const lists::Column& column : list.columns)
    columns.push_back({std::string(column.title), std::string(column.key)});
  TextTable text(std::move(columns));
  const platform::Date today = ClockFor(arguments.today)->Today();
  for (lists::Row& row : lists::ListReader(list, store, today, lists::Codes::AsStored).Rest())
    if (!arguments.within || deadlines::IsWithin(row.act_by, today, *arguments.within))
      text.Add(std::move(row.cells));
  if (!arguments.calendar.empty()) {
    deadlines::WriteCalendar(deadlines::ReadDeadlines(store, today, arguments.within),
                             arguments.database, store, today, arguments.calendar);
  }
  return text;
}

Status RunList(const ListArguments& arguments) {
  const bool for_deadlines = arguments.within || !arguments.calendar.empty();
  if (for_deadlines && arguments.list != lists::Deadlines) {
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
  const TextTable list =
      workspace::Naming(arguments.database, [&] { return ReadList(*store, arguments); });
  if (arguments.calendar != formats::kStandardStream)
    arguments.json ? list.PrintJson(std::cout) : list.PrintText(std::cout);
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
            for (const auto& [name, list] : kLists)
              if (what == name) arguments->list = list;
            if (arguments->list == nullptr) throw CLI::ValidationError(what, kListNames);
          },
          kListNames)
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
