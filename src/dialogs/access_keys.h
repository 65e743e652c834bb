// Access keys: the letter of a caption that, pressed with Alt, goes to its control.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "ui/Form.h"

namespace pactora::dialogs {

// The code of a lower-case character; 0 for none.
using AccessKey = std::uint32_t;

// A key for each text, no key twice. The texts that come first choose first, and
// the first letters of words are preferred; as many texts get one as can.
std::vector<AccessKey> ChooseAccessKeys(const std::vector<std::string>& texts);

// The text with "&" before the key, at the beginning of a word if it begins one, else
// where it occurs first. Every "&" of the text itself is doubled.
std::string WithMark(std::string_view text, AccessKey key);

// The keys of a dialog's captions: those of labels lead to their boxes. The buttons at the
// bottom, which are the same everywhere, choose first, options, which arrow keys reach as
// well, last.
std::map<const ui::Control*, AccessKey> AccessKeysOf(const ui::Form& form);

}  // namespace pactora::dialogs
