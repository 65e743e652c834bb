#include "desktop/main_window/WindowMemory.h"

#include <QHeaderView>
#include <QSplitter>

namespace pactora::desktop {
namespace {

const QString kGeometry = QStringLiteral("geometry");
const QString kLook = QStringLiteral("look");

// Calls visit for each part of the window that has a state and a name of ours.
template <typename Visit>
void ForEachPart(const QMainWindow& window, const Visit& visit) {
  const auto named = [&](auto* part) {
    if (!part->objectName().isEmpty() && !part->objectName().startsWith(QStringLiteral("qt_"))) {
      visit(*part);
    }
  };
  for (auto* splitter : window.findChildren<QSplitter*>()) named(splitter);
  for (auto* header : window.findChildren<QHeaderView*>()) {
    if (header->orientation() == Qt::Horizontal) named(header);
  }
}

}  // namespace

void WindowMemory::Restore(QMainWindow& window) const {
  settings_.beginGroup(group_);
  window.restoreGeometry(settings_.value(kGeometry).toByteArray());
  ForEachPart(window, [this](auto& part) {
    part.restoreState(settings_.value(part.objectName()).toByteArray());
  });
  settings_.endGroup();
}

void WindowMemory::Keep(const QMainWindow& window) {
  settings_.beginGroup(group_);
  settings_.setValue(kGeometry, window.saveGeometry());
  ForEachPart(window,
              [this](auto& part) { settings_.setValue(part.objectName(), part.saveState()); });
  settings_.endGroup();
  settings_.sync();
}

Theme WindowMemory::Look() const {
  const int look = settings_.value(group_ + u'/' + kLook, 0).toInt();
  return look == static_cast<int>(Theme::Light)  ? Theme::Light
         : look == static_cast<int>(Theme::Dark) ? Theme::Dark
                                                 : Theme::System;
}

void WindowMemory::KeepLook(Theme theme) {
  settings_.setValue(group_ + u'/' + kLook, static_cast<int>(theme));
}

}  // namespace pactora::desktop
