// The factory of a class of a component.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include "component/com/failures.h"
#include "component/com/lifetime.h"

namespace pactora::component {

// A factory lives as long as the component is loaded; who holds it holds the component.
class ClassFactory final : public IClassFactory {
 public:
  // make gives a new object, counted for the caller; it may raise.
  explicit ClassFactory(IUnknown* (*make)()) : make_(make) {}

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
      IUnknown* created = make_();
      found = created->QueryInterface(id, object);
      created->Release();
    });
    return FAILED(made) ? made : found;
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL locked) override {
    CountLock(locked != FALSE);
    return S_OK;
  }

 private:
  IUnknown* (*const make_)();
};

}  // namespace pactora::component
