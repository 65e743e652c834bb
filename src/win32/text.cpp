#include "win32/text.h"

namespace pactora::win32 {

std::string Ansi(std::string_view text) {
  const std::wstring wide = Wide(text);
  const int length = static_cast<int>(wide.size());
  const int size =
      WideCharToMultiByte(CP_ACP, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
  std::string ansi(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_ACP, 0, wide.data(), length, ansi.data(), size, nullptr, nullptr);
  return ansi;
}

std::wstring TextOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  const int length = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

}  // namespace pactora::win32
