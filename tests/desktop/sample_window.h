// The small made-up dialog in a window.
#pragma once

#include <gmock/gmock.h>

#include "desktop/QtScreen.h"
#include "desktop/WindowSteps.h"
#include "desktop/window_user.h"
#include "support/SampleForm.h"

namespace pactora::desktop {

class SampleWindowTest : public testing::Test {
 protected:
  using Acts = std::function<void(WindowUser& user)>;

  // Shows the form; a form that is open after the acts is hidden.
  void Show(const Acts& acts) {
    steps.Add("frmSample", [this, acts](QWidget& window) {
      form.Ran();
      WindowUser user(window);
      acts(user);
      form.Hide();
    });
    steps.Run([this] { form.Show(screen); });
    EXPECT_TRUE(steps.Problems().isEmpty()) << steps.Problems().join('\n').toStdString();
  }
  // The next message box; a person closes it with the return key.
  void ExpectMessage(const char* text) {
    steps.Add("message", [text](QWidget& window) {
      EXPECT_EQ(window.property("text").toString().toStdString(), text);
      QTest::keyClick(&window, Qt::Key_Return);
    });
  }

  int units = 0;
  std::function<void()> on_unit;
  QtScreen screen{[this] {
    ++units;
    if (on_unit) on_unit();
  }};
  WindowSteps steps;
  ui::SampleForm form;
};

}  // namespace pactora::desktop
