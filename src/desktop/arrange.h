// Lays out the widgets of a dialog.
#pragma once

#include <QWidget>
#include <functional>
#include <string_view>

#include "dialogs/Layout.h"

namespace pactora::desktop {

// Null for a name that the dialog does not have.
using FindWidget = std::function<QWidget*(std::string_view control)>;

// Lays out a dialog's widgets in body. Returns the strip with the
// buttons, or null; it stays below the body when that is scrolled, and the caller owns it.
// Raises std::invalid_argument for a name that the dialog does not have.
QWidget* Arrange(const dialogs::Layout& layout, QWidget& body, const FindWidget& find);

}  // namespace pactora::desktop
