// Message boxes: text, icon, buttons, default button, title, and the answers.
#include <gtest/gtest.h>

#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include "desktop/QtScreen.h"
#include "desktop/WindowSteps.h"

namespace pactora::desktop {
namespace {

struct BoxCase {
  const char* name;
  std::int32_t style;
  QMessageBox::Icon icon;
  QStringList buttons;
  const char* default_button;
  ui::Answer on_return;
  ui::Answer on_escape;
};

class MessageBoxes : public testing::TestWithParam<BoxCase> {
 protected:
  ui::Answer Show(const std::function<void(QMessageBox& box)>& act) {
    ui::Answer answer = ui::Answer::Ok;
    WindowSteps steps;
    steps.Add("message", [&](QWidget& window) { act(dynamic_cast<QMessageBox&>(window)); });
    steps.Run([&] {
      answer = screen.ShowMessage(
          {"Erste Zeile\r\nzweite & letzte Zeile", GetParam().style, "Bitte ändern ..."});
    });
    EXPECT_TRUE(steps.Problems().isEmpty());
    return answer;
  }

  int units = 0;
  QtScreen screen{[this] { ++units; }};
};

TEST_P(MessageBoxes, ShowWhatTheMessageSays) {
  Show([](QMessageBox& box) {
    EXPECT_EQ(box.text(), QString::fromUtf8("Erste Zeile\nzweite & letzte Zeile"));
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.windowTitle(), QString::fromUtf8("Bitte ändern ..."));
    EXPECT_EQ(box.icon(), GetParam().icon);
    QStringList texts;
    for (const QAbstractButton* button : box.buttons()) texts += button->text().remove('&');
    texts.sort();
    EXPECT_EQ(texts, GetParam().buttons);
    ASSERT_TRUE(box.defaultButton());
    EXPECT_EQ(box.defaultButton()->text().remove('&'), QString(GetParam().default_button));
    box.reject();
  });
  EXPECT_EQ(units, 1);
}

TEST_P(MessageBoxes, AreAnsweredByReturnAndEscape) {
  EXPECT_EQ(Show([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Return); }),
            GetParam().on_return);
  EXPECT_EQ(Show([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); }),
            GetParam().on_escape);
}

TEST_P(MessageBoxes, GiveTheAnswerOfThePressedButton) {
  for (const auto& [text, answer] :
       {std::pair{"OK", ui::Answer::Ok}, {"Ja", ui::Answer::Yes}, {"Nein", ui::Answer::No}}) {
    if (!GetParam().buttons.contains(text)) continue;
    const ui::Answer given = Show([wanted = text](QMessageBox& box) {
      for (QAbstractButton* button : box.buttons()) {
        if (button->text().remove('&') == wanted) QTest::mouseClick(button, Qt::LeftButton);
      }
    });
    EXPECT_EQ(given, answer) << text;
  }
}

INSTANTIATE_TEST_SUITE_P(
    Styles, MessageBoxes,
    testing::Values(
        BoxCase{"Plain", 0, QMessageBox::NoIcon, {"OK"}, "OK", ui::Answer::Ok, ui::Answer::Ok},
        BoxCase{
            "Exclamation", 48, QMessageBox::Warning, {"OK"}, "OK", ui::Answer::Ok, ui::Answer::Ok},
        BoxCase{"Information",
                64,
                QMessageBox::Information,
                {"OK"},
                "OK",
                ui::Answer::Ok,
                ui::Answer::Ok},
        BoxCase{"Question",
                292,
                QMessageBox::Question,
                {"Ja", "Nein"},
                "Nein",
                ui::Answer::No,
                ui::Answer::No},
        BoxCase{"ExclamationQuestion",
                308,
                QMessageBox::Warning,
                {"Ja", "Nein"},
                "Nein",
                ui::Answer::No,
                ui::Answer::No},
        BoxCase{"YesFirst",
                4,
                QMessageBox::NoIcon,
                {"Ja", "Nein"},
                "Ja",
                ui::Answer::Yes,
                ui::Answer::No}),
    [](const auto& tested) { return tested.param.name; });

}  // namespace
}  // namespace pactora::desktop
