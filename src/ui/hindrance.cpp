#include "ui/hindrance.h"

namespace pactora::ui {

std::string Describe(Hindrance hindrance) {
  switch (hindrance) {
    case Hindrance::None:
      return {};
    case Hindrance::DialogClosed:
      return "der Dialog ist geschlossen";
    case Hindrance::Hidden:
      return "ist nicht sichtbar";
    case Hindrance::Disabled:
      return "ist gesperrt";
    case Hindrance::FrameHidden:
      return "steht in einem Rahmen, der nicht sichtbar ist";
    case Hindrance::FrameDisabled:
      return "steht in einem gesperrten Rahmen";
    case Hindrance::FrameBehind:
      return "steht in einem verdeckten Rahmen";
    case Hindrance::WrongKind:
      return "ist kein Steuerelement für diese Aktion";
    case Hindrance::WrongValue:
      return "nimmt keinen solchen Wert";
    case Hindrance::ReadOnly:
      return "kann nur gelesen werden";
    case Hindrance::NotInList:
      return "hat keinen solchen Eintrag";
    case Hindrance::EntryNeeded:
      return "braucht einen Eintrag aus der Liste";
    case Hindrance::DateNeeded:
      return "braucht ein Datum wie 2024-03-15";
  }
  return {};
}

}  // namespace pactora::ui
