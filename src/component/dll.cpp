// The component's four exports.
#include <pactora2.h>

#include "component/AddOn.h"
#include "component/CVVObject.h"
#include "component/Records.h"
#include "component/com/ClassFactory.h"
#include "component/registration.h"

namespace pactora::component {
namespace {

template <typename Object>
HRESULT GetFactory(REFIID id, void** object) {
  static ClassFactory factory([]() -> IUnknown* { return static_cast<IDispatch*>(new Object); });
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
