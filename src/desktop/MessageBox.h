// A message of the add-on as a message box.
#pragma once

#include <QWidget>

#include "ui/Screen.h"

namespace pactora::desktop {

// Shows the box on top of a window, or alone for null, and returns when a person
// has closed it. A question closed by its frame or by the escape key is answered
// with No.
ui::Answer ShowMessageBox(const ui::Message& message, QWidget* parent);

}  // namespace pactora::desktop
