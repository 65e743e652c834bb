// What a person has entered in a dialog.
#pragma once

#include <string>

#include "ui/Form.h"

namespace pactora::dialogs {

// All that can be entered in the dialog, as one text: it is the same again when a person
// has changed nothing. Which row of a list is chosen is no input.
std::string InputOf(const ui::Form& form);

}  // namespace pactora::dialogs
