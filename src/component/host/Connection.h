// What the objects of one host application that is reached by automation share.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "component/com/LateBound.h"
#include "component/com/values.h"

namespace pactora::component {

class Connection {
 public:
  // An object of the host in its role, such as "Field". Raises error 91 for what is no
  // object.
  LateBound Bind(const Variant& object, const char* role) {
    return Bind(ObjectIn(object.Get()), role);
  }
  LateBound Bind(Ref<IDispatch> object, const char* role) {
    if (!object) platform::Raise(platform::RuntimeError::ObjectNotSet);
    auto ids = ids_.For(*object.Get(), role);
    return {std::move(object), std::move(ids)};
  }

  // Grows with each operation that can change a table's current row, of whatever table.
  unsigned Moves() const { return moves_; }
  void Moved() { ++moves_; }

 private:
  MemberIdCache ids_;
  unsigned moves_ = 0;
};

using ConnectionRef = std::shared_ptr<Connection>;

// An object that another one has as a property of its name, fetched at its first use.
class Child {
 public:
  // The name is the role as well. The owner must outlive the child.
  Child(Connection& connection, const LateBound& owner, const char* name)
      : connection_(connection), owner_(owner), name_(name) {}

  const LateBound& operator*() {
    if (!object_) object_.emplace(Fetch());
    return *object_;
  }
  const LateBound* operator->() { return &**this; }
  // Fetches it anew at the next use.
  void Forget() { object_.reset(); }

 private:
  LateBound Fetch() const {
    const std::string_view name(name_);
    return connection_.Bind(owner_.Get(std::wstring(name.begin(), name.end())), name_);
  }

  Connection& connection_;
  const LateBound& owner_;
  const char* name_;
  std::optional<LateBound> object_;
};

}  // namespace pactora::component
