#include "store/postgresql/check.h"

#include "store/postgresql/Statement.h"
#include "store/sql/row_statements.h"

namespace pactora::store::postgresql {
namespace {

using sql::Quoted;

// Adds a fault for each row that is found: its Oid, and what is told of it.
void AddRows(Connection& connection, const std::string& table, const std::string& sql,
             std::vector<std::string>& faults) {
  Statement rows(connection, sql);
  while (rows.Step()) {
    faults.push_back(table + ", Oid " + std::to_string(rows.Integer(0)) + ": " + rows.Text(1));
  }
}

}  // namespace

std::vector<std::string> Examine(Connection& connection, const schema::Catalog& catalog) {
  std::vector<std::string> faults;
  for (const schema::Table& table : catalog.tables) {
    const auto add = [&](const std::string& what, const std::string& rest) {
      std::string sql = "SELECT oid, " + what;
      sql.append(" FROM ").append(Quoted(table.name)).append(" AS checked").append(rest);
      AddRows(connection, table.name, sql, faults);
    };
    add("'eine der Zahlen oid, ord und version ist kleiner als 1'",
        " WHERE least(oid, ord, checked.version) < 1");
    // The next number given out must be one that no row has.
    add("'pactora_database.last_number steht auf ' || last_number || ', die Zeile hat schon ' || "
        "greatest(oid, ord)",
        ", pactora_database WHERE greatest(oid, ord) > last_number");
    if (!table.parent) continue;
    // The server's triggers keep references, but whoever owns them can switch them off.
    const std::string& parent = catalog.tables[*table.parent].name;
    add("'in " + parent + " fehlt der übergeordnete Datensatz'",
        " WHERE NOT EXISTS (SELECT FROM " + Quoted(parent) +
            " AS above WHERE above.oid = checked.parent)");
  }
  return faults;
}

}  // namespace pactora::store::postgresql
