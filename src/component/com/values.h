// Values of the add-on as variants of automation, and back.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <utility>

#include "component/com/Ref.h"
#include "host/Value.h"

namespace pactora::component {

// A variant that clears itself.
class Variant {
 public:
  Variant() { VariantInit(&variant_); }
  // Integer to VT_I2, Long to VT_I4, Double to VT_R8, Date, text and Boolean, an object
  // to VT_DISPATCH, an array to one of variants from 0. Raises error 13 for an object
  // that is none of automation.
  explicit Variant(const host::Value& value);
  // An argument that is left out.
  static Variant Missing();
  static Variant OfObject(IDispatch* object);
  // An argument that refers to what others own.
  static Variant Reference(VARIANT& to);

  Variant(const Variant& other);
  Variant(Variant&& other) noexcept : Variant() { std::swap(variant_, other.variant_); }
  ~Variant() { VariantClear(&variant_); }
  Variant& operator=(Variant other) noexcept {
    std::swap(variant_, other.variant_);
    return *this;
  }

  const VARIANT& Get() const { return variant_; }
  // Where a call puts its result. Requires: the variant is empty.
  VARIANT* Put() { return &variant_; }
  // Hands the content on to the caller.
  VARIANT Detach() { return std::exchange(variant_, Variant().variant_); }

 private:
  VARIANT variant_;
};

// An object that is reached by automation. A host's document is one, too.
class AutomationObject final : public host::Document {
 public:
  explicit AutomationObject(Ref<IDispatch> dispatch) : dispatch_(std::move(dispatch)) {}
  IDispatch* Dispatch() const { return dispatch_.Get(); }

 private:
  Ref<IDispatch> dispatch_;
};

// A variant that is handed back as it came.
class OpaqueValue final : public host::Object {
 public:
  explicit OpaqueValue(Variant variant) : variant_(std::move(variant)) {}
  const Variant& Content() const { return variant_; }

 private:
  Variant variant_;
};

// Null and a left-out argument are empty; numbers of kinds that the add-on does not have
// become Doubles; what is behind a reference counts. Raises error 13 for a kind that no
// value has.
host::Value ToValue(const VARIANT& variant);

// The content as one of that type by the rules of the locale; a failure leaves to empty.
HRESULT Convert(const VARIANT& from, VARTYPE type, LCID locale, Variant& to);

// What a reference refers to, or the variant itself. Raises error 13 for an array's
// elements by reference and the like.
Variant Dereferenced(const VARIANT& variant);

// The object in it by automation, behind a reference too; null for anything else.
Ref<IDispatch> ObjectIn(const VARIANT& variant);

}  // namespace pactora::component
