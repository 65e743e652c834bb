#include "desktop/binding/access_keys.h"

#include <QSet>
#include <functional>
#include <map>

namespace pactora::desktop {
namespace {

bool BeginsWord(const QString& text, qsizetype place) {
  return place == 0 || !text[place - 1].isLetterOrNumber();
}

// The keys that a text offers, the best first: initials, other letters, signs.
QString Candidates(const QString& text) {
  QString initials;
  QString letters;
  QString signs;
  for (qsizetype i = 0; i < text.size(); ++i) {
    const QChar key = text[i].toLower();
    if (text[i].isSpace() || text[i] == QLatin1Char('&')) continue;
    QString& group = !key.isLetterOrNumber() ? signs : BeginsWord(text, i) ? initials : letters;
    group += key;
  }
  // Signs are hard to find on a keyboard: only for a text of signs alone.
  return initials.isEmpty() && letters.isEmpty() ? signs : initials + letters;
}

}  // namespace

qsizetype PlaceOfKey(const QString& text, QChar key) {
  qsizetype first = -1;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i].toLower() != key.toLower()) continue;
    if (BeginsWord(text, i)) return i;
    if (first < 0) first = i;
  }
  return first;
}

// A largest matching: a text that finds all its keys taken makes their owners look
// for others.
std::vector<QChar> ChooseAccessKeys(const std::vector<QString>& texts) {
  std::map<QChar, std::size_t> owner;
  const std::function<bool(std::size_t, QSet<QChar>&)> find = [&](std::size_t text,
                                                                  QSet<QChar>& tried) {
    const QString candidates = Candidates(texts[text]);
    for (const QChar key : candidates) {
      if (owner.contains(key)) continue;
      owner[key] = text;
      return true;
    }
    for (const QChar key : candidates) {
      if (tried.contains(key)) continue;
      tried.insert(key);
      if (!find(owner[key], tried)) continue;
      owner[key] = text;
      return true;
    }
    return false;
  };
  for (std::size_t i = 0; i < texts.size(); ++i) {
    QSet<QChar> tried;
    find(i, tried);
  }
  std::vector<QChar> keys(texts.size());
  for (const auto& [key, text] : owner) keys[text] = key;
  return keys;
}

}  // namespace pactora::desktop
