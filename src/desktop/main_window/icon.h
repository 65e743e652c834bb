// The picture of the program in task bars and title bars.
#pragma once

#include <QIcon>

namespace pactora::desktop {

// Requires: the application is there.
QIcon ProgramIcon();

}  // namespace pactora::desktop
