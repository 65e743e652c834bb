// A small company in an embedded host over the memory store, a screen that knows
// which messages must come, a fixed day, and the add-on's module globals: what
// tests of the add-on's logic start from.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "embedded/Host.h"
#include "embedded/LiveTable.h"
#include "host/Value.h"
#include "platform/Clock.h"
#include "schema/Catalog.h"
#include "schema/names.h"
#include "shell/CAddonError.h"
#include "shell/Module.h"
#include "store/memory/MemoryStore.h"
#include "store/rows.h"
#include "support/RecordingScreen.h"
#include "support/error_of.h"

namespace pactora::host {

// Readable failures.
inline void PrintTo(const Value& value, std::ostream* out) {
  if (value.IsEmpty()) {
    *out << "(never written)";
  } else if (value.GetKind() == Kind::Object || value.GetKind() == Kind::Array) {
    *out << "(object or array)";
  } else {
    *out << '"' << ToText(value) << '"';
  }
}

}  // namespace pactora::host

namespace pactora::support {

inline platform::Date Day(std::int32_t day, std::int32_t month, std::int32_t year) {
  return platform::FromCivil(year, month, day);
}

using Values = std::vector<std::pair<std::string_view, host::Value>>;

// The later values replace the earlier ones of the same field.
inline Values With(Values values, const Values& changes) {
  for (const auto& change : changes) {
    std::erase_if(values, [&](const auto& entry) { return entry.first == change.first; });
    values.push_back(change);
  }
  return values;
}

// From "ID=D1, Dauer=12". The text must outlive them.
inline Values Fields(std::string_view text) {
  Values values;
  while (!text.empty()) {
    const std::string_view entry = text.substr(0, text.find(", "));
    const std::size_t sign = entry.find('=');
    values.emplace_back(entry.substr(0, sign), entry.substr(sign + 1));
    text.remove_prefix(std::min(text.size(), entry.size() + 2));
  }
  return values;
}

// A stored row by field name; empty cells are fields that were never written.
struct Row {
  store::Oid oid = 0;
  store::Oid parent = 0;
  std::map<std::string, host::Value, std::less<>> cells;

  const host::Value& operator[](std::string_view name) const {
    const auto cell = cells.find(name);
    if (cell == cells.end()) throw std::invalid_argument("no field " + std::string(name));
    return cell->second;
  }
};

// What the add-on gets for the embedded host's application: that itself, or another way
// to reach it.
using AppRef = std::shared_ptr<host::HostApp>;
inline std::function<AppRef(AppRef)> app_for_the_add_on = [](AppRef app) { return app; };

class ContractWorld {
 public:
  explicit ContractWorld(bool workflow_add_on = true)
      : host(store::CreateMemoryStore(schema::ContractCatalog(workflow_add_on), StartProfile())),
        module({screen, clock, platform::Locale{}, embedded::CreateErrorTexts,
                [this] { return App(); }}) {
    namespace table = schema::table;
    namespace field = schema::field;
    client = Add(table::KELM_Mandanten, {{field::TessarinName, "FIRMA"}});
    address = Add(table::Adressen, {{field::Name, "Muster GmbH"}});
    other_address = Add(table::Adressen, {{field::Name, "Beispiel AG"}});
    article_group = Add(table::Artikelgruppen, Fields("ID=G1, Artikelgruppe=Wartung"));
    server =
        Add(table::Artikel,
            Fields("Id=A1, Bezeichnung=Wartung Server, Nummer=1000, Art=Dienst, Einheit=Stück, "
                   "Beschreibung=Vor Ort, Nettopreis=120, Erloeskonto=8400, USTSatz=19"),
            article_group);
    hotline = Add(table::Artikel,
                  Fields("Id=A2, Bezeichnung=Hotline, Nummer=2000, Art=Ware, Einheit=Stunde, "
                         "Nettopreis=10, Erloeskonto=8300, USTSatz=7"),
                  article_group);
    host.EndUnit();
  }
  ContractWorld(const ContractWorld&) = delete;
  ContractWorld& operator=(const ContractWorld&) = delete;

  AppRef App() { return app_for_the_add_on(host.App()); }

  // What an entry call leaves in the module, with the first address current.
  void Enter() {
    module.gHostApp = App();
    module.gDb = module.gHostApp->CurrentDb();
    module.gAddonError = std::make_shared<shell::CAddonError>(module);
    Goto(schema::table::Adressen, address);
  }

  // Adds a stored row past the cursors; returns its Oid.
  store::Oid Add(std::string_view table, const Values& values, store::Oid parent = 0) {
    const store::TableId id = Id(table);
    const schema::Table& description = host.Store().Catalog().tables[id];
    store::Record record;
    record.parent = parent;
    record.cells.resize(description.fields.size());
    for (const auto& [name, value] : values) {
      const std::size_t field = description.FindField(name).value();
      record.cells[field] = store::ConvertToField(description.fields[field], value);
    }
    store::Record parent_row;
    if (description.parent) host.Store().Read(*description.parent, parent, parent_row);
    store::InsertRow(host.Store(), id, record, description.parent ? &parent_row.cells : nullptr);
    return record.oid;
  }

  void Goto(std::string_view table, store::Oid oid) {
    host.Table(table)->GotoOid(std::to_string(oid));
  }

  // All stored rows of the table, in record order, whatever the cursors show.
  std::vector<Row> Rows(std::string_view table) {
    std::vector<store::Record> records = Records(Id(table));
    std::sort(records.begin(), records.end(),
              [](const auto& a, const auto& b) { return a.order < b.order; });
    const schema::Table& description = host.Store().Catalog().tables[Id(table)];
    std::vector<Row> rows;
    for (const store::Record& record : records) {
      Row row{record.oid, record.parent, {}};
      for (std::size_t i = 0; i < record.cells.size(); ++i) {
        row.cells[description.fields[i].name] = record.cells[i];
      }
      rows.push_back(std::move(row));
    }
    return rows;
  }
  Row TheOnly(std::string_view table) {
    const std::vector<Row> rows = Rows(table);
    EXPECT_EQ(rows.size(), 1u) << table;
    return rows.empty() ? Row{} : rows.front();
  }
  std::size_t Count(std::string_view table) { return Rows(table).size(); }

  // Changes the stored profile past the host, which then reads it again.
  void ChangeProfile(const std::function<void(store::Profile&)>& change) {
    store::Profile profile = host.Store().ReadProfile();
    change(profile);
    host.Store().WriteProfile(profile);
    host.EndUnit();
    host.DropUnit();
  }

  // A filter hides all rows of the table until it is switched off.
  void HideRows(std::string_view table, embedded::FilterKind kind) {
    dynamic_cast<embedded::LiveTable&>(*host.Table(table))
        .SetFilter(kind, [](const store::Record&) { return false; });
  }

  void SetVariable(std::string_view name, const host::Value& value) {
    host::HostPersistVars& variables = host.App()->CurrentDb()->Formulas().PersistVars();
    if (host::HostPersistVar* variable = variables.Item(name)) {
      variable->SetValue(value);
    } else {
      variables.Add(name, value);
    }
  }

  RecordingScreen screen;
  platform::FixedClock clock{Day(15, 3, 2024)};
  embedded::Host host;
  shell::Module module;

  store::Oid client = 0;
  store::Oid address = 0;
  store::Oid other_address = 0;
  store::Oid article_group = 0;
  store::Oid server = 0;   // article "A1", 120.00
  store::Oid hotline = 0;  // article "A2", 10.00

 private:
  static store::Profile StartProfile() {
    store::Profile profile;
    profile.name = "FIRMA";
    profile.display_name = "Firma GmbH";
    profile.users = {"Anna", "Bert", std::string(schema::kDevelopmentUser)};
    profile.current_user = "Anna";
    const auto list = [&](std::string_view name, host::ValueArray texts) {
      profile.settings.push_back(
          {store::SettingScope::PersistVar, {}, std::string(name), std::move(texts), false});
    };
    list(schema::setting::lt_Einheit, {"Stück", "Stunde"});
    list(schema::setting::vv_lt_VertragstypStatus, {"in Bearbeitung", schema::kReleased});
    return profile;
  }

  store::TableId Id(std::string_view table) { return host.Store().Catalog().Table(table); }

  std::vector<store::Record> Records(store::TableId table) {
    std::vector<store::Oid> parents = {0};
    if (const auto parent = host.Store().Catalog().tables[table].parent) {
      parents.clear();
      for (const store::Record& record : Records(*parent)) parents.push_back(record.oid);
    }
    std::vector<store::Record> records;
    store::Record record;
    for (const store::Oid parent : parents) {
      for (std::int64_t after = 0; host.Store().NextInParent(table, parent, after, record);
           after = record.order) {
        records.push_back(record);
      }
    }
    return records;
  }
};

// What the reporter shows of an error, with the host's text for its number.
inline ui::Message ReporterMessage(std::string_view procedure, std::int32_t number,
                                   const std::string& source) {
  return {"Fehler &H" + platform::HexNumber(number) + " in " + source + "\r\n" +
              embedded::CreateErrorTexts()->Text(number),
          ui::style::kExclamation, "Fehler in " + std::string(procedure)};
}
inline ui::Message ReporterMessage(std::string_view procedure, platform::RuntimeError error) {
  return ReporterMessage(procedure, static_cast<std::int32_t>(error), "Pactora2");
}

// A world for each test. Every message must have been expected, and must come.
class ContractWorldTest : public testing::Test {
 protected:
  void TearDown() override { EXPECT_THAT(world.screen.Problems(), testing::IsEmpty()); }

  ContractWorld world;
};

}  // namespace pactora::support
