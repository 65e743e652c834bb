// All control models, for dialogs and their hosts.
#pragma once

#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/DTPicker.h"
#include "ui/Form.h"
#include "ui/Frame.h"
#include "ui/Label.h"
#include "ui/ListBox.h"
#include "ui/ListView.h"
#include "ui/OptionButton.h"
#include "ui/TextBox.h"
