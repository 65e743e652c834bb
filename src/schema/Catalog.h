// The database as data: every table with its fields, indexes and parent.
//
// Hosts build their tables from this description; create, load, save, import,
// export and check all read it, so a table is described once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "schema/NameLookup.h"

namespace pactora::schema {

enum class FieldType { Text, Long, Double, Date, Boolean, Document };

struct Field {
  std::string name;
  FieldType type = FieldType::Text;
  std::int32_t size = 0;  // characters, for Text
};

// One part of an index key: a field of the row or, with of_parent, of its
// parent's row.
struct KeyPart {
  std::size_t field = 0;  // position in the fields of the table or the parent
  bool of_parent = false;
};

struct Index {
  std::string name;
  std::vector<KeyPart> parts;
};

struct Table {
  std::string name;
  std::optional<std::size_t> parent;  // position in Catalog::tables
  std::vector<std::size_t> children;  // positions, in schema order
  std::vector<Field> fields;
  std::vector<Index> indexes;
  std::optional<std::size_t> id_field;  // ID or Id: given out by the host when empty
  // Rows hold running numbers: a seek locks the row found until the unit of
  // work ends, so that two users never draw the same number.
  bool counter = false;
  // Fields that no two rows of one parent may share all of; empty for none.
  std::vector<std::size_t> unique_fields;
  NameLookup field_lookup;

  // Without regard to case.
  std::optional<std::size_t> FindField(std::string_view field_name) const;
  std::optional<std::size_t> FindIndex(std::string_view index_name) const;
};

struct Catalog {
  std::int32_t version = 2;           // of the structure, stored in database files
  std::vector<schema::Table> tables;  // a parent before its children
  bool workflow_add_on = true;
  NameLookup table_lookup;

  // Without regard to case.
  std::optional<std::size_t> FindTable(std::string_view table_name) const;
  // The same for a table that must be there; throws std::out_of_range otherwise.
  std::size_t Table(std::string_view table_name) const;

  // Appends a table under the parent, enters it among the parent's children and
  // makes its names quick to find. Returns its position.
  // Requires: the table has no children yet; parent, if any, is a position.
  std::size_t Add(schema::Table table, std::optional<std::size_t> parent);
};

// The tables of the contract add-on and of its host. Without the workflow
// add-on there is neither KELDO_Vorgaenge nor the optional KELDO_ fields.
Catalog ContractCatalog(bool workflow_add_on);
// Every table and field that a database can have.
const Catalog& WholeCatalog();

}  // namespace pactora::schema
