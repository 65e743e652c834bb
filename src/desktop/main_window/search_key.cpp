#include "desktop/main_window/search_key.h"

#include <algorithm>

namespace pactora::desktop {

QString SearchKey(const QString& text) {
  const bool plain = std::all_of(text.begin(), text.end(), [](QChar c) { return c < u'\x80'; });
  if (plain) return text.toLower();
  const QString parts = text.toCaseFolded().normalized(QString::NormalizationForm_KD);
  QString search_key;
  search_key.reserve(parts.size());
  for (const QChar c : parts) {
    if (c == u'ß')
      search_key += QStringLiteral("ss");
    else if (c.category() != QChar::Mark_NonSpacing)
      search_key += c;
  }
  return search_key;
}

}  // namespace pactora::desktop
