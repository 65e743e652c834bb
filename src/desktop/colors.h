// The colours of controls as the palette shows them.
#pragma once

#include <QColor>
#include <QPalette>
#include <cstdint>

namespace pactora::desktop {

bool IsDark(const QPalette& palette);

// A colour of the system is the palette's colour of that role; any other is itself,
// lightened on a dark background until it can be read there.
QColor TextColor(std::uint32_t color, const QPalette& palette);
QColor BackgroundColor(std::uint32_t color, const QPalette& palette);

}  // namespace pactora::desktop
