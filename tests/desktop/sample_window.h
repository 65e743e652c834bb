// The small made-up dialog in a window.
#pragma once

#include "desktop/QtScreen.h"
#include "desktop/window_user.h"
#include "support/SampleForm.h"

namespace pactora::desktop {

class SampleWindowTest : public testing::Test {
 protected:
  using Acts = std::function<void(WindowUser& user)>;

  // Shows the form; a form that is open after the acts is hidden.
  void Show(const Acts& acts) {
    steps.Add("frmSample", AsUser([this, acts](WindowUser& user) {
                form.Ran();
                acts(user);
                form.Hide();
              }));
    RunSteps(steps, [this] { form.Show(screen); });
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
