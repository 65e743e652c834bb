#include "newcontract/DefinitionSource.h"

#include "schema/names.h"

namespace pactora::newcontract {

namespace field = schema::field;

double DefinitionSource::NettoSumme() { return host::ToDouble(Field(field::NettoSumme)); }

contract::NoticeRule DefinitionSource::Notice() {
  return {host::ToLong(Field(field::Kuendigungsfrist)),
          host::ToText(Field(field::KuendigungsfristEinh))};
}

contract::NoticeRule DefinitionSource::RenewalNotice() {
  return {host::ToLong(Field(field::VerlKuendigungsfrist)),
          host::ToText(Field(field::VerlKuendigungsfristEinh))};
}

}  // namespace pactora::newcontract
