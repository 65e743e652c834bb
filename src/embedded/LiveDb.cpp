#include "embedded/LiveDb.h"

#include <array>

#include "embedded/LiveProfile.h"
#include "embedded/LiveTable.h"
#include "embedded/errors.h"
#include "platform/Text.h"
#include "schema/names.h"

namespace pactora::embedded {
namespace {

// An expression is a field of the current row of a table; where the row has no
// value it gives the empty form of its kind.
struct Expression {
  std::string_view text;
  std::string_view table;
  std::string_view field;
  host::Kind kind;
};

constexpr std::array kExpressions = {
    Expression{schema::expression::Name_, schema::table::Adressen, schema::field::Name,
               host::Kind::Text},
    Expression{schema::expression::Erloeskonto, schema::table::Artikel, schema::field::Erloeskonto,
               host::Kind::Long},
    Expression{schema::expression::USTSatzArtikel, schema::table::Artikel, schema::field::USTSatz,
               host::Kind::Double},
};

class LiveFormula final : public host::HostFormula {
 public:
  LiveFormula(LiveTable& table, std::size_t field, host::Kind kind)
      : table_(table), field_(field), kind_(kind) {}

  host::Value Eval(std::int32_t) override {
    table_.Begin("Eval");
    const host::Value& value = table_.Cells()[field_];
    switch (kind_) {
      case host::Kind::Long:
        return host::ToLong(value);
      case host::Kind::Double:
        return host::ToDouble(value);
      default:
        return host::ToText(value);
    }
  }

 private:
  LiveTable& table_;
  const std::size_t field_;
  const host::Kind kind_;
};

// A formula that keeps the core, and with it the table, alive.
struct HeldFormula {
  std::shared_ptr<Core> core;
  LiveFormula formula;
};

}  // namespace

std::shared_ptr<host::HostTable> LiveTables::Item(std::string_view name) {
  core_.Begin("Tables.Item", name);
  LiveTable* table = core_.FindTable(name);
  if (table == nullptr) Raise(HostError::UnknownTable, name);
  return core_.Handle<host::HostTable>(*table);
}

std::string LiveTables::Name() {
  core_.Begin("Database.Name");
  return core_.Profile().Name();
}

std::string LiveTables::DisplayName(std::int32_t) {
  core_.Begin("Database.DisplayName");
  return core_.Profile().DisplayName();
}

std::shared_ptr<host::HostFormula> LiveFormulas::Compile(std::string_view text, std::int32_t) {
  core_.Begin("Compile");
  for (const Expression& expression : kExpressions) {
    if (!platform::EqualsIgnoringCase(platform::Trim(text), expression.text)) continue;
    LiveTable& table = *core_.FindTable(expression.table);
    const std::size_t field = *table.Schema().FindField(expression.field);
    auto held = std::make_shared<HeldFormula>(
        HeldFormula{core_.shared_from_this(), LiveFormula(table, field, expression.kind)});
    return {held, &held->formula};
  }
  Raise(HostError::UnknownExpression, text);
}

host::HostPersistVars& LiveFormulas::PersistVars() { return core_.Profile().PersistVars(); }

host::HostUsers& LiveDb::Users() { return core_.Profile().Users(); }

host::HostSettings& LiveDb::DbSettings() { return core_.Profile().DbSettings(); }

}  // namespace pactora::embedded
