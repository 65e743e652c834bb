#include "component/com/LateBound.h"

#include <dispex.h>

#include <algorithm>
#include <vector>

#include "component/com/failures.h"
#include "component/com/text.h"

namespace pactora::component {
namespace {

// Objects of one class of a server share the table of its functions.
const void* ClassOf(IDispatch& object) { return *reinterpret_cast<const void* const*>(&object); }

HRESULT FindId(IDispatch& object, const std::wstring& name, DISPID& id) {
  auto* text = const_cast<LPOLESTR>(name.c_str());
  const HRESULT code = object.GetIDsOfNames(IID_NULL, &text, 1, LOCALE_USER_DEFAULT, &id);
  if (code != E_NOTIMPL) return code;
  // Some engines answer for their scripts' objects here alone.
  const auto extended = Ref<IDispatchEx>::Query(&object);
  if (!extended) return code;
  BSTR copy = MakeText(name);
  const HRESULT found = extended->GetDispID(copy, fdexNameCaseInsensitive, &id);
  SysFreeString(copy);
  return found;
}

HRESULT InvokeMember(IDispatch& object, DISPID id, WORD flags, DISPPARAMS& params, Variant* result,
                     EXCEPINFO& exception) {
  UINT argument = 0;
  SetErrorInfo(0, nullptr);
  return object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &params,
                       result != nullptr ? result->Put() : nullptr, &exception, &argument);
}

void CheckInvoke(HRESULT code, EXCEPINFO& exception) {
  if (code == DISP_E_EXCEPTION) RaiseException(exception);
  Check(code);
}

}  // namespace

std::shared_ptr<MemberIds> MemberIdCache::For(IDispatch& object, const char* role) {
  const auto [entry, is_new] = shared_.try_emplace({role, ClassOf(object)});
  if (is_new && !Ref<IDispatchEx>::Query(&object)) entry->second = std::make_shared<MemberIds>();
  return entry->second ? entry->second : std::make_shared<MemberIds>();
}

LateBound::LateBound(Ref<IDispatch> object, std::shared_ptr<MemberIds> ids)
    : object_(std::move(object)), ids_(std::move(ids)) {
  if (!object_) platform::Raise(platform::RuntimeError::ObjectNotSet);
}

DISPID LateBound::Id(std::wstring_view name) const {
  if (const auto known = ids_->find(name); known != ids_->end()) return known->second;
  std::wstring text(name);
  DISPID id = DISPID_UNKNOWN;
  Check(FindId(*object_.Get(), text, id));
  ids_->emplace(std::move(text), id);
  return id;
}

void LateBound::Invoke(DISPID id, WORD flags, std::span<const Variant> args,
                       Variant* result) const {
  // Copies of the variants without their ownership, the last argument first.
  std::vector<VARIANT> reversed;
  reversed.reserve(args.size());
  for (auto arg = args.rbegin(); arg != args.rend(); ++arg) reversed.push_back(arg->Get());
  DISPPARAMS params{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};
  EXCEPINFO exception{};
  CheckInvoke(InvokeMember(*object_.Get(), id, flags, params, result, exception), exception);
}

void LateBound::Put(std::wstring_view name, const host::Value& value) const {
  const DISPID id = Id(name);
  const Variant argument(value);
  VARIANT copy = argument.Get();
  DISPID put = DISPID_PROPERTYPUT;
  DISPPARAMS params{&copy, &put, 1, 1};
  EXCEPINFO exception{};
  HRESULT code = DISP_E_MEMBERNOTFOUND;
  if (value.GetKind() == host::Kind::Object) {
    code = InvokeMember(*object_.Get(), id, DISPATCH_PROPERTYPUTREF, params, nullptr, exception);
  }
  if (code == DISP_E_MEMBERNOTFOUND) {
    code = InvokeMember(*object_.Get(), id, DISPATCH_PROPERTYPUT, params, nullptr, exception);
  }
  CheckInvoke(code, exception);
}

}  // namespace pactora::component
