// Message boxes: text, icon, buttons, default button, title, and the answers.
#include <QMessageBox>
#include <QPushButton>
#include <map>

#include "desktop/QtScreen.h"
#include "desktop/window_user.h"

namespace pactora::desktop {
namespace {

struct BoxCase {
  std::int32_t style;
  QMessageBox::Icon icon;
  std::vector<std::string> buttons;
  std::string chosen;  // by the return key
};

TEST(MessageBoxes, ShowWhatTheMessageSaysAndGiveTheAnswer) {
  const std::map<std::string, ui::Answer> answers = {
      {"OK", ui::Answer::Ok}, {"Ja", ui::Answer::Yes}, {"Nein", ui::Answer::No}};
  const BoxCase cases[] = {
      {0, QMessageBox::NoIcon, {"OK"}, "OK"},
      {48, QMessageBox::Warning, {"OK"}, "OK"},
      {64, QMessageBox::Information, {"OK"}, "OK"},
      {292, QMessageBox::Question, {"Ja", "Nein"}, "Nein"},
      {308, QMessageBox::Warning, {"Ja", "Nein"}, "Nein"},
      {4, QMessageBox::NoIcon, {"Ja", "Nein"}, "Ja"},
  };
  int units = 0;
  QtScreen screen{[&] { ++units; }};
  for (const BoxCase& c : cases) {
    SCOPED_TRACE(c.style);
    const auto show = [&](const std::function<void(QMessageBox & box)>& act) {
      ui::Answer answer = ui::Answer::Ok;
      WindowSteps steps;
      steps.Add("message", [&](QWidget& window) { act(dynamic_cast<QMessageBox&>(window)); });
      RunSteps(steps, [&] {
        answer = screen.ShowMessage({"Eins\r\n& zwei", c.style, "Bitte ändern"});
      });
      return answer;
    };
    const auto return_key = [&](QMessageBox& box) {
      EXPECT_EQ(box.text(), "Eins\n& zwei");
      EXPECT_EQ(box.textFormat(), Qt::PlainText);
      EXPECT_EQ(box.windowTitle(), "Bitte ändern");
      EXPECT_EQ(box.icon(), c.icon);
      EXPECT_EQ(box.buttons().size(), static_cast<qsizetype>(c.buttons.size()));
      QTest::keyClick(&box, Qt::Key_Return);
    };
    EXPECT_EQ(show(return_key), answers.at(c.chosen));
    EXPECT_EQ(show([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }),
              answers.at(c.buttons.back()));
    for (const std::string& text : c.buttons) {
      const auto press = [&](QMessageBox& box) {
        for (QAbstractButton* button : box.buttons()) {
          if (button->text().remove('&') == text.c_str()) QTest::mouseClick(button, Qt::LeftButton);
        }
      };
      EXPECT_EQ(show(press), answers.at(text));
    }
  }
  EXPECT_EQ(units, 3 * 3 + 3 * 4);
}

}  // namespace
}  // namespace pactora::desktop
