// Where the widgets of each dialog stand. A layout knows a dialog by its class name
// and the widgets by the names of their controls.
#pragma once

#include <QWidget>
#include <functional>
#include <string_view>

#include "ui/Form.h"

namespace pactora::desktop {

using FindWidget = std::function<QWidget*(std::string_view control)>;

// Lays out a dialog's widgets in body. Returns the strip with the
// buttons, or null; it stays below the body when that is scrolled, and the caller owns it.
// A dialog without a layout of its own gets its controls one below the other.
QWidget* Arrange(const ui::Form& form, QWidget& body, const FindWidget& find);

}  // namespace pactora::desktop
