// Pictures of the dialogs for the documents, made from the running program.
#pragma once

#include "automation/workspace/Session.h"
#include "pictures/Pictures.h"

namespace pactora::desktop {

// Opens the dialogs on the first address and the first contract type that has
// positions. Nothing is saved in the database.
void MakeDialogPictures(workspace::Session& session, Pictures& pictures);

}  // namespace pactora::desktop
