// What a person has entered in a dialog and not saved yet.
#pragma once

#include <QWidget>
#include <string>

#include "ui/Form.h"

namespace pactora::desktop {

// All that can be entered in the dialog, as one text: it is the same again when a person
// has changed nothing. Which row of a list is chosen is no input.
std::string InputOf(const ui::Form& form);

// Asks whether the input is to be given up.
bool MayDiscardInput(QWidget* dialog);

}  // namespace pactora::desktop
