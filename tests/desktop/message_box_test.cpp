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
  std::vector<const char*> buttons;
  const char* chosen;  // by the return key
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
    const auto expect = [&](const char* answer, const std::function<void(QMessageBox & box)>& act) {
      WindowSteps steps;
      steps.Add("message", [&](QWidget& window) { act(dynamic_cast<QMessageBox&>(window)); });
      RunSteps(steps, [&] {
        EXPECT_EQ(screen.ShowMessage({"Eins\r\n& zwei", c.style, "Bitte ändern"}),
                  answers.at(answer));
      });
    };
    expect(c.chosen, [&](QMessageBox& box) {
      EXPECT_EQ(box.text(), "Eins\n& zwei");
      EXPECT_EQ(box.textFormat(), Qt::PlainText);
      EXPECT_EQ(box.windowTitle(), "Bitte ändern");
      EXPECT_EQ(box.icon(), c.icon);
      EXPECT_EQ(box.buttons().size(), static_cast<qsizetype>(c.buttons.size()));
      QTest::keyClick(&box, Qt::Key_Return);
    });
    expect(c.buttons.back(), [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    expect(c.buttons.front(), [&](QMessageBox& box) {
      for (QAbstractButton* button : box.buttons())
        if (button->text().remove('&') == c.buttons.front()) button->click();
    });
  }
  EXPECT_EQ(units, 6 * 3);
}

}  // namespace
}  // namespace pactora::desktop
