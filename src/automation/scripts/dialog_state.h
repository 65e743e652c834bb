// A control of a dialog as a transcript shows it.
#pragma once

#include "automation/formats/json.h"
#include "ui/Form.h"

namespace pactora::scripts {

// The event "control": dialog, name, enabled, visible (the control's own
// settings) and what its kind has.
formats::Json ControlEvent(const ui::Control& control);

}  // namespace pactora::scripts
