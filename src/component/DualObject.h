// What every object of the component is: counted, called by name or by slot, with
// errors that are told either way.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include "component/TypeLibrary.h"
#include "component/com/failures.h"
#include "component/com/lifetime.h"

namespace pactora::component {

// Interface is the one dual interface of a class. It starts with a count of 1.
template <typename Interface>
class DualObject : public Interface, public ISupportErrorInfo {
 public:
  DualObject() { CountObject(); }
  DualObject(const DualObject&) = delete;
  DualObject& operator=(const DualObject&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    if (object == nullptr) return E_POINTER;
    if (id == IID_IUnknown || id == IID_IDispatch || id == __uuidof(Interface)) {
      *object = static_cast<Interface*>(this);
    } else if (id == IID_ISupportErrorInfo) {
      *object = static_cast<ISupportErrorInfo*>(this);
    } else {
      *object = nullptr;
      return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override {
    return static_cast<ULONG>(InterlockedIncrement(&count_));
  }
  ULONG STDMETHODCALLTYPE Release() override {
    const LONG left = InterlockedDecrement(&count_);
    if (left == 0) delete this;
    return static_cast<ULONG>(left);
  }

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) override {
    return id == __uuidof(Interface) ? S_OK : S_FALSE;
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (count == nullptr) return E_POINTER;
    *count = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID, ITypeInfo** type) override {
    if (type == nullptr) return E_POINTER;
    *type = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    return Guarded([&] { *type = TypeOf(__uuidof(Interface)).Detach(); });
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override {
    HRESULT found = S_OK;
    const HRESULT asked =
        Guarded([&] { found = TypeOf(__uuidof(Interface))->GetIDsOfNames(names, count, ids); });
    return FAILED(asked) ? asked : found;
  }
  // By the type library.
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params,
                                   VARIANT* result, EXCEPINFO* exception, UINT* argument) override {
    HRESULT invoked = S_OK;
    const HRESULT asked = Guarded([&] {
      invoked = TypeOf(__uuidof(Interface))
                    ->Invoke(static_cast<Interface*>(this), id, flags, params, result, exception,
                             argument);
    });
    return FAILED(asked) ? asked : invoked;
  }

 protected:
  virtual ~DualObject() { DiscountObject(); }

 private:
  LONG count_ = 1;
};

}  // namespace pactora::component
