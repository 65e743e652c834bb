// Texts on their way between the system and Qt.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace pactora::desktop {

// Line breaks are CR LF in the system and LF in Qt.
QString ToQt(std::string_view text);
std::string FromQt(const QString& text);

// A text that Qt would search for access-key marks, without any.
QString WithoutMarks(const QString& text);

}  // namespace pactora::desktop
