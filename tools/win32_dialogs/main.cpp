// pactora-win32-dialogs [FOLDER]: shows the dialogs one after the other over a small company
// in memory; with a folder nobody has to sit there, and a picture of each is written to it.
#include <windows.h>

#include <commctrl.h>
#include <objidl.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include "embedded/Host.h"
#include "platform/Clock.h"
#include "platform/Locale.h"
#include "schema/names.h"
#include "shell/CAddonError.h"
#include "shell/Module.h"
#include "shell/entry/CVV.h"
#include "win32/Screen.h"
#include "win32/text.h"
#include "win32_dialogs/WindowSteps.h"
#include "win32_dialogs/company.h"
#include "win32_dialogs/pictures.h"

namespace pactora::win32 {
namespace {

class Program {
 public:
  explicit Program(std::wstring folder) : folder_(std::move(folder)) {}

  void Run() {
    host_.Table(schema::table::Adressen)->MoveFirst(host::kFlagsUsual);
    AddNewContract();
    Show([this] {
      bool saved = false;
      bool show_details = false;
      std::int32_t status_rows = 0;
      entry_.NewContract(host_.App(), saved, status_rows, show_details);
    });
    GoToTypeWithPositions();
    AddDefinition();
    Show([this] { entry_.EditContractDefinition(host_.App(), false); });
  }

 private:
  void Show(const std::function<void()>& body) {
    if (folder_.empty()) return body();
    steps_.Run(body);
  }

  void GoToTypeWithPositions() {
    const auto types = host_.Table(schema::table::vv_Vertragsdefinitionen);
    const auto positions = host_.Table(schema::table::vv_Definitionspositionen);
    types->LinkChildren();
    for (types->MoveFirst(host::kFlagsUsual); !types->Eof();
         types->MoveNext(1, host::kFlagsUsual)) {
      positions->MoveFirst(host::kFlagsUsual);
      if (!positions->Eof()) return;
    }
  }

  void Take(HWND window, const wchar_t* name) const {
    TakePicture(window, folder_ + L"\\" + name + L".png");
  }

  void AddNewContract() {
    steps_.Add([](HWND dialog) {
      const HWND types = Find(dialog, "lvwBezeichnung");
      ClickRow(types, static_cast<int>(SendMessageW(types, LVM_GETITEMCOUNT, 0, 0)) - 1);
      const HWND begin = PartOf(Find(dialog, "DTPVertragBeginn"), WC_EDITW);
      SendMessageW(begin, EM_SETSEL, 0, -1);
      Type(begin, L"1.1.23");
      const HWND discount = Find(dialog, "txtRabatt");
      SendMessageW(discount, WM_LBUTTONDOWN, 0, 0);
      SendMessageW(discount, WM_LBUTTONUP, 0, 0);
      SendMessageW(discount, EM_SETSEL, 0, -1);
      Type(discount, L"12,5");
      Click(Find(dialog, "chkOldContract"));
    });
    steps_.Add([this](HWND dialog) {
      Take(dialog, L"new-contract");
      PressKey(VK_ESCAPE);
    });
    steps_.Add([this](HWND box) {
      Take(box, L"unsaved");
      Click(FindButton(box, L"Verwerfen"));
    });
  }

  void AddDefinition() {
    steps_.Add([this](HWND dialog) {
      Take(dialog, L"contract-type");
      PressAccessKey(dialog, L'.');
      Click(Find(dialog, "cmdDeletePos"));
    });
    steps_.Add([this](HWND box) {
      Take(box, L"message");
      PressKey(VK_ESCAPE);
    });
    steps_.Add([](HWND dialog) { Click(Find(dialog, "cmdEditPos")); });
    steps_.Add([this](HWND dialog) {
      Take(dialog, L"position");
      PressKey(VK_ESCAPE);
    });
    steps_.Add([](HWND) { PressKey(VK_ESCAPE); });
  }

  const std::wstring folder_;
  WindowSteps steps_;
  embedded::Host host_{MakeCompany()};
  Screen screen_;
  platform::FixedClock clock_{platform::FromCivil(2026, 3, 15)};
  shell::Module module_{{screen_, clock_, platform::Locale{}, embedded::CreateErrorTexts,
                         [this] { return host_.App(); }}};
  shell::CVV entry_{module_};
};

}  // namespace
}  // namespace pactora::win32

int main(int argc, char** argv) {
  try {
    pactora::win32::Program(argc > 1 ? pactora::win32::Wide(argv[1]) : L"").Run();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
  return 0;
}
