#include "desktop/QtScreen.h"

#include <QCoreApplication>

#include "desktop/DialogWindow.h"
#include "desktop/MessageBox.h"
#include "desktop/text.h"

namespace pactora::desktop {

QWidget* QtScreen::TopWindow() const {
  return windows_.empty() ? main_window_.data() : windows_.back();
}

ui::Answer QtScreen::ShowMessage(const ui::Message& message) {
  end_unit_();
  if (!windows_.empty()) windows_.back()->Refresh();
  return ShowMessageBox(message, TopWindow());
}

void QtScreen::ShowModal(ui::Form& form) {
  end_unit_();
  if (!windows_.empty()) windows_.back()->Refresh();
  DialogWindow window(form, end_unit_, TopWindow());
  windows_.push_back(&window);
  try {
    window.Run();
  } catch (...) {
    windows_.pop_back();
    throw;
  }
  windows_.pop_back();
}

void QtScreen::ProcessPendingMessages() {
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace pactora::desktop
