// Why a person cannot do something with a control.
#pragma once

#include <string>

namespace pactora::ui {

enum class Obstacle {
  None,
  DialogClosed,
  Hidden,
  Disabled,
  FrameHidden,    // a frame around the control is hidden
  FrameDisabled,  // a frame around the control is disabled
  FrameBehind,    // a frame around the control lies behind another one
  WrongKind,      // the control offers no such action
  WrongValue,     // nor a value of this kind
  ReadOnly,
  NotInList,
  EntryNeeded,  // a box with entries of a list alone cannot be emptied
  DateNeeded,   // a date picker without a check box always shows a date
};

// For the user, in German: "ist gesperrt". Empty for None.
std::string Describe(Obstacle obstacle);

}  // namespace pactora::ui
