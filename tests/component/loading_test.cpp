#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <functional>

#include "component/ComponentWorld.h"
#include "platform/Text.h"

namespace pactora::component {
namespace {

// The names in a table of the loaded file.
template <typename Visit>
void ForEachExport(const char* base, const IMAGE_DATA_DIRECTORY& directory, Visit visit) {
  const auto* exports =
      reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(base + directory.VirtualAddress);
  const auto* names = reinterpret_cast<const DWORD*>(base + exports->AddressOfNames);
  for (DWORD i = 0; i < exports->NumberOfNames; ++i) visit(base + names[i]);
}
template <typename Visit>
void ForEachImport(const char* base, const IMAGE_DATA_DIRECTORY& directory, Visit visit) {
  const auto* import =
      reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
  for (; import->Name != 0; ++import) visit(base + import->Name);
}

double Milliseconds(const std::function<void()>& act) {
  const auto begin = std::chrono::steady_clock::now();
  act();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin)
      .count();
}

TEST(Component, IsSmallQuicklyLoadedAndNeedsTheSystemAlone) {
  double quickest = 1e9;  // of some, as the machine may be busy
  for (int i = 0; i < 5; ++i) {
    quickest = std::min(quickest, Milliseconds([] {
                          const LoadedComponent component;
                          BSTR text = nullptr;
                          component.Create<ICVV>(__uuidof(CVV))->DLLVersion(&text);
                          EXPECT_EQ(Narrow(text), "Version 2.9.0.2");
                          SysFreeString(text);
                        }));
  }
  EXPECT_LT(quickest, 50);
  const LoadedComponent component;
  wchar_t path[MAX_PATH] = L"";
  WIN32_FILE_ATTRIBUTE_DATA file{};
  GetModuleFileNameW(GetModuleHandleW(L"pactora2.dll"), path, MAX_PATH);
  ASSERT_TRUE(GetFileAttributesExW(path, GetFileExInfoStandard, &file));
  EXPECT_LT(file.nFileSizeLow, 2'000'000u);
  const auto* base = reinterpret_cast<const char*>(GetModuleHandleW(L"pactora2.dll"));
  const auto& headers = *reinterpret_cast<const IMAGE_NT_HEADERS*>(
      base + reinterpret_cast<const IMAGE_DOS_HEADER*>(base)->e_lfanew);
  const auto& tables = headers.OptionalHeader.DataDirectory;
  std::vector<std::string> names;
  ForEachExport(base, tables[IMAGE_DIRECTORY_ENTRY_EXPORT],
                [&](const char* name) { names.push_back(name); });
  EXPECT_THAT(names, testing::ElementsAre("DllCanUnloadNow", "DllGetClassObject",
                                          "DllRegisterServer", "DllUnregisterServer"));
  ForEachImport(base, tables[IMAGE_DIRECTORY_ENTRY_IMPORT], [](const char* name) {
    EXPECT_THAT(
        platform::LowerCase(name),
        testing::AnyOf("advapi32.dll", "comctl32.dll", "gdi32.dll", "kernel32.dll", "msvcrt.dll",
                       "ole32.dll", "oleaut32.dll", "user32.dll", "uxtheme.dll"));
  });
}

bool IsKnown(const wchar_t* program_id) {
  CLSID id{};
  return SUCCEEDED(CLSIDFromProgID(program_id, &id));
}

TEST_F(ComponentTest, IsLoadedAsLongAsSomebodyHoldsAnObjectOrALock) {
  EXPECT_EQ(component.Call("DllCanUnloadNow"), S_OK);
  {
    const auto record = component.Create<IDispatch>(__uuidof(vv_CArticle));
    EXPECT_EQ(component.Call("DllCanUnloadNow"), S_FALSE);
  }
  Ref<IClassFactory> factory;
  const auto get = component.Export<HRESULT WINAPI(REFCLSID, REFIID, void**)>("DllGetClassObject");
  ASSERT_EQ(get(__uuidof(CVV), IID_IClassFactory, factory.PutVoid()), S_OK);
  factory->LockServer(TRUE);
  IClassFactory* locked = factory.Detach();
  locked->Release();
  EXPECT_EQ(component.Call("DllCanUnloadNow"), S_FALSE);
  locked->LockServer(FALSE);
  EXPECT_EQ(component.Call("DllCanUnloadNow"), S_OK);
}

TEST_F(ComponentTest, LetsTheHostGoWhenItMayBeUnloaded) {
  const unsigned before = automation_host::traffic.objects;
  EXPECT_EQ(Debitor(Contract(), ServeCollection({})).code, S_OK);
  EXPECT_GT(automation_host::traffic.objects, before);  // the globals hold the last host
  EXPECT_EQ(component.Call("DllCanUnloadNow"), S_OK);
  EXPECT_EQ(automation_host::traffic.objects, before);
}

TEST_F(ComponentTest, OffersItsThreeClassesAndNoAggregation) {
  const auto get = component.Export<HRESULT WINAPI(REFCLSID, REFIID, void**)>("DllGetClassObject");
  Ref<IClassFactory> none;
  EXPECT_EQ(get(IID_IUnknown, IID_IClassFactory, none.PutVoid()), CLASS_E_CLASSNOTAVAILABLE);
  const auto outer = component.Create<IUnknown>(__uuidof(vv_CArticle));
  for (const CLSID& id : {__uuidof(CVV), __uuidof(vv_CContractD), __uuidof(vv_CArticle)}) {
    Ref<IClassFactory> factory;
    ASSERT_EQ(get(id, IID_IClassFactory, factory.PutVoid()), S_OK);
    Ref<IUnknown> object;
    EXPECT_EQ(factory->CreateInstance(outer.Get(), IID_IUnknown, object.PutVoid()),
              CLASS_E_NOAGGREGATION);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, object.PutVoid()), S_OK);
  }
}

TEST_F(ComponentTest, IsRegisteredAndRemovedWithoutARest) {
  constexpr const wchar_t* kIds[] = {L"Pactora2.CVV", L"Pactora2.vv_CContractD",
                                     L"Pactora2.vv_CArticle"};
  EXPECT_EQ(component.Call("DllUnregisterServer"), S_OK);  // nothing is there
  for (const wchar_t* id : kIds) EXPECT_FALSE(IsKnown(id));
  for (int round = 0; round < 2; ++round) EXPECT_EQ(component.Call("DllRegisterServer"), S_OK);
  for (const wchar_t* id : kIds) EXPECT_TRUE(IsKnown(id));
  EXPECT_EQ(Run(R"(
      Test.Note CreateObject("Pactora2.CVV").DLLVersion
      CreateObject("Pactora2.vv_CArticle").dblPreis = 1)"),
            Failure{});
  EXPECT_THAT(notes, testing::ElementsAre("Version 2.9.0.2"));
  Ref<ITypeLib> library;
  const auto query = [&] {
    Ref<ITypeInfo> type;
    component.Create<IDispatch>(__uuidof(CVV))->GetTypeInfo(0, 0, type.Put());
    UINT index = 0;
    type->GetContainingTypeLib(library.Put(), &index);
    TLIBATTR* attributes = nullptr;
    library->GetLibAttr(&attributes);
    BSTR path = nullptr;
    const HRESULT code = QueryPathOfRegTypeLib(attributes->guid, 2, 9, attributes->lcid, &path);
    SysFreeString(path);
    library->ReleaseTLibAttr(attributes);
    library = {};
    return code;
  };
  EXPECT_EQ(query(), S_OK);
  EXPECT_EQ(component.Call("DllUnregisterServer"), S_OK);
  for (const wchar_t* id : kIds) EXPECT_FALSE(IsKnown(id));
  EXPECT_TRUE(FAILED(query()));
}

}  // namespace
}  // namespace pactora::component
