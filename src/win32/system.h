// What not every Windows has, or not in every process: visual styles, the newer common
// controls, screens of different resolution.
#pragma once

#include <windows.h>

#include <commctrl.h>
#include <uxtheme.h>

namespace pactora::win32 {

// A function of a system library; empty where the system has none of that name.
template <typename Function>
Function* FunctionOf(const wchar_t* library, const char* name) {
  const HMODULE module = LoadLibraryW(library);
  return module == nullptr ? nullptr
                           : reinterpret_cast<Function*>(
                                 reinterpret_cast<void*>(GetProcAddress(module, name)));  // NOLINT
}

// While it lives, windows of this thread are made with the common controls that know visual
// styles, whatever the process uses itself. Without a manifest in this file, or on a system
// without them, they are the older ones.
class CommonControls {
 public:
  CommonControls();
  ~CommonControls();
  CommonControls(const CommonControls&) = delete;
  CommonControls& operator=(const CommonControls&) = delete;

 private:
  ULONG_PTR cookie_ = 0;
  bool active_ = false;
};

// The functions of visual styles. All are there or none is.
struct ThemeFunctions {
  decltype(&::IsAppThemed) is_app_themed = nullptr;
  decltype(&::OpenThemeData) open = nullptr;
  decltype(&::CloseThemeData) close = nullptr;
  decltype(&::DrawThemeBackground) draw_background = nullptr;
  decltype(&::DrawThemeText) draw_text = nullptr;
};

// Null on a system without visual styles.
const ThemeFunctions* Themes();

// Pixels to the inch where the window stands; 96 is the usual number.
int DpiOf(HWND window);
// The font in which the system writes its own messages, for that resolution.
LOGFONTW MessageFont(int dpi);

}  // namespace pactora::win32
