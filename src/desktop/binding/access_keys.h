// Access keys: the letter of a caption that, pressed with Alt, goes to its control.
#pragma once

#include <QChar>
#include <QString>
#include <vector>

namespace pactora::desktop {

// Where the key is marked in a text: at the beginning of a word if it begins one,
// else where it occurs first; -1 if it does not occur. Case does not count.
qsizetype PlaceOfKey(const QString& text, QChar key);

// A key for each text, no key twice. The texts that come first choose first, and
// the first letters of words are preferred; as many texts get one as can.
std::vector<QChar> ChooseAccessKeys(const std::vector<QString>& texts);

}  // namespace pactora::desktop
