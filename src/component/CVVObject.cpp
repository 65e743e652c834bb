#include "component/CVVObject.h"

#include <memory>
#include <utility>

#include "component/callers_objects.h"
#include "component/com/text.h"
#include "component/host/AutomationApp.h"

namespace pactora::component {
namespace {

Ref<IDispatch> ObjectAt(IDispatch** argument) {
  return Ref<IDispatch>(argument != nullptr ? *argument : nullptr);
}

std::shared_ptr<host::HostApp> ApplicationAt(IDispatch** argument) {
  auto object = ObjectAt(argument);
  return object ? std::make_shared<AutomationApp>(std::move(object)) : nullptr;
}

bool IsTrue(const VARIANT_BOOL* argument) {
  return argument != nullptr && *argument != VARIANT_FALSE;
}

// Ends with the caller's variables holding what the add-on left in its own, also when it
// raised an error.
class ResultsOfNew {
 public:
  ResultsOfNew(VARIANT_BOOL* saved, LONG* count, VARIANT_BOOL* show)
      : ok(IsTrue(saved)),
        vs_count(count != nullptr ? *count : 0),
        show_def(IsTrue(show)),
        saved_(saved),
        count_(count),
        show_(show) {}
  ResultsOfNew(const ResultsOfNew&) = delete;
  ResultsOfNew& operator=(const ResultsOfNew&) = delete;
  ~ResultsOfNew() {
    if (saved_ != nullptr) *saved_ = ok ? VARIANT_TRUE : VARIANT_FALSE;
    if (count_ != nullptr) *count_ = vs_count;
    if (show_ != nullptr) *show_ = show_def ? VARIANT_TRUE : VARIANT_FALSE;
  }

  bool ok;
  std::int32_t vs_count;
  bool show_def;

 private:
  VARIANT_BOOL* saved_;
  LONG* count_;
  VARIANT_BOOL* show_;
};

// The numbers of the operations, in the order of their slots.
enum Member : DISPID {
  kEditContractDefinition = 1,
  kNewContract,
  kNewContract2,
  kDLLVersion,
  kNewContractDebitor,
};

// Tells a caller which of its arguments does not fit.
HRESULT Unfit(HRESULT code, const Arguments& args, UINT place, UINT* argument) {
  if (FAILED(code) && argument != nullptr) *argument = args.IndexOf(place);
  return code;
}

}  // namespace

HRESULT CVVObject::EditContractDefinition(IDispatch** oApp, VARIANT_BOOL* pbNew) {
  return Guarded([&] { entry_.EditContractDefinition(ApplicationAt(oApp), IsTrue(pbNew)); });
}

HRESULT CVVObject::NewContract(IDispatch** oApp, VARIANT_BOOL* pbOK, LONG* plVsCount,
                               VARIANT_BOOL* pbShowDef) {
  return Guarded([&] {
    ResultsOfNew results(pbOK, plVsCount, pbShowDef);
    entry_.NewContract(ApplicationAt(oApp), results.ok, results.vs_count, results.show_def);
  });
}

HRESULT CVVObject::NewContract2(IDispatch** oApp, VARIANT_BOOL* pbOK, LONG* plVsCount,
                                VARIANT_BOOL* pbShowDef) {
  return Guarded([&] {
    ResultsOfNew results(pbOK, plVsCount, pbShowDef);
    entry_.NewContract2(ApplicationAt(oApp), results.ok, results.vs_count, results.show_def);
  });
}

HRESULT CVVObject::DLLVersion(BSTR* text) {
  if (text == nullptr) return E_POINTER;
  return Guarded([&] { *text = MakeText(entry_.DLLVersion()); });
}

HRESULT CVVObject::NewContractDebitor(IDispatch** oApp, IDispatch** oContract, IDispatch** colArt) {
  return Guarded([&] {
    entry_.NewContractDebitor(ApplicationAt(oApp), CallersContract(ObjectAt(oContract)),
                              CallersArticles(ObjectAt(colArt)));
  });
}

HRESULT CVVObject::InvokeEdit(const Arguments& args, HRESULT& code, UINT* argument) {
  VARIANT_BOOL is_new = VARIANT_FALSE;
  HRESULT fit = args.Require(2);
  if (SUCCEEDED(fit)) fit = Unfit(args.Read(1, is_new), args, 1, argument);
  if (FAILED(fit)) return fit;
  const auto app = args.Object(0);
  IDispatch* app_object = app.Get();
  code = EditContractDefinition(&app_object, &is_new);
  return S_OK;
}

HRESULT CVVObject::InvokeNew(const Arguments& args, Operation operation, HRESULT& code,
                             UINT* argument) {
  VARIANT_BOOL saved = VARIANT_FALSE;
  LONG count = 0;
  VARIANT_BOOL show = VARIANT_FALSE;
  HRESULT fit = args.Require(4);
  if (SUCCEEDED(fit)) fit = Unfit(args.Read(1, saved), args, 1, argument);
  if (SUCCEEDED(fit)) fit = Unfit(args.Read(2, count), args, 2, argument);
  if (SUCCEEDED(fit)) fit = Unfit(args.Read(3, show), args, 3, argument);
  if (FAILED(fit)) return fit;
  const auto app = args.Object(0);
  IDispatch* app_object = app.Get();
  code = (this->*operation)(&app_object, &saved, &count, &show);
  fit = Unfit(args.Write(1, saved), args, 1, argument);
  if (SUCCEEDED(fit)) fit = Unfit(args.Write(2, count), args, 2, argument);
  if (SUCCEEDED(fit)) fit = Unfit(args.Write(3, show), args, 3, argument);
  return fit;
}

HRESULT CVVObject::InvokeDebitor(const Arguments& args, HRESULT& code) {
  const HRESULT fit = args.Require(3);
  if (FAILED(fit)) return fit;
  const auto app = args.Object(0);
  const auto contract = args.Object(1);
  const auto articles = args.Object(2);
  IDispatch* app_object = app.Get();
  IDispatch* contract_object = contract.Get();
  IDispatch* articles_object = articles.Get();
  code = NewContractDebitor(&app_object, &contract_object, &articles_object);
  return S_OK;
}

HRESULT CVVObject::Invoke(DISPID id, REFIID, LCID locale, WORD flags, DISPPARAMS* params,
                          VARIANT* result, EXCEPINFO* exception, UINT* argument) {
  if (params == nullptr) return E_POINTER;
  if ((flags & (DISPATCH_METHOD | DISPATCH_PROPERTYGET)) == 0) return DISP_E_MEMBERNOTFOUND;
  if (result != nullptr) VariantInit(result);
  const Arguments args(*params, locale);
  HRESULT fit = S_OK;
  HRESULT code = S_OK;
  const HRESULT guarded = Guarded([&] {
    switch (id) {
      case kEditContractDefinition:
        fit = InvokeEdit(args, code, argument);
        break;
      case kNewContract:
        fit = InvokeNew(args, &ICVV::NewContract, code, argument);
        break;
      case kNewContract2:
        fit = InvokeNew(args, &ICVV::NewContract2, code, argument);
        break;
      case kDLLVersion: {
        fit = args.Require(0);
        BSTR text = nullptr;
        if (SUCCEEDED(fit)) code = DLLVersion(&text);
        if (result != nullptr && text != nullptr) {
          result->vt = VT_BSTR;
          result->bstrVal = text;
        } else {
          SysFreeString(text);
        }
        break;
      }
      case kNewContractDebitor:
        fit = InvokeDebitor(args, code);
        break;
      default:
        fit = DISP_E_MEMBERNOTFOUND;
        break;
    }
  });
  if (FAILED(fit)) return fit;
  return TellInvoker(FAILED(guarded) ? guarded : code, exception);
}

}  // namespace pactora::component
