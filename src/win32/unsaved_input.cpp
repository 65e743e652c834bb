#include "win32/unsaved_input.h"

#include <string>

#include "win32/system.h"
#include "win32/text.h"

namespace pactora::win32 {
namespace {

constexpr wchar_t kUnsaved[] = L"Die Eingaben sind nicht gespeichert.";
constexpr int kDiscard = 100;
constexpr int kGoOn = 101;

}  // namespace

bool MayDiscardInput(HWND dialog) {
  const std::wstring title = TextOf(dialog);
  using Show = HRESULT WINAPI(const TASKDIALOGCONFIG*, int*, int*, BOOL*);
  if (auto* show = FunctionOf<Show>(L"comctl32.dll", "TaskDialogIndirect")) {
    const TASKDIALOG_BUTTON buttons[] = {{kGoOn, L"&Weiter bearbeiten"}, {kDiscard, L"&Verwerfen"}};
    TASKDIALOGCONFIG box{};
    box.cbSize = sizeof box;
    box.hwndParent = dialog;
    box.dwFlags = TDF_ALLOW_DIALOG_CANCELLATION | TDF_POSITION_RELATIVE_TO_WINDOW;
    box.pszWindowTitle = title.c_str();
    box.pszContent = kUnsaved;
    box.cButtons = 2;
    box.pButtons = buttons;
    box.nDefaultButton = kGoOn;
    int pressed = kGoOn;
    if (SUCCEEDED(show(&box, &pressed, nullptr, nullptr))) return pressed == kDiscard;
  }
  // The older controls have no box with buttons of one's own.
  return MessageBoxW(dialog, (std::wstring(kUnsaved) + L"\r\nVerwerfen?").c_str(), title.c_str(),
                     MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) == IDYES;
}

}  // namespace pactora::win32
