#include "component/registration.h"

#include <pactora2.h>

#include <string>
#include <utility>

#include "component/TypeLibrary.h"
#include "component/com/failures.h"
#include "component/com/text.h"

// In the system's library, and not in the compiler's headers.
extern "C" {
HRESULT WINAPI RegisterTypeLibForUser(ITypeLib* library, OLECHAR* path, OLECHAR* help);
HRESULT WINAPI UnRegisterTypeLibForUser(REFGUID id, WORD major, WORD minor, LCID locale,
                                        SYSKIND system);
}

namespace pactora::component {
namespace {

constexpr const wchar_t* kClasses = L"Software\\Classes\\";

struct Class {
  const wchar_t* program_id;
  CLSID id;
};

// Also the classes' names for people.
const Class kRegistered[] = {{L"Pactora2.CVV", __uuidof(CVV)},
                             {L"Pactora2.vv_CContractD", __uuidof(vv_CContractD)},
                             {L"Pactora2.vv_CArticle", __uuidof(vv_CArticle)}};

// The library's own way of counting pointers.
#ifdef _WIN64
constexpr SYSKIND kSystem = SYS_WIN64;
#else
constexpr SYSKIND kSystem = SYS_WIN32;
#endif

std::wstring TextOf(const GUID& id) {
  wchar_t text[39] = L"";
  StringFromGUID2(id, text, 39);
  return text;
}

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

void SetKey(HKEY root, const std::wstring& key, const wchar_t* name, const std::wstring& text) {
  const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  Check(HRESULT_FROM_WIN32(
      RegSetKeyValueW(root, (kClasses + key).c_str(), name, REG_SZ, text.c_str(), size)));
}

void RegisterIn(HKEY root) {
  const std::wstring path = OwnPath();
  const Ref<ITypeLib> library = OwnTypeLibrary();
  const LibraryAttributes attributes(library);
  for (const Class& registered : kRegistered) {
    const std::wstring id = TextOf(registered.id);
    const std::wstring class_key = L"CLSID\\" + id;
    SetKey(root, class_key, nullptr, registered.program_id);
    SetKey(root, class_key + L"\\InprocServer32", nullptr, path);
    SetKey(root, class_key + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
    SetKey(root, class_key + L"\\ProgID", nullptr, registered.program_id);
    SetKey(root, class_key + L"\\TypeLib", nullptr, TextOf(attributes->guid));
    SetKey(root, registered.program_id, nullptr, registered.program_id);
    SetKey(root, registered.program_id + std::wstring(L"\\CLSID"), nullptr, id);
  }
  std::wstring library_path = path;
  if (root == HKEY_LOCAL_MACHINE) {
    Check(RegisterTypeLib(library.Get(), library_path.data(), nullptr));
  } else {
    Check(RegisterTypeLibForUser(library.Get(), library_path.data(), nullptr));
  }
}

void RemoveKey(HKEY root, const std::wstring& key) {
  const LSTATUS status = RegDeleteTreeW(root, (kClasses + key).c_str());
  if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND) {
    Check(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
  }
}

void UnregisterFrom(HKEY root) {
  for (const Class& registered : kRegistered) {
    RemoveKey(root, L"CLSID\\" + TextOf(registered.id));
    RemoveKey(root, registered.program_id);
  }
  const LibraryAttributes attributes(OwnTypeLibrary());
  const auto unregister = root == HKEY_LOCAL_MACHINE ? UnRegisterTypeLib : UnRegisterTypeLibForUser;
  const HRESULT code = unregister(attributes->guid, attributes->wMajorVerNum,
                                  attributes->wMinorVerNum, attributes->lcid, kSystem);
  if (code == E_ACCESSDENIED) RaiseCode(code);  // any other says that there is none
}

}  // namespace

HRESULT Register() {
  const HRESULT machine = Guarded([] { RegisterIn(HKEY_LOCAL_MACHINE); });
  return machine == E_ACCESSDENIED ? Guarded([] { RegisterIn(HKEY_CURRENT_USER); }) : machine;
}

HRESULT Unregister() {
  const HRESULT user = Guarded([] { UnregisterFrom(HKEY_CURRENT_USER); });
  const HRESULT machine = Guarded([] { UnregisterFrom(HKEY_LOCAL_MACHINE); });
  return FAILED(user) ? user : machine;
}

}  // namespace pactora::component
