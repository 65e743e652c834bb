#include "component/com/text.h"

#include <limits>
#include <new>

namespace pactora::component {
namespace {

template <typename Text>
int LengthOf(const Text& text) {
  if (text.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()))
    throw std::bad_alloc();
  return static_cast<int>(text.size());
}

}  // namespace

std::wstring Wide(std::string_view text) {
  const int length = LengthOf(text);
  std::wstring wide(text.size(), L'\0');
  if (length > 0) {
    wide.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), length)));
  }
  return wide;
}

std::string Narrow(std::wstring_view text) {
  const int length = LengthOf(text);
  if (length == 0) return {};
  const int size =
      WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string narrow(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), length, narrow.data(), size, nullptr, nullptr);
  return narrow;
}

std::string Narrow(BSTR text) { return Narrow(std::wstring_view(text, SysStringLen(text))); }

BSTR MakeText(std::wstring_view text) {
  BSTR copy = SysAllocStringLen(text.data(), static_cast<UINT>(LengthOf(text)));
  if (copy == nullptr) throw std::bad_alloc();
  return copy;
}

}  // namespace pactora::component
