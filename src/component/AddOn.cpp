#include "component/AddOn.h"

#include <windows.h>

#include <iterator>
#include <utility>

#include "component/TypeLibrary.h"
#include "component/com/lifetime.h"
#include "component/host/AutomationApp.h"
#include "platform/Clock.h"
#include "platform/Locale.h"
#include "win32/Screen.h"

namespace pactora::component {
namespace {

platform::Locale UserLocale() {
  wchar_t separator[4] = L"";
  GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SDECIMAL, separator,
                  static_cast<int>(std::size(separator)));
  return {separator[0] == L'.' ? '.' : ','};
}

struct Loaded {
  const DWORD thread = GetCurrentThreadId();
  win32::Screen screen;
  platform::SystemClock clock;
  shell::Module module{{screen, clock, UserLocale(), CreateHostErrorTexts, GlobalHostApp}};
};

// Never destroyed with the component's file: the host's objects in it can't be released
// there, and go with the process.
Loaded* loaded = nullptr;

}  // namespace

shell::Module& AddOn() {
  if (loaded == nullptr) loaded = new Loaded;
  return loaded->module;
}

bool LetGo() {
  if (IsInUse()) return false;
  if (loaded != nullptr && loaded->thread != GetCurrentThreadId()) return false;
  delete std::exchange(loaded, nullptr);
  ForgetTypeLibrary();
  return true;
}

}  // namespace pactora::component
