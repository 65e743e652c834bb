// A counted reference to an object of COM.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <utility>

namespace pactora::component {

template <typename T>
class Ref {
 public:
  Ref() = default;
  // Shares the object, which may be null.
  explicit Ref(T* object) : object_(object) {
    if (object_ != nullptr) object_->AddRef();
  }
  Ref(const Ref& other) : Ref(other.object_) {}
  Ref(Ref&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ~Ref() {
    if (object_ != nullptr) object_->Release();
  }
  Ref& operator=(Ref other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }

  // The object as one of another interface; null when it has none or is null itself.
  template <typename From>
  static Ref Query(From* object) {
    Ref result;
    if (object != nullptr && FAILED(object->QueryInterface(__uuidof(T), result.PutVoid())))
      result.object_ = nullptr;
    return result;
  }

  T* Get() const { return object_; }
  T* operator->() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

  // Where a call puts the object that it gives. Requires: the reference is null.
  T** Put() { return &object_; }
  void** PutVoid() { return reinterpret_cast<void**>(&object_); }
  // Hands the count on to the caller.
  T* Detach() { return std::exchange(object_, nullptr); }

 private:
  T* object_ = nullptr;
};

}  // namespace pactora::component
