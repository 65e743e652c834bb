// Failures on their way out of the component and into it.
//
// The numbers of the add-on and of the host, 0x8004...., are failure codes as they are.
// A run-time error, 5 to 438, is 0x800A0000 + its number, as scripts know it.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <cstdint>
#include <string>

#include "platform/Error.h"

namespace pactora::component {

// The failure code of an error number; never one that reads as success.
HRESULT CodeOf(std::int32_t number);
// The error number of a failure code. What says that a member is missing or that a type
// does not fit is the run-time error of that meaning.
std::int32_t NumberOf(HRESULT code);
// The system's own text of the number, a run-time error's German one, or
// "Unbekannter Fehler".
std::string SystemText(std::int32_t number);

// Raises the failure of a call as an Error.
[[noreturn]] void RaiseCode(HRESULT code);
// Likewise with what the called object said of it, and frees that.
[[noreturn]] void RaiseException(EXCEPINFO& exception);
inline void Check(HRESULT code) {
  if (FAILED(code)) RaiseCode(code);
}

// The code of the exception that is being handled; the calling thread's error object
// gets its source and description. Requires: called in a catch block.
HRESULT TellCurrentException() noexcept;

// Runs the body of an operation that others call: nothing that it throws goes on.
template <typename Body>
HRESULT Guarded(Body&& body) noexcept {
  try {
    SetErrorInfo(0, nullptr);
    body();
    return S_OK;
  } catch (...) {
    return TellCurrentException();
  }
}

// What Invoke answers for an operation that ended with that code: the thread's error
// object goes into the exception, which may be null.
HRESULT TellInvoker(HRESULT code, EXCEPINFO* exception) noexcept;

}  // namespace pactora::component
