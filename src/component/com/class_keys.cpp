#include "component/com/class_keys.h"

#include "component/com/failures.h"

namespace pactora::component {
namespace {

constexpr const wchar_t* kClasses = L"Software\\Classes\\";

HMODULE OwnModule() {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<LPCWSTR>(&OwnModule), &module);
  return module;
}

void SetKey(HKEY root, const std::wstring& key, const wchar_t* name, const std::wstring& text) {
  const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
  Check(HRESULT_FROM_WIN32(
      RegSetKeyValueW(root, (kClasses + key).c_str(), name, REG_SZ, text.c_str(), size)));
}

void RemoveKey(HKEY root, const std::wstring& key) {
  const LSTATUS status = RegDeleteTreeW(root, (kClasses + key).c_str());
  if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND) {
    Check(HRESULT_FROM_WIN32(static_cast<DWORD>(status)));
  }
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

std::wstring TextOf(const GUID& id) {
  wchar_t text[39] = L"";
  StringFromGUID2(id, text, 39);
  return text;
}

void EnterClass(HKEY root, const CreatableClass& entered, const std::wstring& library) {
  const std::wstring id = TextOf(entered.id);
  const std::wstring class_key = L"CLSID\\" + id;
  SetKey(root, class_key, nullptr, entered.program_id);
  SetKey(root, class_key + L"\\InprocServer32", nullptr, OwnPath());
  SetKey(root, class_key + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
  SetKey(root, class_key + L"\\ProgID", nullptr, entered.program_id);
  if (!library.empty()) SetKey(root, class_key + L"\\TypeLib", nullptr, library);
  SetKey(root, entered.program_id, nullptr, entered.program_id);
  SetKey(root, entered.program_id + std::wstring(L"\\CLSID"), nullptr, id);
}

void RemoveClass(HKEY root, const CreatableClass& entered) {
  RemoveKey(root, L"CLSID\\" + TextOf(entered.id));
  RemoveKey(root, entered.program_id);
}

}  // namespace pactora::component
