// Pictures of the main window for the documents, made from the running program.
#pragma once

#include <QString>

#include "desktop/main_window/OpenDatabase.h"
#include "pictures/Pictures.h"

namespace pactora::desktop {

// The contract with the most terms, the deadlines, and the takeover of this list,
// rehearsed. Nothing is written to the database.
void MakeMainWindowPictures(OpenDatabase& database, const QString& takeover_list,
                            Pictures& pictures);

}  // namespace pactora::desktop
