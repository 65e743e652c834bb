#include "desktop/main_window/icon.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace pactora::desktop {
namespace {

// On a field of 16 by 16: a contract with its corner turned down, two lines of text
// and what was signed below.
void Draw(QPainter& painter) {
  const QColor ink(0x2d, 0x6c, 0xb5);
  QPainterPath sheet;
  sheet.moveTo(2.5, 0.5);
  sheet.lineTo(10, 0.5);
  sheet.lineTo(13.5, 4);
  sheet.lineTo(13.5, 15.5);
  sheet.lineTo(2.5, 15.5);
  sheet.closeSubpath();
  painter.setPen(QPen(ink, 1));
  painter.setBrush(Qt::white);
  painter.drawPath(sheet);
  painter.setBrush(ink);
  painter.drawPolygon(QPolygonF{{10, 0.5}, {13.5, 4}, {10, 4}});
  painter.drawLine(QPointF(5, 6.5), QPointF(11, 6.5));
  painter.drawLine(QPointF(5, 9), QPointF(11, 9));
  QPainterPath signature;
  signature.moveTo(5, 13);
  signature.cubicTo(6.5, 10, 7, 14.5, 8, 12.5);
  signature.cubicTo(8.5, 11.5, 9, 14, 11.2, 12.2);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QColor(0xb0, 0x24, 0x24), 1));
  painter.drawPath(signature);
}

}  // namespace

QIcon ProgramIcon() {
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / 16.0, size / 16.0);
    Draw(painter);
    painter.end();
    icon.addPixmap(picture);
  }
  return icon;
}

}  // namespace pactora::desktop
