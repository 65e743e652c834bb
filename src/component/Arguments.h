// The arguments of a late-bound call, in every form in which callers hand them in.
//
// A script hands in an object as such and everything else as a variant by reference; a
// typed caller hands in references to its own variables; either may hand in plain values,
// into which nothing comes back.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <cstdint>

#include "component/com/Ref.h"
#include "component/com/values.h"

namespace pactora::component {

class Arguments {
 public:
  Arguments(DISPPARAMS& params, LCID locale) : params_(params), locale_(locale) {}

  // DISP_E_BADPARAMCOUNT for another number of arguments, by position or by name, and
  // DISP_E_PARAMNOTOPTIONAL for one that is left out.
  HRESULT Require(UINT count) const;

  // The argument at that place, from 0. Requires: Require(count) said S_OK for a greater
  // count.
  Ref<IDispatch> Object(UINT place) const;  // null for what is no object
  // DISP_E_TYPEMISMATCH and the like for a value that has no such form.
  HRESULT Read(UINT place, VARIANT_BOOL& value) const;
  HRESULT Read(UINT place, LONG& value) const;
  // Puts the value where the argument refers to, in the type that is there.
  HRESULT Write(UINT place, VARIANT_BOOL value) const;
  HRESULT Write(UINT place, LONG value) const;

  // Its index in the parameters of the call, for the caller's error.
  UINT IndexOf(UINT place) const;

 private:
  VARIANT* Find(UINT place) const;  // null for none
  HRESULT ReadAs(UINT place, VARTYPE type, Variant& value) const;
  HRESULT WriteFrom(UINT place, VARIANT value) const;

  DISPPARAMS& params_;
  LCID locale_;
};

}  // namespace pactora::component
