// Values as the lists of the main window show them.
#pragma once

#include <QString>
#include <Qt>

#include "automation/lists/lists.h"
#include "host/Value.h"

namespace pactora::desktop {

using lists::CellKind;

// German, empty for a value that was never written. A date is "dd.MM.yyyy"; no date
// is empty, and the day that stands for "no further invoice" reads "keine".
QString CellText(CellKind kind, const host::Value& value);

Qt::Alignment CellAlignment(CellKind kind);

// Texts from the beginning, numbers and dates by their value.
bool SortsByText(CellKind kind);
double SortNumber(const host::Value& value);

}  // namespace pactora::desktop
