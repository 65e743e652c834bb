// Who gets the error of an event.
#include <gmock/gmock.h>

#include <stdexcept>

#include "platform/Error.h"
#include "support/SampleForm.h"
#include "ui/Person.h"

namespace pactora::ui {
namespace {

using testing::ElementsAre;

struct Dispatch : testing::Test {
  Dispatch() {
    form.OnError = [this](const std::string& procedure, const platform::Error& error) {
      errors.push_back(procedure + " " + std::to_string(error.Number()));
    };
    form.BeginModal();
  }

  static void Fail() { platform::Raise(platform::RuntimeError::DivisionByZero); }

  SampleForm form;
  Person person{form};
  std::vector<std::string> errors;
};

TEST_F(Dispatch, HandsTheErrorOfAPersonsOutermostEventToTheForm) {
  form.txtDauer.Change = Fail;
  struct {
    const char* name;
    std::function<void()> on_ok;
    std::vector<std::string> errors;
  } const rows[] = {
      {"of its own", Fail, {"cmdOK_Click 11"}},
      {"a foreign exception", [] { throw std::runtime_error("full"); }, {"cmdOK_Click 51"}},
      {"of a change by its code",
       [this] { form.txtDauer.SetText("1"), ADD_FAILURE() << "went on"; },
       {"cmdOK_Click 11"}},
      {"caught by itself",
       [this] { EXPECT_THROW(form.txtDauer.SetText("2"), platform::Error); },
       {}},
  };
  for (const auto& [name, on_ok, expected] : rows) {
    form.on_ok = on_ok;
    EXPECT_TRUE(person.Click(form.cmdOK).Done());
    EXPECT_EQ(std::exchange(errors, {}), expected) << name;
  }
}

TEST_F(Dispatch, DropsAKeyAndKeepsTheFocusWhenTheHandlerFails) {
  form.on_key = [](std::int32_t&) { Fail(); };
  form.on_validate = [](bool&) { Fail(); };
  person.Type(form.txtDauer, "1");
  EXPECT_EQ(form.txtDauer.Text(), "");
  EXPECT_EQ(person.Leave(form.txtDauer).kind, Outcome::Kind::FocusKept);
  EXPECT_TRUE(form.txtDauer.HasFocus());
  EXPECT_THAT(errors, ElementsAre("txtDauer_KeyPress 11", "txtDauer_Validate 11"));
}

}  // namespace
}  // namespace pactora::ui
