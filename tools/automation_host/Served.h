// An object of the embedded host, offered to automation by the names of its members.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "component/com/Ref.h"
#include "host/Value.h"

namespace pactora::automation_host {

using Arguments = host::ValueArray;  // in the order in which they are written

struct Member {
  std::wstring name;
  std::function<host::Value(const Arguments&)> get;  // a method or a property
  std::function<void(const host::Value&)> put;       // null for what can't be written
};

// What callers have asked for since the start; a caller's economy shows here.
struct Traffic {
  unsigned invokes = 0;
  unsigned names = 0;
  unsigned objects = 0;  // that are held now
};
extern Traffic traffic;

// Members are numbered from 1 in their order, so the same name has different numbers in
// different classes. Names count without regard to case. A failure of the host is an
// exception with number, description and source.
class Served final : public IDispatch {
 public:
  // behind: the host's object, which Behind finds again. What the members use must be
  // kept by them.
  Served(std::vector<Member> members, host::ObjectRef behind);
  Served(const Served&) = delete;
  Served& operator=(const Served&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params,
                                   VARIANT* result, EXCEPINFO* exception, UINT*) override;

 private:
  friend host::ObjectRef Behind(const host::Value& value);

  ~Served();

  const std::vector<Member> members_;
  const host::ObjectRef behind_;
  LONG count_ = 1;
};

// A new object with these members, as a value.
host::Value Serve(std::vector<Member> members, host::ObjectRef behind = nullptr);

// The host's object behind a served one; null for null. Raises error 13 for any other.
host::ObjectRef Behind(const host::Value& value);

}  // namespace pactora::automation_host
