#include <gmock/gmock.h>

#include "component/ComponentWorld.h"

namespace pactora::component {
namespace {

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
