// The component's four exports and its class factory.
#include <pactora2.h>

#include <new>

#include "component/AddOn.h"
#include "component/CVVObject.h"
#include "component/Records.h"
#include "component/registration.h"

namespace pactora::component {
namespace {

// A factory lives as long as the component is loaded; who holds it holds the component.
template <typename Object>
class Factory final : public IClassFactory {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (id != IID_IUnknown && id != IID_IClassFactory) return E_NOINTERFACE;
    *object = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override {
    CountObject();
    return 2;
  }
  ULONG STDMETHODCALLTYPE Release() override {
    DiscountObject();
    return 1;
  }

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    HRESULT found = S_OK;
    const HRESULT made = Guarded([&] {
      auto* created = new Object;
      found = created->QueryInterface(id, object);
      created->Release();
    });
    return FAILED(made) ? made : found;
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL locked) override {
    CountLock(locked != FALSE);
    return S_OK;
  }
};

template <typename Object>
HRESULT GetFactory(REFIID id, void** object) {
  static Factory<Object> factory;
  return factory.QueryInterface(id, object);
}

}  // namespace
}  // namespace pactora::component

// The system's headers declare them.
STDAPI DllGetClassObject(REFCLSID class_id, REFIID id, LPVOID* object) {
  using namespace pactora::component;
  if (object == nullptr) return E_POINTER;
  *object = nullptr;
  if (class_id == __uuidof(CVV)) return GetFactory<CVVObject>(id, object);
  if (class_id == __uuidof(vv_CContractD)) return GetFactory<vv_CContractDObject>(id, object);
  if (class_id == __uuidof(vv_CArticle)) return GetFactory<vv_CArticleObject>(id, object);
  return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() { return pactora::component::LetGo() ? S_OK : S_FALSE; }

STDAPI DllRegisterServer() { return pactora::component::Register(); }

STDAPI DllUnregisterServer() { return pactora::component::Unregister(); }
