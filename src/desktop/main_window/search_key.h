// Texts as people look for them and sort them.
#pragma once

#include <QString>

namespace pactora::desktop {

// Without case and accents: "Müller", "MULLER" and "Muller" are the same, "ß" is
// "ss". German lists are sorted by it.
QString SearchKey(const QString& text);

}  // namespace pactora::desktop
