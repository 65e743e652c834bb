#include "component/TypeLibrary.h"

#include "component/com/class_keys.h"
#include "component/com/failures.h"

namespace pactora::component {
namespace {

// Used on the host's user-interface thread alone.
Ref<ITypeLib> own_library;

}  // namespace

Ref<ITypeLib> OwnTypeLibrary() {
  if (!own_library) Check(LoadTypeLibEx(OwnPath().c_str(), REGKIND_NONE, own_library.Put()));
  return own_library;
}

Ref<ITypeInfo> TypeOf(const IID& interface_id) {
  Ref<ITypeInfo> type;
  Check(OwnTypeLibrary()->GetTypeInfoOfGuid(interface_id, type.Put()));
  return type;
}

void ForgetTypeLibrary() { own_library = {}; }

}  // namespace pactora::component
