// Who gets the error of an event.
#include <gmock/gmock.h>

#include <stdexcept>

#include "platform/Error.h"
#include "support/SampleForm.h"
#include "ui/Person.h"

namespace pactora::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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

TEST_F(Dispatch, RaisesOnWhatNobodyTakes) {
  form.txtDauer.Change = Fail;
  EXPECT_THROW(form.txtDauer.SetText("1"), platform::Error) << "a change by code";
  form.on_ok = Fail;
  const auto sink = std::exchange(form.OnError, nullptr);
  EXPECT_THROW(person.Click(form.cmdOK), platform::Error);
  form.OnError = sink;
  EXPECT_THROW(form.txtDauer.SetText("2"), platform::Error) << "the program's again";
  EXPECT_THAT(errors, IsEmpty());
}

TEST_F(Dispatch, KeepsTheErrorsOfTwoFormsApart) {
  SampleForm inner;
  inner.BeginModal();
  inner.OnError = [this](const std::string& procedure, const platform::Error&) {
    errors.push_back("inner " + procedure);
  };
  inner.on_ok = Fail;
  inner.txtDauer.Change = Fail;
  form.on_ok = [&] {
    Person(inner).Click(inner.cmdOK);
    inner.txtDauer.SetText("1");  // by code of the outer form
  };
  person.Click(form.cmdOK);
  EXPECT_THAT(errors, ElementsAre("inner cmdOK_Click", "cmdOK_Click 11"));
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

TEST_F(Dispatch, CatchesTheActivationToo) {
  form.EndModal();
  form.Activate = Fail;
  form.BeginModal();
  EXPECT_THAT(errors, ElementsAre("Form_Activate 11"));
  EXPECT_TRUE(form.Visible());
}

}  // namespace
}  // namespace pactora::ui
