#include "automation_host/Served.h"

#include "component/com/failures.h"
#include "component/com/text.h"
#include "component/com/values.h"
#include "platform/Text.h"

namespace pactora::automation_host {

Traffic traffic;

namespace {

using component::Ref;
using component::Variant;

// Asked of an object to find out whether it is one of ours.
constexpr IID kServed = {
    0x9d0b6d6e, 0x0a3c, 0x4f0e, {0x8e, 0x5b, 0x41, 0x7c, 0x2a, 0x63, 0x90, 0x1d}};

Arguments ArgumentsOf(const DISPPARAMS& params) {
  Arguments args;
  for (UINT i = params.cArgs; i-- > 0;) args.push_back(component::ToValue(params.rgvarg[i]));
  return args;
}

}  // namespace

Served::Served(std::vector<Member> members, host::ObjectRef behind)
    : members_(std::move(members)), behind_(std::move(behind)) {
  ++traffic.objects;
}

Served::~Served() { --traffic.objects; }

HRESULT Served::QueryInterface(REFIID id, void** object) {
  if (id != IID_IUnknown && id != IID_IDispatch && id != kServed) {
    *object = nullptr;
    return E_NOINTERFACE;
  }
  *object = this;
  AddRef();
  return S_OK;
}

ULONG Served::AddRef() { return static_cast<ULONG>(++count_); }

ULONG Served::Release() {
  const LONG left = --count_;
  if (left == 0) delete this;
  return static_cast<ULONG>(left);
}

HRESULT Served::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

HRESULT Served::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  ++traffic.names;
  for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
  const std::string name = component::Narrow(std::wstring_view(names[0]));
  for (std::size_t i = 0; i < members_.size(); ++i) {
    if (platform::EqualsIgnoringCase(component::Narrow(members_[i].name), name)) {
      ids[0] = static_cast<DISPID>(i + 1);
      return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
    }
  }
  return DISP_E_UNKNOWNNAME;
}

HRESULT Served::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                       EXCEPINFO* exception, UINT*) {
  ++traffic.invokes;
  if (id < 1 || static_cast<std::size_t>(id) > members_.size()) return DISP_E_MEMBERNOTFOUND;
  const Member& member = members_[static_cast<std::size_t>(id - 1)];
  const bool puts = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  if (puts ? !member.put || params->cArgs != 1 : !member.get) return DISP_E_MEMBERNOTFOUND;
  const HRESULT code = component::Guarded([&] {
    const Arguments args = ArgumentsOf(*params);
    if (puts) {
      member.put(args[0]);
    } else {
      Variant value(member.get(args));
      if (result != nullptr) *result = value.Detach();
    }
  });
  return component::TellInvoker(code, exception);
}

host::Value Serve(std::vector<Member> members, host::ObjectRef behind) {
  Ref<IDispatch> object;
  *object.Put() = new Served(std::move(members), std::move(behind));
  return std::make_shared<component::AutomationObject>(std::move(object));
}

host::ObjectRef Behind(const host::Value& value) {
  const host::ObjectRef object = host::ToObject(value);
  if (!object) return nullptr;
  const auto* automation = dynamic_cast<const component::AutomationObject*>(object.get());
  Served* served = nullptr;
  if (automation == nullptr ||
      FAILED(automation->Dispatch()->QueryInterface(kServed, reinterpret_cast<void**>(&served)))) {
    platform::Raise(platform::RuntimeError::TypeMismatch);
  }
  host::ObjectRef behind = served->behind_;
  served->Release();
  return behind;
}

}  // namespace pactora::automation_host
