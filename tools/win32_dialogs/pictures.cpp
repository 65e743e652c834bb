#include "win32_dialogs/pictures.h"

#include <windows.h>

#include <objidl.h>

#include <algorithm>
#include <stdexcept>

using std::max;
using std::min;
#include <gdiplus.h>  // needs the two

namespace pactora::win32 {
namespace {

// {557CF406-1A04-11D3-9A73-0000F81EF32E}
constexpr CLSID kPng = {
    0x557CF406, 0x1A04, 0x11D3, {0x9A, 0x73, 0x00, 0x00, 0xF8, 0x1E, 0xF3, 0x2E}};

}  // namespace

void TakePicture(HWND window, const std::wstring& path) {
  RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  RECT place{};
  GetWindowRect(window, &place);
  const int width = place.right - place.left;
  const int height = place.bottom - place.top;
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
  const HGDIOBJ before = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, width, height, screen, place.left, place.top, SRCCOPY);
  SelectObject(memory, before);

  ULONG_PTR token = 0;
  const Gdiplus::GdiplusStartupInput input;
  Gdiplus::GdiplusStartup(&token, &input, nullptr);
  const bool written =
      Gdiplus::Bitmap(bitmap, nullptr).Save(path.c_str(), &kPng, nullptr) == Gdiplus::Ok;
  Gdiplus::GdiplusShutdown(token);
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  if (!written) throw std::runtime_error("the picture was not written");
}

}  // namespace pactora::win32
