// The form in which texts are searched and sorted.
#pragma once

#include <QString>

namespace pactora::desktop {

// Without case and accents: "Müller", "MULLER" and "Muller" are the same, "ß" is
// "ss". German lists are sorted by it.
QString SearchKey(const QString& text);

}  // namespace pactora::desktop
