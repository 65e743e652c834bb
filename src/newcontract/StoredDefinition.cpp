#include "newcontract/StoredDefinition.h"

#include "contract/modVV.h"
#include "host/row.h"
#include "schema/names.h"

namespace pactora::newcontract {

namespace field = schema::field;

namespace {

class StoredPosition final : public DefinitionPosition {
 public:
  explicit StoredPosition(host::HostFields& fields) : fields_(fields) {}
  host::Value Field(std::string_view name) override { return fields_.Item(name).Value(); }

 private:
  host::HostFields& fields_;
};

}  // namespace

StoredDefinition::StoredDefinition(std::shared_ptr<host::HostTable> definitions,
                                   std::shared_ptr<host::HostTable> positions)
    : moDefinitionen(std::move(definitions)),
      moDefPositionen(std::move(positions)),
      attribute_{host::ToText(Field(field::SetztMerkmalGruppe)),
                 host::ToText(Field(field::SetztMerkmal)), host::ToText(Field(field::SetztWert))} {}

host::Value StoredDefinition::Field(std::string_view name) { return Get(*moDefinitionen, name); }

host::Value StoredDefinition::RenewalWorkflowId() { return Field(field::WorkflowID); }

std::string StoredDefinition::FirstPeriodName(std::int32_t) {
  return contract::GetPeriodName(host::ToLong(Field(field::Zahlungsperiode)));
}

void StoredDefinition::ForEachPosition(PositionOrder,
                                       const std::function<void(DefinitionPosition&)>& visit) {
  StoredPosition position(moDefPositionen->Fields());
  for (moDefPositionen->MoveFirst(host::kFlagsUsual); !moDefPositionen->Eof();
       moDefPositionen->MoveNext(1, host::kFlagsUsual)) {
    visit(position);
  }
}

}  // namespace pactora::newcontract
