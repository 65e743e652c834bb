#include "desktop/main_window/fold.h"

#include <algorithm>

namespace pactora::desktop {

QString Fold(const QString& text) {
  const bool plain = std::all_of(text.begin(), text.end(), [](QChar c) { return c < u'\x80'; });
  if (plain) return text.toLower();
  const QString parts = text.toCaseFolded().normalized(QString::NormalizationForm_KD);
  QString folded;
  folded.reserve(parts.size());
  for (const QChar c : parts) {
    if (c == u'ß')
      folded += QStringLiteral("ss");
    else if (c.category() != QChar::Mark_NonSpacing)
      folded += c;
  }
  return folded;
}

}  // namespace pactora::desktop
