#include "component/TypeLibrary.h"

#include "component/com/failures.h"

namespace pactora::component {
namespace {

// Used on the host's user-interface thread alone.
Ref<ITypeLib> own_library;

HMODULE OwnModule() {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<LPCWSTR>(&OwnModule), &module);
  return module;
}

}  // namespace

std::wstring OwnPath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length =
        GetModuleFileNameW(OwnModule(), path.data(), static_cast<DWORD>(path.size()));
    if (length == 0) Check(HRESULT_FROM_WIN32(GetLastError()));
    if (length < path.size()) return path.substr(0, length);
    path.resize(path.size() * 2);
  }
}

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
