#include "win32/system.h"

namespace pactora::win32 {
namespace {

constexpr WORD kManifest = 2;  // its number in this file

HANDLE MakeContext() {
  HMODULE module = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<const wchar_t*>(&MakeContext), &module);
  wchar_t path[MAX_PATH] = L"";
  GetModuleFileNameW(module, path, MAX_PATH);
  ACTCTXW context{};
  context.cbSize = sizeof context;
  context.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
  context.lpSource = path;
  context.lpResourceName = MAKEINTRESOURCEW(kManifest);
  context.hModule = module;
  return CreateActCtxW(&context);
}

ThemeFunctions LoadThemes() {
  constexpr wchar_t kLibrary[] = L"uxtheme.dll";
  return {FunctionOf<decltype(::IsAppThemed)>(kLibrary, "IsAppThemed"),
          FunctionOf<decltype(::OpenThemeData)>(kLibrary, "OpenThemeData"),
          FunctionOf<decltype(::CloseThemeData)>(kLibrary, "CloseThemeData"),
          FunctionOf<decltype(::DrawThemeBackground)>(kLibrary, "DrawThemeBackground"),
          FunctionOf<decltype(::DrawThemeText)>(kLibrary, "DrawThemeText")};
}

int SystemDpi() {
  const HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  return dpi;
}

}  // namespace

CommonControls::CommonControls() {
  static const HANDLE context = MakeContext();
  active_ = context != INVALID_HANDLE_VALUE && ActivateActCtx(context, &cookie_) != FALSE;
  if (auto* initialise =
          FunctionOf<decltype(::InitCommonControlsEx)>(L"comctl32.dll", "InitCommonControlsEx")) {
    const INITCOMMONCONTROLSEX classes{sizeof classes, ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES |
                                                           ICC_DATE_CLASSES | ICC_BAR_CLASSES |
                                                           ICC_WIN95_CLASSES};
    initialise(&classes);
  }
}

CommonControls::~CommonControls() {
  if (active_) DeactivateActCtx(0, cookie_);
}

const ThemeFunctions* Themes() {
  static const ThemeFunctions functions = LoadThemes();
  const bool all = functions.is_app_themed && functions.open && functions.close &&
                   functions.draw_background && functions.draw_text;
  return all ? &functions : nullptr;
}

int DpiOf(HWND window) {
  using GetDpi = UINT WINAPI(HWND);
  static GetDpi* const get = FunctionOf<GetDpi>(L"user32.dll", "GetDpiForWindow");
  const int dpi = get == nullptr ? 0 : static_cast<int>(get(window));
  return dpi > 0 ? dpi : SystemDpi();
}

LOGFONTW MessageFont(int dpi) {
  using GetForDpi = BOOL WINAPI(UINT, UINT, PVOID, UINT, UINT);
  static GetForDpi* const get = FunctionOf<GetForDpi>(L"user32.dll", "SystemParametersInfoForDpi");
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  if (get != nullptr &&
      get(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(dpi)) != FALSE) {
    return metrics.lfMessageFont;
  }
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  metrics.lfMessageFont.lfHeight = MulDiv(metrics.lfMessageFont.lfHeight, dpi, SystemDpi());
  return metrics.lfMessageFont;
}

}  // namespace pactora::win32
