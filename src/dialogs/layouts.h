// The layouts of the dialogs.
#pragma once

#include "dialogs/Layout.h"
#include "ui/Form.h"

namespace pactora::dialogs {

// A dialog without a layout of its own has its controls one below the other.
Layout LayoutOf(const ui::Form& form);

Layout NewContractLayout();
Layout EditDefinitionsLayout();
Layout EditDefPositionsLayout();

}  // namespace pactora::dialogs
