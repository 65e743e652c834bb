#include "schema/Catalog.h"

#include <stdexcept>

#include "platform/Text.h"

namespace pactora::schema {
namespace {

// The first element of that name, the exact spelling before any other.
template <typename Element>
std::optional<std::size_t> FindName(const std::vector<Element>& elements, const NameLookup& lookup,
                                    std::string_view name) {
  const std::size_t exact = lookup.Find(name, [&](std::size_t position) {
    return position < elements.size() && elements[position].name == name;
  });
  if (exact != NameLookup::kNone) return exact;
  for (std::size_t i = 0; i < elements.size(); ++i) {
    if (platform::EqualsIgnoringCase(elements[i].name, name)) return i;
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::size_t> Table::FindField(std::string_view field_name) const {
  return FindName(fields, field_lookup, field_name);
}

std::optional<std::size_t> Table::FindIndex(std::string_view index_name) const {
  return FindName(indexes, NameLookup(), index_name);
}

std::optional<std::size_t> Catalog::FindTable(std::string_view table_name) const {
  return FindName(tables, table_lookup, table_name);
}

std::size_t Catalog::Table(std::string_view table_name) const {
  if (const auto position = FindTable(table_name)) return *position;
  throw std::out_of_range("no table " + std::string(table_name));
}

std::size_t Catalog::Add(schema::Table table, std::optional<std::size_t> parent) {
  const std::size_t position = tables.size();
  table.parent = parent;
  if (parent) tables[*parent].children.push_back(position);
  for (std::size_t i = 0; i < table.fields.size(); ++i) {
    table.field_lookup.Add(table.fields[i].name, i);
  }
  table_lookup.Add(table.name, position);
  tables.push_back(std::move(table));
  return position;
}

}  // namespace pactora::schema
