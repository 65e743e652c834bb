#include "automation/dataset/row_selector.h"

#include <fmt/format.h>

#include "automation/dataset/values.h"
#include "automation/formats/JsonWriter.h"
#include "automation/workspace/row_walk.h"

namespace pactora::dataset {

RowSelector ReadWhere(const schema::Table& table, const formats::Json& where,
                      const formats::Place& place) {
  RowSelector selector;
  if (formats::RequireObject(where, place).empty()) place.Fail("mindestens ein Feld wird erwartet");
  for (const auto& member : where.items()) {
    const formats::Place here = place.Key(member.key());
    const auto field = table.FindField(member.key());
    if (!field) here.Fail(fmt::format("kein Feld von {}", table.name));
    // In the form in which the value is written, so that equal values are equal texts.
    selector.fields.emplace_back(table.fields[*field].name,
                                 ToJson(ReadField(table.fields[*field], member.value(), here)));
  }
  return selector;
}

std::string Describe(const RowSelector& selector) {
  if (selector.oid) return fmt::format("Oid {}", *selector.oid);
  std::string text;
  for (const auto& [field, value] : selector.fields)
    text += fmt::format("{}{} = {}", text.empty() ? "" : ", ", field, formats::OneLine(value));
  return text;
}

std::optional<RowFinder::Found> RowFinder::Find(store::TableId table, const RowSelector& selector) {
  if (selector.oid) {
    store::Record record;
    if (!store_.Read(table, *selector.oid, record)) return std::nullopt;
    return Found{*selector.oid};
  }
  std::vector<std::size_t> fields;
  std::string wanted;
  for (const auto& [name, value] : selector.fields) {
    const auto field = store_.Catalog().tables[table].FindField(name);
    if (!field) return std::nullopt;
    fields.push_back(*field);
    wanted += formats::OneLine(value) + '\n';
  }
  const bool asked_before = known_.contains({table, fields});
  Known& known = known_[{table, fields}];
  if (!known.complete) {
    // The first search keeps the matching rows alone, the second one all rows.
    known.rows.clear();
    workspace::ForEachRow(store_, table, [&](const store::Record& record) {
      std::string found;
      for (const std::size_t field : fields)
        found += formats::OneLine(ToJson(record.cells[field])) + '\n';
      if (!asked_before && found != wanted) return true;
      const auto [place, is_new] =
          known.rows.try_emplace(std::move(found), Known::Row{record.order, {record.oid}});
      Known::Row& row = place->second;
      if (is_new) return true;
      if (std::pair(record.order, record.oid) < std::pair(row.order, row.found.oid))
        row = {record.order, {record.oid}};
      row.found.only = false;
      return true;
    });
    known.complete = asked_before;
  }
  const auto found = known.rows.find(wanted);
  return found == known.rows.end() ? std::nullopt : std::optional(found->second.found);
}

}  // namespace pactora::dataset
