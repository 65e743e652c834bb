// A control of a dialog as a transcript shows it.
#pragma once

#include "automation/json.h"
#include "ui/Form.h"

namespace pactora::automation {

// The event "control": dialog, name, enabled, visible (the control's own
// settings) and what its kind has.
Json ControlEvent(const ui::Control& control);

}  // namespace pactora::automation
