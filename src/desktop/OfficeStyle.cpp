#include "desktop/OfficeStyle.h"

#include <QIcon>
#include <QPainter>
#include <QPainterPath>

namespace pactora::desktop {
namespace {

constexpr int kSizes[] = {16, 24, 32, 48, 64, 96, 128};
constexpr QRgb kBlue = 0xFF2F6DB5;
constexpr QRgb kAmber = 0xFFE0A100;
constexpr QRgb kRed = 0xFFC0392B;

QPainterPath Disc(int size) {
  QPainterPath path;
  path.addEllipse(QRectF(0, 0, size, size).adjusted(1, 1, -1, -1));
  return path;
}

QPainterPath Triangle(int size) {
  QPainterPath path;
  path.moveTo(size / 2.0, 1);
  path.lineTo(size - 1, size - 2);
  path.lineTo(1, size - 2);
  path.closeSubpath();
  return path;
}

QIcon Sign(QPainterPath (*shape)(int size), QRgb color, const QString& sign) {
  QIcon icon;
  for (const int size : kSizes) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(shape(size), QColor::fromRgb(color));
    QFont font = painter.font();
    font.setBold(true);
    font.setPixelSize(size * 5 / 8);
    painter.setFont(font);
    painter.setPen(Qt::white);
    // The eye's middle of a triangle lies below the rectangle's.
    const int down = shape == Triangle ? size / 6 : 0;
    painter.drawText(QRect(0, down, size, size - down), Qt::AlignCenter, sign);
    icon.addPixmap(pixmap);
  }
  return icon;
}

}  // namespace

OfficeStyle::OfficeStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

QIcon OfficeStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                                const QWidget* widget) const {
  switch (icon) {
    case SP_MessageBoxQuestion:
      return Sign(Disc, kBlue, QStringLiteral("?"));
    case SP_MessageBoxInformation:
      return Sign(Disc, kBlue, QStringLiteral("i"));
    case SP_MessageBoxWarning:
      return Sign(Triangle, kAmber, QStringLiteral("!"));
    case SP_MessageBoxCritical:
      return Sign(Disc, kRed, QStringLiteral("!"));
    default:
      return QProxyStyle::standardIcon(icon, option, widget);
  }
}

}  // namespace pactora::desktop
