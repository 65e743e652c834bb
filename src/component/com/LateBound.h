// An object of another program that is called by the names of its members.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <array>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "component/com/Ref.h"
#include "component/com/values.h"
#include "host/Value.h"

namespace pactora::component {

// The numbers of an object's members by name, asked for once.
using MemberIds = std::map<std::wstring, DISPID, std::less<>>;

// Keeps the numbers of members from object to object. Objects share them when they have
// the same role, such as "a field", and are of one class of the server; those that can
// get members while they live share with none.
class MemberIdCache {
 public:
  std::shared_ptr<MemberIds> For(IDispatch& object, const char* role);

 private:
  using Key = std::pair<std::string_view, const void*>;  // the role, the class

  std::map<Key, std::shared_ptr<MemberIds>> shared_;  // null: not shared
};

// Failures are raised as Errors.
class LateBound {
 public:
  // Raises error 91 for a null object.
  LateBound(Ref<IDispatch> object, std::shared_ptr<MemberIds> ids);
  // An object whose numbers are no other's.
  explicit LateBound(Ref<IDispatch> object)
      : LateBound(std::move(object), std::make_shared<MemberIds>()) {}

  // The value of a property or of a method; arguments are host values or Variants.
  template <typename... Args>
  Variant Get(std::wstring_view name, const Args&... args) const {
    Variant result;
    Invoke(Id(name), DISPATCH_METHOD | DISPATCH_PROPERTYGET, Arguments(args...), &result);
    return result;
  }
  // The same of a member that has a number for everybody.
  Variant Get(DISPID id) const {
    Variant result;
    Invoke(id, DISPATCH_METHOD | DISPATCH_PROPERTYGET, {}, &result);
    return result;
  }
  // Calls a method for what it does.
  template <typename... Args>
  void Call(std::wstring_view name, const Args&... args) const {
    Invoke(Id(name), DISPATCH_METHOD, Arguments(args...), nullptr);
  }
  // An object is put by reference where the server knows that.
  void Put(std::wstring_view name, const host::Value& value) const;

  IDispatch* Object() const { return object_.Get(); }

 private:
  template <typename... Args>
  static std::array<Variant, sizeof...(Args)> Arguments(const Args&... args) {
    return {Variant(args)...};
  }

  DISPID Id(std::wstring_view name) const;
  // The arguments in the order in which they are written.
  void Invoke(DISPID id, WORD flags, std::span<const Variant> args, Variant* result) const;

  Ref<IDispatch> object_;
  std::shared_ptr<MemberIds> ids_;
};

}  // namespace pactora::component
