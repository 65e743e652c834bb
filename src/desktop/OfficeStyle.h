// Qt's own style with icons for message boxes that look like the rest of it.
#pragma once

#include <QProxyStyle>

namespace pactora::desktop {

class OfficeStyle final : public QProxyStyle {
 public:
  OfficeStyle();

  QIcon standardIcon(StandardPixmap icon, const QStyleOption* option,
                     const QWidget* widget) const override;
};

}  // namespace pactora::desktop
