#include "desktop/text.h"

#include "ui/keys.h"

namespace pactora::desktop {

QString ToQt(std::string_view text) {
  QString result = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  return result.replace(QLatin1String("\r\n"), QLatin1String("\n"));
}

std::string FromQt(const QString& text) {
  QString lines = text;
  lines.replace(QLatin1Char('\n'), QString::fromUtf8(ui::kLineBreak.data()));
  return lines.toStdString();
}

QString WithoutMarks(const QString& text) {
  QString result = text;
  return result.replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace pactora::desktop
