#include "component/com/failures.h"

#include <new>
#include <string_view>

#include "component/com/Ref.h"
#include "component/com/text.h"
#include "platform/current_error.h"

namespace pactora::component {
namespace {

using platform::RuntimeError;

constexpr std::uint32_t kRuntimeErrors = 0x800A0000;
constexpr std::uint32_t kLowWord = 0xFFFF;

constexpr std::int32_t Number(RuntimeError error) { return static_cast<std::int32_t>(error); }

bool IsRuntimeError(std::int32_t number) {
  return number > 0 && static_cast<std::uint32_t>(number) <= kLowWord;
}

std::string FreeText(BSTR& text) {
  std::string copy = Narrow(text);
  SysFreeString(text);
  text = nullptr;
  return copy;
}

[[noreturn]] void Raise(std::int32_t number, std::string description, const std::string& source) {
  if (description.empty()) description = SystemText(number);
  if (source.empty()) throw platform::Error(number, std::move(description));
  throw platform::Error(number, std::move(description), source);
}

void SetThreadError(const platform::Error& error) {
  Ref<ICreateErrorInfo> created;
  if (FAILED(CreateErrorInfo(created.Put()))) return;
  created->SetSource(Wide(error.Source()).data());
  created->SetDescription(Wide(error.Description()).data());
  SetErrorInfo(0, Ref<IErrorInfo>::Query(created.Get()).Get());
}

}  // namespace

HRESULT CodeOf(std::int32_t number) {
  if (number < 0) return number;
  if (number == 0) return E_FAIL;
  return static_cast<HRESULT>(kRuntimeErrors | (static_cast<std::uint32_t>(number) & kLowWord));
}

std::int32_t NumberOf(HRESULT code) {
  switch (code) {
    case DISP_E_UNKNOWNNAME:
    case DISP_E_MEMBERNOTFOUND:
      return Number(RuntimeError::MemberNotOffered);
    case DISP_E_TYPEMISMATCH:
      return Number(RuntimeError::TypeMismatch);
    case DISP_E_OVERFLOW:
      return Number(RuntimeError::Overflow);
    default:
      break;
  }
  const auto bits = static_cast<std::uint32_t>(code);
  if ((bits & ~kLowWord) == kRuntimeErrors) return static_cast<std::int32_t>(bits & kLowWord);
  return code;
}

std::string SystemText(std::int32_t number) {
  if (IsRuntimeError(number)) {
    return platform::RuntimeErrorText(static_cast<RuntimeError>(number));
  }
  wchar_t buffer[512];
  const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                      nullptr, static_cast<DWORD>(number), 0, buffer,
                                      static_cast<DWORD>(std::size(buffer)), nullptr);
  std::wstring_view text(buffer, length);
  while (!text.empty() && (text.back() == L'\n' || text.back() == L'\r')) text.remove_suffix(1);
  return text.empty() ? "Unbekannter Fehler" : Narrow(text);
}

void RaiseCode(HRESULT code) {
  std::string description;
  std::string source;
  // Servers that answer with a code of their own often left the rest here.
  Ref<IErrorInfo> said;
  if (GetErrorInfo(0, said.Put()) == S_OK) {
    BSTR text = nullptr;
    if (SUCCEEDED(said->GetDescription(&text))) description = FreeText(text);
    if (SUCCEEDED(said->GetSource(&text))) source = FreeText(text);
  }
  Raise(NumberOf(code), std::move(description), source);
}

void RaiseException(EXCEPINFO& exception) {
  if (exception.pfnDeferredFillIn != nullptr) exception.pfnDeferredFillIn(&exception);
  SysFreeString(exception.bstrHelpFile);
  const std::string source = FreeText(exception.bstrSource);
  std::string description = FreeText(exception.bstrDescription);
  std::int32_t number = NumberOf(exception.scode != 0 ? exception.scode : exception.wCode);
  if (number == 0) number = DISP_E_EXCEPTION;
  Raise(number, std::move(description), source);
}

HRESULT TellCurrentException() noexcept {
  try {
    throw;
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    try {
      const platform::Error error = platform::CurrentError();
      SetThreadError(error);
      return CodeOf(error.Number());
    } catch (...) {
      return E_OUTOFMEMORY;
    }
  }
}

HRESULT TellInvoker(HRESULT code, EXCEPINFO* exception) noexcept {
  if (SUCCEEDED(code)) return S_OK;
  Ref<IErrorInfo> said;
  GetErrorInfo(0, said.Put());
  if (exception != nullptr) {
    *exception = EXCEPINFO{};
    exception->scode = code;
    if (said) {
      said->GetSource(&exception->bstrSource);
      said->GetDescription(&exception->bstrDescription);
    }
  }
  return DISP_E_EXCEPTION;
}

}  // namespace pactora::component
