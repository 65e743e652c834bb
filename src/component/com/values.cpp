#include "component/com/values.h"

#include <new>

#include "component/com/failures.h"
#include "component/com/text.h"

namespace pactora::component {
namespace {

using platform::RuntimeError;

SAFEARRAY* MakeArray(const host::ValueArray& elements) {
  SAFEARRAY* array = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(elements.size()));
  if (array == nullptr) throw std::bad_alloc();
  try {
    for (LONG i = 0; i < static_cast<LONG>(elements.size()); ++i) {
      Variant element(elements[static_cast<std::size_t>(i)]);
      VARIANT* variant = const_cast<VARIANT*>(&element.Get());
      Check(SafeArrayPutElement(array, &i, variant));
    }
  } catch (...) {
    SafeArrayDestroy(array);
    throw;
  }
  return array;
}

// From the lower to the upper bound of a list of variants or texts.
host::ValueArray ToArray(SAFEARRAY* array, VARTYPE type) {
  if (array == nullptr) return {};
  if (SafeArrayGetDim(array) != 1 || (type != VT_VARIANT && type != VT_BSTR)) {
    platform::Raise(RuntimeError::TypeMismatch);
  }
  LONG first = 0;
  LONG last = 0;
  Check(SafeArrayGetLBound(array, 1, &first));
  Check(SafeArrayGetUBound(array, 1, &last));
  host::ValueArray elements;
  for (LONG i = first; i <= last; ++i) {
    Variant element;
    if (type == VT_VARIANT) {
      Check(SafeArrayGetElement(array, &i, element.Put()));
    } else {
      Check(SafeArrayGetElement(array, &i, &element.Put()->bstrVal));
      element.Put()->vt = VT_BSTR;
    }
    elements.push_back(ToValue(element.Get()));
  }
  return elements;
}

IDispatch* DispatchOf(const host::ObjectRef& object) {
  if (!object) return nullptr;
  const auto* automation = dynamic_cast<const AutomationObject*>(object.get());
  if (automation == nullptr) platform::Raise(RuntimeError::TypeMismatch);
  return automation->Dispatch();
}

}  // namespace

Variant::Variant(const host::Value& value) : Variant() {
  using host::Kind;
  switch (value.GetKind()) {
    case Kind::Empty:
      return;
    case Kind::Integer:
      variant_.iVal = value.AsInteger();
      variant_.vt = VT_I2;
      return;
    case Kind::Long:
      variant_.lVal = value.AsLong();
      variant_.vt = VT_I4;
      return;
    case Kind::Double:
      variant_.dblVal = value.AsDouble();
      variant_.vt = VT_R8;
      return;
    case Kind::Date:
      variant_.date = value.AsDate().days;
      variant_.vt = VT_DATE;
      return;
    case Kind::Text:
      variant_.bstrVal = MakeText(value.AsText());
      variant_.vt = VT_BSTR;
      return;
    case Kind::Boolean:
      variant_.boolVal = value.AsBoolean() ? VARIANT_TRUE : VARIANT_FALSE;
      variant_.vt = VT_BOOL;
      return;
    case Kind::Object:
      if (const auto* opaque = dynamic_cast<const OpaqueValue*>(value.AsObject().get())) {
        *this = opaque->Content();
      } else {
        *this = OfObject(DispatchOf(value.AsObject()));
      }
      return;
    case Kind::Array:
      variant_.parray = MakeArray(value.AsArray());
      variant_.vt = VT_ARRAY | VT_VARIANT;
      return;
  }
}

Variant Variant::Missing() {
  Variant missing;
  missing.variant_.scode = DISP_E_PARAMNOTFOUND;
  missing.variant_.vt = VT_ERROR;
  return missing;
}

Variant Variant::OfObject(IDispatch* object) {
  Variant variant;
  if (object != nullptr) object->AddRef();
  variant.variant_.pdispVal = object;
  variant.variant_.vt = VT_DISPATCH;
  return variant;
}

Variant Variant::Reference(VARIANT& to) {
  Variant reference;
  reference.variant_.pvarVal = &to;
  reference.variant_.vt = VT_VARIANT | VT_BYREF;
  return reference;
}

Variant::Variant(const Variant& other) : Variant() {
  Check(VariantCopy(&variant_, const_cast<VARIANT*>(&other.variant_)));
}

HRESULT Convert(const VARIANT& from, VARTYPE type, LCID locale, Variant& to) {
  return VariantChangeTypeEx(to.Put(), const_cast<VARIANT*>(&from), locale, 0, type);
}

Variant Dereferenced(const VARIANT& variant) {
  Variant result;
  Check(VariantCopyInd(result.Put(), const_cast<VARIANT*>(&variant)));
  return result;
}

Ref<IDispatch> ObjectIn(const VARIANT& variant) {
  if ((variant.vt & VT_BYREF) != 0) return ObjectIn(Dereferenced(variant).Get());
  if (variant.vt == VT_DISPATCH) return Ref<IDispatch>(variant.pdispVal);
  if (variant.vt == VT_UNKNOWN) return Ref<IDispatch>::Query(variant.punkVal);
  return {};
}

host::Value ToValue(const VARIANT& variant) {
  if ((variant.vt & VT_BYREF) != 0) return ToValue(Dereferenced(variant).Get());
  if ((variant.vt & VT_ARRAY) != 0) {
    return ToArray(variant.parray, static_cast<VARTYPE>(variant.vt & VT_TYPEMASK));
  }
  switch (variant.vt) {
    case VT_EMPTY:
    case VT_NULL:
    case VT_ERROR:
      return {};
    case VT_I2:
      return std::int16_t{variant.iVal};
    case VT_I4:
    case VT_INT:
      return static_cast<std::int32_t>(variant.lVal);
    case VT_R8:
      return variant.dblVal;
    case VT_DATE:
      return host::Date{variant.date};
    case VT_BSTR:
      return Narrow(variant.bstrVal);
    case VT_BOOL:
      return variant.boolVal != VARIANT_FALSE;
    case VT_DISPATCH:
    case VT_UNKNOWN: {
      Ref<IDispatch> object = ObjectIn(variant);
      if (!object && variant.punkVal != nullptr) platform::Raise(RuntimeError::TypeMismatch);
      if (!object) return nullptr;
      return std::make_shared<AutomationObject>(std::move(object));
    }
    default: {
      Variant number;
      Check(Convert(variant, VT_R8, LOCALE_USER_DEFAULT, number));
      return number.Get().dblVal;
    }
  }
}

}  // namespace pactora::component
