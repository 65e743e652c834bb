// The question about what a person has entered in a dialog and not saved yet.
#pragma once

#include <QWidget>

namespace pactora::desktop {

// Asks whether the input is to be given up.
bool MayDiscardInput(QWidget* dialog);

}  // namespace pactora::desktop
