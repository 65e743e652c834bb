// Windows without a screen: every test program of the desktop has one application.
#include <gtest/gtest.h>

#include <QApplication>

#include "desktop/appearance.h"

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  pactora::desktop::UseGerman(application);
  pactora::desktop::UseTheme(pactora::desktop::Theme::Light);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
