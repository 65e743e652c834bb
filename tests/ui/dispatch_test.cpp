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

TEST_F(Dispatch, HandsTheErrorOfAPersonsEventToTheForm) {
  form.on_ok = Fail;
  EXPECT_TRUE(person.Click(form.cmdOK).Done());
  EXPECT_THAT(errors, ElementsAre("cmdOK_Click 11"));
}

TEST_F(Dispatch, CountsAForeignExceptionAsInternalFault) {
  form.on_ok = [] { throw std::runtime_error("full"); };
  person.Click(form.cmdOK);
  EXPECT_THAT(errors, ElementsAre("cmdOK_Click 51"));
}

TEST_F(Dispatch, RaisesTheErrorOfAChangeByCodeToThatCode) {
  form.txtDauer.Change = Fail;
  EXPECT_THROW(form.txtDauer.SetText("1"), platform::Error);
  EXPECT_THAT(errors, IsEmpty());
}

TEST_F(Dispatch, NamesTheOutermostEventOfAPersonsAction) {
  form.txtDauer.Change = Fail;
  bool went_on = false;
  form.on_ok = [&] {
    form.txtDauer.SetText("1");
    went_on = true;
  };
  person.Click(form.cmdOK);
  EXPECT_FALSE(went_on);
  EXPECT_THAT(errors, ElementsAre("cmdOK_Click 11"));
}

TEST_F(Dispatch, LeavesAHandlerItsOwnCatching) {
  form.txtDauer.Change = Fail;
  form.on_ok = [&] { EXPECT_THROW(form.txtDauer.SetText("1"), platform::Error); };
  person.Click(form.cmdOK);
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

TEST_F(Dispatch, RaisesOnToTheHostWithoutAnErrorSink) {
  form.OnError = nullptr;
  form.on_ok = Fail;
  EXPECT_THROW(person.Click(form.cmdOK), platform::Error);
  form.on_ok = nullptr;
  EXPECT_THROW((form.txtDauer.Change = Fail, form.txtDauer.SetText("1")), platform::Error)
      << "a change after the failed action is the program's again";
}

}  // namespace
}  // namespace pactora::ui
