// The add-on's entry class as an object of automation.
#pragma once

#include <pactora2.h>

#include "component/Arguments.h"
#include "component/DualObject.h"
#include "shell/entry/CVV.h"

namespace pactora::component {

class CVVObject final : public DualObject<ICVV> {
 public:
  HRESULT STDMETHODCALLTYPE EditContractDefinition(IDispatch** oApp, VARIANT_BOOL* pbNew) override;
  HRESULT STDMETHODCALLTYPE NewContract(IDispatch** oApp, VARIANT_BOOL* pbOK, LONG* plVsCount,
                                        VARIANT_BOOL* pbShowDef) override;
  HRESULT STDMETHODCALLTYPE NewContract2(IDispatch** oApp, VARIANT_BOOL* pbOK, LONG* plVsCount,
                                         VARIANT_BOOL* pbShowDef) override;
  HRESULT STDMETHODCALLTYPE DLLVersion(BSTR* text) override;
  HRESULT STDMETHODCALLTYPE NewContractDebitor(IDispatch** oApp, IDispatch** oContract,
                                               IDispatch** colArt) override;

  // By hand: what the system does by a type library takes no script's arguments for
  // those that are handed back.
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID locale, WORD flags, DISPPARAMS* params,
                                   VARIANT* result, EXCEPINFO* exception, UINT* argument) override;

 private:
  using Operation = HRESULT (STDMETHODCALLTYPE ICVV::*)(IDispatch**, VARIANT_BOOL*, LONG*,
                                                        VARIANT_BOOL*);

  // Each answers the code of a call that could not be made, or, in code, that of the
  // operation.
  HRESULT InvokeEdit(const Arguments& args, HRESULT& code, UINT* argument);
  HRESULT InvokeNew(const Arguments& args, Operation operation, HRESULT& code, UINT* argument);
  HRESULT InvokeDebitor(const Arguments& args, HRESULT& code);

  shell::CVV entry_{AddOn()};
};

}  // namespace pactora::component
