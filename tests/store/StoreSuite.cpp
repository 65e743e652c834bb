#include "store/StoreSuite.h"

#include <array>
#include <cstdio>
#include <sstream>

#include "store/Document.h"

namespace pactora::store {

using host::Kind;
using host::Value;

TableId TableOf(const RecordStore& store, std::string_view name) {
  return store.Catalog().Table(name);
}

IndexId IndexOf(const RecordStore& store, std::string_view table, std::string_view index) {
  return store.Catalog().tables[TableOf(store, table)].FindIndex(index).value();
}

Value& Cell(const RecordStore& store, std::string_view table, Record& record,
            std::string_view field) {
  return record.cells.at(store.Catalog().tables[TableOf(store, table)].FindField(field).value());
}

Record Row(const RecordStore& store, std::string_view table, Oid parent, const Cells& cells,
           std::vector<std::string> keys) {
  const schema::Table& description = store.Catalog().tables[TableOf(store, table)];
  Record record;
  record.parent = parent;
  record.cells.resize(description.fields.size());
  record.keys = std::move(keys);
  record.keys.resize(description.indexes.size());
  for (const auto& [field, value] : cells) Cell(store, table, record, field) = value;
  return record;
}

Oid InsertedOid(RecordStore& store, std::string_view table, Oid parent, const Cells& cells,
                std::vector<std::string> keys) {
  Record record = Row(store, table, parent, cells, std::move(keys));
  store.Insert(TableOf(store, table), record);
  return record.oid;
}

std::string Text(const Value& value) {
  const auto exact = [](double number) {
    std::array<char, 64> text;
    std::snprintf(text.data(), text.size(), "%a", number);
    return std::string(text.data());
  };
  switch (value.GetKind()) {
    case Kind::Empty:
      return "-";
    case Kind::Integer:
      return "Integer " + std::to_string(value.AsInteger());
    case Kind::Long:
      return "Long " + std::to_string(value.AsLong());
    case Kind::Double:
      return "Double " + exact(value.AsDouble());
    case Kind::Date:
      return "Date " + exact(value.AsDate().days);
    case Kind::Text:
      return "'" + value.AsText() + "'";
    case Kind::Boolean:
      return value.AsBoolean() ? "True" : "False";
    case Kind::Object: {
      const auto* const document = dynamic_cast<const NamedDocument*>(value.AsObject().get());
      return document == nullptr ? "object" : "document " + document->Name();
    }
    case Kind::Array: {
      std::string text = "[";
      for (const Value& element : value.AsArray()) text += Text(element) + ";";
      return text + "]";
    }
  }
  return {};
}

std::string Text(const Record& record) {
  std::ostringstream text;
  text << record.oid << " in " << record.parent << ", order " << record.order << ", version "
       << record.version << ":";
  for (const Value& cell : record.cells) text << ' ' << Text(cell);
  return text.str();
}

std::string TextWithKeys(const Record& record) {
  std::string text = Text(record) + " |";
  for (const std::string& key : record.keys) text += " <" + key + ">";
  return text;
}

std::string Text(const Profile& profile) {
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

Profile SampleProfile() {
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
      {SettingScope::Database, "", "ungesetzt", Value()},
  };
  profile.macros = {
      {"Project/vv_Macros/vv_CreateAttribute", false, 0, ""},
      {"Project/vv_Macros/kaputt", true, platform::ErrorNumber(0x80040005), "geht nicht"}};
  return profile;
}

std::vector<Oid> StoreSuite::Children(std::string_view table, Oid parent) {
  std::vector<Oid> oids;
  Record record;
  while (store_->NextInParent(TableOf(*store_, table), parent, record.order, record)) {
    oids.push_back(record.oid);
  }
  return oids;
}

std::vector<Oid> StoreSuite::ByKey(std::string_view table, std::string_view index,
                                   std::string_view from, std::int64_t after) {
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

}  // namespace pactora::store
