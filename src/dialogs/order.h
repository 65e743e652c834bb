// What follows from the order of a dialog's controls: the way of the tab key, and which
// label speaks for which box.
#pragma once

#include "ui/Form.h"
#include "ui/Label.h"

namespace pactora::dialogs {

// The control to which the tab key goes from the one that has the focus; with shift it goes
// the other way. Null when a person can reach none.
ui::Control* NextStop(const ui::Form& form, bool forward);

// The box that comes next after the label in the same container; null when that is no box.
const ui::Control* LabelledBy(const ui::Label& label);
// The label that speaks for the control, or null.
const ui::Label* LabelOf(const ui::Control& control);

}  // namespace pactora::dialogs
