// Pictures of the dialogs for the documents, made from the running program.
#pragma once

#include <QString>
#include <QStringList>

#include "automation/Session.h"

namespace pactora::desktop {

// Opens the dialogs on the first address and the first contract type that has
// positions and writes "<name>-<ending>.png" for each into the folder. Nothing is
// saved in the database. Returns what went wrong.
QStringList MakeDialogPictures(automation::Session& session, const QString& folder,
                               const QString& ending);

}  // namespace pactora::desktop
