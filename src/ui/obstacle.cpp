#include "ui/obstacle.h"

namespace pactora::ui {

std::string Describe(Obstacle obstacle) {
  switch (obstacle) {
    case Obstacle::None:
      return {};
    case Obstacle::DialogClosed:
      return "der Dialog ist geschlossen";
    case Obstacle::Hidden:
      return "ist nicht sichtbar";
    case Obstacle::Disabled:
      return "ist gesperrt";
    case Obstacle::FrameHidden:
      return "steht in einem Rahmen, der nicht sichtbar ist";
    case Obstacle::FrameDisabled:
      return "steht in einem gesperrten Rahmen";
    case Obstacle::FrameBehind:
      return "steht in einem verdeckten Rahmen";
    case Obstacle::WrongKind:
      return "ist kein Steuerelement für diese Aktion";
    case Obstacle::WrongValue:
      return "nimmt keinen solchen Wert";
    case Obstacle::ReadOnly:
      return "kann nur gelesen werden";
    case Obstacle::NotInList:
      return "hat keinen solchen Eintrag";
    case Obstacle::EntryNeeded:
      return "braucht einen Eintrag aus der Liste";
    case Obstacle::DateNeeded:
      return "braucht ein Datum wie 2024-03-15";
  }
  return {};
}

}  // namespace pactora::ui
