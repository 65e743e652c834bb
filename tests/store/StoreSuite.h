// What the suites over stores share: rows made by field name, and rows as text,
// so that a failure shows what the store saw.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "schema/Catalog.h"
#include "schema/names.h"
#include "store/Document.h"
#include "store/RecordStore.h"
#include "store/errors.h"
#include "support/error_of.h"
#include "support/store_kinds.h"

namespace pactora::store {

using support::ErrorNumberOf;

using Cells = std::vector<std::pair<std::string_view, host::Value>>;

// The position of a table or index. Requires: it exists.
inline TableId TableOf(const RecordStore& store, std::string_view name) {
  return store.Catalog().Table(name);
}

inline IndexId IndexOf(const RecordStore& store, std::string_view table, std::string_view index) {
  return store.Catalog().tables[TableOf(store, table)].FindIndex(index).value();
}

// The row's cell of that field.
inline host::Value& Cell(const RecordStore& store, std::string_view table, Record& record,
                         std::string_view field) {
  return record.cells.at(store.Catalog().tables[TableOf(store, table)].FindField(field).value());
}

// A row with these cells, the others empty, and with these keys, the others
// empty texts.
inline Record Row(const RecordStore& store, std::string_view table, Oid parent = 0,
                  const Cells& cells = {}, std::vector<std::string> keys = {}) {
  const schema::Table& description = store.Catalog().tables[TableOf(store, table)];
  Record record;
  record.parent = parent;
  record.cells.resize(description.fields.size());
  record.keys = std::move(keys);
  record.keys.resize(description.indexes.size());
  for (const auto& [field, value] : cells) Cell(store, table, record, field) = value;
  return record;
}

inline Oid InsertedOid(RecordStore& store, std::string_view table, Oid parent = 0,
                       const Cells& cells = {}, std::vector<std::string> keys = {}) {
  Record record = Row(store, table, parent, cells, std::move(keys));
  store.Insert(TableOf(store, table), record);
  return record.oid;
}

// A new address of that name, committed.
inline Oid AddAddress(RecordStore& store, const std::string& name) {
  const Oid oid =
      InsertedOid(store, schema::table::Adressen, 0, {{schema::field::Name, host::Value(name)}});
  store.Commit();
  return oid;
}

// Kind and exact content.
inline std::string Text(const host::Value& value) {
  constexpr const char* kNumbers[] = {"", "Integer ", "Long ", "Double ", "Date "};
  switch (value.GetKind()) {
    case host::Kind::Empty:
      return "-";
    case host::Kind::Text:
      return "'" + value.AsText() + "'";
    case host::Kind::Boolean:
      return value.AsBoolean() ? "True" : "False";
    case host::Kind::Object: {
      const auto* const document = dynamic_cast<const NamedDocument*>(value.AsObject().get());
      return document == nullptr ? "object" : "document " + document->Name();
    }
    case host::Kind::Array: {
      std::string text = "[";
      for (const host::Value& element : value.AsArray()) text += Text(element) + ";";
      return text + "]";
    }
    default:
      break;
  }
  std::ostringstream text;
  text << kNumbers[static_cast<std::size_t>(value.GetKind())] << std::hexfloat
       << host::ToDouble(value);
  return text.str();
}

// All of the row but its keys: "5 in 3, order 5, version 1: ...".
inline std::string Text(const Record& record) {
  std::ostringstream text;
  text << record.oid << " in " << record.parent << ", order " << record.order << ", version "
       << record.version << ":";
  for (const host::Value& cell : record.cells) text << ' ' << Text(cell);
  return text.str();
}

inline std::string TextWithKeys(const Record& record) {
  std::string text = Text(record) + " |";
  for (const std::string& key : record.keys) text += " <" + key + ">";
  return text;
}

// Names, users, macros and settings, a line each.
inline std::string Text(const Profile& profile) {
  std::ostringstream text;
  text << profile.name << ", " << profile.display_name << ", " << profile.current_user << '\n';
  for (const std::string& user : profile.users) text << "user " << user << '\n';
  for (const Setting& setting : profile.settings) {
    text << "setting " << static_cast<int>(setting.scope) << " '" << setting.owner << "' '"
         << setting.name << "' = " << Text(setting.value) << (setting.read_only ? " read-only" : "")
         << '\n';
  }
  for (const Macro& macro : profile.macros) {
    text << "macro " << macro.path << ' ' << macro.fails << ' ' << macro.number << ' '
         << macro.description << '\n';
  }
  return text.str();
}

inline Profile SampleProfile() {
  Profile profile;
  profile.name = "FIRMA";
  profile.display_name = "Firma GmbH & Söhne";
  profile.users = {"Anna", "Bernd", "DEVELOPMENT"};
  profile.current_user = "Bernd";
  const host::ValueArray units = {"Stück", "", "Stunde"};
  profile.settings = {
      {SettingScope::PersistVar, "", "vv_AlarmWochenEnde", "4", true},
      {SettingScope::PersistVar, "", "lt_Einheit", units},
      {SettingScope::PersistVar, "", "leer", host::ValueArray()},
      {SettingScope::Database, "", "Größe", std::int16_t{-7}},
      {SettingScope::PublicUser, "Anna", "Größe", std::int32_t{70000}},
      {SettingScope::PrivateUser, "Anna", "Größe", 0.1},
      {SettingScope::PrivateUser, "Änne", "Größe", host::Date{45366.375}},
      {SettingScope::Table, "Adressen", "Größe", true},
      {SettingScope::Database, "", "ungesetzt", host::Value()},
  };
  profile.macros = {
      {"Project/vv_Macros/vv_CreateAttribute", false, 0, ""},
      {"Project/vv_Macros/kaputt", true, platform::ErrorNumber(0x80040005), "geht nicht"}};
  return profile;
}

// One case for each kind of store.
class StoreSuite : public support::StoreTest {
 protected:
  StoreSuite() : store_(GetParam().create(schema::ContractCatalog(true), SampleProfile())) {}

  // What a walk over the parent's rows or over an index finds, as oids in order.
  std::vector<Oid> Children(std::string_view table, Oid parent) {
    std::vector<Oid> oids;
    Record record;
    while (store_->NextInParent(TableOf(*store_, table), parent, record.order, record)) {
      oids.push_back(record.oid);
    }
    return oids;
  }

  std::vector<Oid> ByKey(std::string_view table, std::string_view index, std::string_view from = {},
                         std::int64_t after = 0) {
    const IndexId index_id = IndexOf(*store_, table, index);
    std::vector<Oid> oids;
    Record record;
    std::string key(from);
    record.order = after;
    while (store_->NextByKey(TableOf(*store_, table), index_id, key, record.order, record)) {
      oids.push_back(record.oid);
      key = record.keys[index_id];
    }
    return oids;
  }

  std::unique_ptr<RecordStore> store_;
};

}  // namespace pactora::store
