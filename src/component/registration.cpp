#include "component/registration.h"

#include <pactora2.h>

#include <string>
#include <utility>

#include "component/TypeLibrary.h"
#include "component/com/class_keys.h"
#include "component/com/failures.h"

// In the system's library, and not in the compiler's headers.
extern "C" {
HRESULT WINAPI RegisterTypeLibForUser(ITypeLib* library, OLECHAR* path, OLECHAR* help);
HRESULT WINAPI UnRegisterTypeLibForUser(REFGUID id, WORD major, WORD minor, LCID locale,
                                        SYSKIND system);
}

namespace pactora::component {
namespace {

const CreatableClass kRegistered[] = {{L"Pactora2.CVV", __uuidof(CVV)},
                                      {L"Pactora2.vv_CContractD", __uuidof(vv_CContractD)},
                                      {L"Pactora2.vv_CArticle", __uuidof(vv_CArticle)}};

// The library's own way of counting pointers.
#ifdef _WIN64
constexpr SYSKIND kSystem = SYS_WIN64;
#else
constexpr SYSKIND kSystem = SYS_WIN32;
#endif

// The attributes of the type library while they are read.
class LibraryAttributes {
 public:
  explicit LibraryAttributes(Ref<ITypeLib> library) : library_(std::move(library)) {
    Check(library_->GetLibAttr(&attributes_));
  }
  LibraryAttributes(const LibraryAttributes&) = delete;
  LibraryAttributes& operator=(const LibraryAttributes&) = delete;
  ~LibraryAttributes() { library_->ReleaseTLibAttr(attributes_); }

  const TLIBATTR* operator->() const { return attributes_; }

 private:
  Ref<ITypeLib> library_;
  TLIBATTR* attributes_ = nullptr;
};

void RegisterIn(HKEY root) {
  const Ref<ITypeLib> library = OwnTypeLibrary();
  const LibraryAttributes attributes(library);
  for (const CreatableClass& registered : kRegistered)
    EnterClass(root, registered, TextOf(attributes->guid));
  std::wstring library_path = OwnPath();
  if (root == HKEY_LOCAL_MACHINE) {
    Check(RegisterTypeLib(library.Get(), library_path.data(), nullptr));
  } else {
    Check(RegisterTypeLibForUser(library.Get(), library_path.data(), nullptr));
  }
}

void UnregisterFrom(HKEY root) {
  for (const CreatableClass& registered : kRegistered) RemoveClass(root, registered);
  const LibraryAttributes attributes(OwnTypeLibrary());
  const auto unregister = root == HKEY_LOCAL_MACHINE ? UnRegisterTypeLib : UnRegisterTypeLibForUser;
  const HRESULT code = unregister(attributes->guid, attributes->wMajorVerNum,
                                  attributes->wMinorVerNum, attributes->lcid, kSystem);
  if (code == E_ACCESSDENIED) RaiseCode(code);  // any other says that there is none
}

}  // namespace

HRESULT Register() { return ForMachineOrUser(RegisterIn); }

HRESULT Unregister() { return ForMachineAndUser(UnregisterFrom); }

}  // namespace pactora::component
