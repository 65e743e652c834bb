// What an automation script does in a dialog: the actions of a "do" list, read
// and checked before anything runs.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "automation/formats/json.h"
#include "ui/Screen.h"

namespace pactora::scripts {

struct Action;
using Actions = std::vector<Action>;

struct ClickAction {
  std::string control;
};
struct TypeAction {
  std::string control;
  std::vector<std::int32_t> keys;  // see ui/keys.h
  bool clear = false;              // empties the box first
};
struct SetAction {
  std::string control;
  std::variant<std::nullptr_t, bool, std::string> value;  // null is no date
};
struct LeaveAction {
  std::string control;
};
struct SelectAction {
  std::string control;
  std::variant<std::string, std::int32_t> entry;  // a text, or a position from 0; -1 is none
};
struct ReadAction {
  std::vector<std::string> controls;
};
struct CloseAction {};

struct Action {
  std::variant<ClickAction, TypeAction, SetAction, LeaveAction, SelectAction, ReadAction,
               CloseAction>
      what;
  std::string place;                // in the script: "steps[1].do[2]"
  Actions inner;                    // for the dialog that the action opens
  std::vector<ui::Answer> answers;  // for the messages that it raises, in order
};

// Reads the value of a "do" key. Raises DoorError::BadInput at the action and key
// for an unknown key, a missing or a second action, and a value of the wrong type.
Actions ParseActions(const formats::Json& list, const formats::Place& place);

}  // namespace pactora::scripts
