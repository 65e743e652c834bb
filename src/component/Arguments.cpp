#include "component/Arguments.h"

namespace pactora::component {
namespace {

// The variant that a reference to variants ends at.
VARIANT& Innermost(VARIANT& variant) {
  VARIANT* inner = &variant;
  while (inner->vt == (VT_VARIANT | VT_BYREF) && inner->pvarVal != nullptr) inner = inner->pvarVal;
  return *inner;
}

// Puts a value of the type into a variable of that type.
HRESULT Assign(VARIANT& reference, const VARIANT& value) {
  switch (value.vt) {
    case VT_BOOL:
      *reference.pboolVal = value.boolVal;
      return S_OK;
    case VT_UI1:
      *reference.pbVal = value.bVal;
      return S_OK;
    case VT_I2:
      *reference.piVal = value.iVal;
      return S_OK;
    case VT_I4:
    case VT_INT:
      *reference.plVal = value.lVal;
      return S_OK;
    case VT_R4:
      *reference.pfltVal = value.fltVal;
      return S_OK;
    case VT_R8:
      *reference.pdblVal = value.dblVal;
      return S_OK;
    default:
      return DISP_E_TYPEMISMATCH;
  }
}

}  // namespace

UINT Arguments::IndexOf(UINT place) const {
  for (UINT i = 0; i < params_.cNamedArgs; ++i) {
    if (params_.rgdispidNamedArgs[i] == static_cast<DISPID>(place)) return i;
  }
  return params_.cArgs - 1 - place;  // those by position stand at the end, the last first
}

VARIANT* Arguments::Find(UINT place) const {
  const UINT index = IndexOf(place);
  const bool named =
      index < params_.cNamedArgs && params_.rgdispidNamedArgs[index] == static_cast<DISPID>(place);
  if (index >= params_.cArgs || (!named && index < params_.cNamedArgs)) return nullptr;
  return &params_.rgvarg[index];
}

HRESULT Arguments::Require(UINT count) const {
  if (params_.cArgs != count) return DISP_E_BADPARAMCOUNT;
  for (UINT place = 0; place < count; ++place) {
    const VARIANT* argument = Find(place);
    if (argument == nullptr) return DISP_E_PARAMNOTFOUND;
    if (argument->vt == VT_ERROR && argument->scode == DISP_E_PARAMNOTFOUND) {
      return DISP_E_PARAMNOTOPTIONAL;
    }
  }
  return S_OK;
}

Ref<IDispatch> Arguments::Object(UINT place) const {
  const VARIANT& argument = Innermost(*Find(place));
  if ((argument.vt & VT_ARRAY) != 0) return {};
  return ObjectIn(argument);
}

HRESULT Arguments::ReadAs(UINT place, VARTYPE type, Variant& value) const {
  Variant content;
  const HRESULT code = VariantCopyInd(content.Put(), &Innermost(*Find(place)));
  return FAILED(code) ? code : Convert(content.Get(), type, locale_, value);
}

HRESULT Arguments::Read(UINT place, VARIANT_BOOL& value) const {
  Variant read;
  const HRESULT code = ReadAs(place, VT_BOOL, read);
  if (SUCCEEDED(code)) value = read.Get().boolVal;
  return code;
}

HRESULT Arguments::Read(UINT place, LONG& value) const {
  Variant read;
  const HRESULT code = ReadAs(place, VT_I4, read);
  if (SUCCEEDED(code)) value = read.Get().lVal;
  return code;
}

HRESULT Arguments::WriteFrom(UINT place, VARIANT value) const {
  VARIANT& argument = *Find(place);
  if ((argument.vt & VT_BYREF) == 0) return S_OK;
  VARIANT& inner = Innermost(argument);
  if ((inner.vt & VT_BYREF) == 0) {
    const HRESULT cleared = VariantClear(&inner);
    if (SUCCEEDED(cleared)) inner = value;
    return cleared;
  }
  Variant converted;
  const auto type = static_cast<VARTYPE>(inner.vt & ~VT_BYREF);
  const HRESULT code = Convert(value, type, locale_, converted);
  return FAILED(code) ? code : Assign(inner, converted.Get());
}

HRESULT Arguments::Write(UINT place, VARIANT_BOOL value) const {
  VARIANT variant{};
  variant.vt = VT_BOOL;
  variant.boolVal = value;
  return WriteFrom(place, variant);
}

HRESULT Arguments::Write(UINT place, LONG value) const {
  VARIANT variant{};
  variant.vt = VT_I4;
  variant.lVal = value;
  return WriteFrom(place, variant);
}

}  // namespace pactora::component
