#include "component/ComponentWorld.h"

#include <activscp.h>

#include <iterator>

#include "api/vv_CArticle.h"
#include "component/com/LateBound.h"

namespace pactora::component {
namespace {

// Everything here is one apartment.
class Apartment : public testing::Environment {
  void SetUp() override { ASSERT_TRUE(SUCCEEDED(OleInitialize(nullptr))); }
  void TearDown() override { OleUninitialize(); }
};
testing::Environment* const apartment = testing::AddGlobalTestEnvironment(new Apartment);

std::string TextOf(HWND window) {
  wchar_t text[1024] = L"";
  const int length = GetWindowTextW(window, text, static_cast<int>(std::size(text)));
  return Narrow(std::wstring_view(text, static_cast<std::size_t>(length)));
}

LRESULT CALLBACK AnswerBox(int code, WPARAM first, LPARAM second) {
  if (code == HCBT_ACTIVATE) {
    const auto window = reinterpret_cast<HWND>(first);
    constexpr int kText = 0xFFFF;
    if (const HWND text = GetDlgItem(window, kText)) {
      MessageBoxes::seen.insert(MessageBoxes::seen.end(), {TextOf(window), TextOf(text)});
      PostMessageW(window, WM_COMMAND, IDOK, 0);
    }
  }
  return CallNextHookEx(nullptr, code, first, second);
}

// What a script sees by name, and where its errors arrive.
class ScriptSite final : public IActiveScriptSite {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    *object = nullptr;
    if (id != IID_IUnknown && id != __uuidof(IActiveScriptSite)) return E_NOINTERFACE;
    *object = this;
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  HRESULT STDMETHODCALLTYPE GetLCID(LCID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetItemInfo(LPCOLESTR name, DWORD mask, IUnknown** item,
                                        ITypeInfo** type) override {
    if (type != nullptr) *type = nullptr;
    if ((mask & SCRIPTINFO_IUNKNOWN) == 0) return S_OK;
    *item = std::wstring_view(name) == L"Host" ? host.Get() : test.Get();
    (*item)->AddRef();
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE OnStateChange(SCRIPTSTATE) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnScriptError(IActiveScriptError* error) override {
    EXCEPINFO info{};
    error->GetExceptionInfo(&info);
    failure = {info.scode, Narrow(info.bstrSource), Narrow(info.bstrDescription)};
    SysFreeString(info.bstrSource);
    SysFreeString(info.bstrDescription);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE OnEnterScript() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnLeaveScript() override { return S_OK; }

  Ref<IDispatch> host;
  Ref<IDispatch> test;
  Failure failure;
};

}  // namespace

std::vector<std::string> MessageBoxes::seen;

MessageBoxes::MessageBoxes()
    : hook_(SetWindowsHookExW(WH_CBT, AnswerBox, nullptr, GetCurrentThreadId())) {
  seen.clear();
}

MessageBoxes::~MessageBoxes() { UnhookWindowsHookEx(hook_); }

Failure FailureOf(HRESULT code) {
  Failure failure{code, {}, {}};
  Ref<IErrorInfo> info;
  if (SUCCEEDED(code) || GetErrorInfo(0, info.Put()) != S_OK) return failure;
  Variant source;
  Variant description;
  info->GetSource(&source.Put()->bstrVal);
  info->GetDescription(&description.Put()->bstrVal);
  source.Put()->vt = description.Put()->vt = VT_BSTR;
  return {code, Narrow(source.Get().bstrVal), Narrow(description.Get().bstrVal)};
}

host::Value ServeCollection(std::vector<host::Value> elements) {
  return automation_host::Serve(
      {{L"Count", [size = static_cast<std::int32_t>(elements.size())](auto&) { return size; }, {}},
       {L"Item",
        [elements](const auto& args) {
          return elements.at(static_cast<std::size_t>(host::ToLong(args.at(0)) - 1));
        },
        {}}});
}

host::Value ComponentTest::Articles() {
  std::vector<host::Value> articles;
  for (std::int32_t i = 1; i <= world.articles->Count(); ++i) {
    articles.push_back(Made(__uuidof(vv_CArticle),
                            dynamic_cast<const api::vv_CArticle&>(*world.articles->Item(i))));
  }
  return ServeCollection(std::move(articles));
}

host::Value ComponentTest::Made(REFCLSID id, const api::Record& record) {
  const LateBound object(component.Create<IDispatch>(id));
  for (const auto& property : record.Properties())
    object.Put(Wide(property.name), record.Get(property.name));
  return std::make_shared<AutomationObject>(Ref<IDispatch>(object.Object()));
}

Failure ComponentTest::Debitor(const host::Value& contract, const host::Value& articles) {
  const auto entry = component.Create<ICVV>(__uuidof(CVV));
  IDispatch* host_app = App();
  IDispatch* record = DispatchOf(contract);
  IDispatch* collection = DispatchOf(articles);
  return FailureOf(entry->NewContractDebitor(&host_app, &record, &collection));
}

Failure ComponentTest::Run(const std::string& script) {
  CLSID engine_id{};
  Ref<IActiveScript> engine;
  if (FAILED(CLSIDFromProgID(L"VBScript", &engine_id)) ||
      FAILED(CoCreateInstance(engine_id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IActiveScript),
                              engine.PutVoid()))) {
    return {E_FAIL, "test", "no script engine"};
  }
  ScriptSite site;
  site.host = Ref<IDispatch>(App());
  const host::Value test = automation_host::Serve({
      {L"Note",
       [this](const auto& args) {
         notes.push_back(host::ToText(args.at(0)));
         return host::Value();
       },
       {}},
      {L"Make",  // an object of the component that need not be registered
       [this](const auto& args) {
         const std::string name = host::ToText(args.at(0));
         auto object =
             component.Create<IDispatch>(name == "CVV"           ? __uuidof(CVV)
                                         : name == "vv_CArticle" ? __uuidof(vv_CArticle)
                                                                 : __uuidof(vv_CContractD));
         return host::Value(std::make_shared<AutomationObject>(std::move(object)));
       },
       {}},
  });
  site.test = Ref<IDispatch>(DispatchOf(test));
  const auto parser = Ref<IActiveScriptParse>::Query(engine.Get());
  engine->SetScriptSite(&site);
  parser->InitNew();
  engine->AddNamedItem(L"Host", SCRIPTITEM_ISVISIBLE);
  engine->AddNamedItem(L"Test", SCRIPTITEM_ISVISIBLE);
  EXCEPINFO exception{};
  parser->ParseScriptText(Wide(script).c_str(), nullptr, nullptr, nullptr, 0, 0, 0, nullptr,
                          &exception);
  engine->SetScriptState(SCRIPTSTATE_CONNECTED);
  engine->Close();
  return site.failure;
}

}  // namespace pactora::component
