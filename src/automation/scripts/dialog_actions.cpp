#include "automation/scripts/dialog_actions.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>
#include <utility>

#include "ui/keys.h"

namespace pactora::scripts {
namespace {

constexpr std::string_view kBackspaceMark = "{BS}";

std::vector<std::int32_t> ReadKeys(std::string_view text) {
  std::vector<std::int32_t> keys;
  while (!text.empty()) {
    const std::size_t mark = std::min(text.find(kBackspaceMark), text.size());
    std::ranges::copy(ui::KeysOf(text.substr(0, mark)), std::back_inserter(keys));
    text.remove_prefix(mark);
    if (text.empty()) break;
    keys.push_back(ui::kBackspace);
    text.remove_prefix(kBackspaceMark.size());
  }
  return keys;
}

// A key whose only value is true.
void RequireTrue(const formats::Json& value, const formats::Place& place) {
  if (!formats::RequireBoolean(value, place)) place.Fail("true wird erwartet");
}

std::int32_t RequirePosition(const formats::Json& value, std::int32_t first,
                             const formats::Place& place) {
  const std::int32_t position = formats::RequireLong(value, place);
  if (position < first) place.Fail(fmt::format("eine ganze Zahl ab {} wird erwartet", first));
  return position;
}

using What = decltype(Action::what);

What ReadClick(const formats::Json& object, const formats::Place& place) {
  return ClickAction{formats::RequireText(object["click"], place.Key("click"))};
}

What ReadType(const formats::Json& object, const formats::Place& place) {
  TypeAction type{formats::RequireText(object["type"], place.Key("type")), {}, false};
  const formats::Json* clear = formats::Find(object, "clear");
  type.clear = clear && formats::RequireBoolean(*clear, place.Key("clear"));
  type.keys =
      ReadKeys(formats::RequireText(formats::Require(object, "keys", place), place.Key("keys")));
  return type;
}

What ReadSet(const formats::Json& object, const formats::Place& place) {
  SetAction set{formats::RequireText(object["set"], place.Key("set")), nullptr};
  const formats::Json& value = formats::Require(object, "value", place);
  if (value.is_null()) return set;
  if (value.is_boolean()) {
    set.value = value.get<bool>();
  } else if (value.is_string()) {
    set.value = value.get<std::string>();
  } else {
    place.Key("value").Fail("ein Text, true, false oder null wird erwartet");
  }
  return set;
}

What ReadLeave(const formats::Json& object, const formats::Place& place) {
  return LeaveAction{formats::RequireText(object["leave"], place.Key("leave"))};
}

What ReadSelect(const formats::Json& object, const formats::Place& place) {
  SelectAction select{formats::RequireText(object["select"], place.Key("select")), -1};
  int entries = 0;
  if (const formats::Json* text = formats::Find(object, "text")) {
    select.entry = formats::RequireText(*text, place.Key("text"));
    ++entries;
  }
  if (const formats::Json* index = formats::Find(object, "index")) {
    select.entry = RequirePosition(*index, 0, place.Key("index"));
    ++entries;
  }
  if (const formats::Json* row = formats::Find(object, "row")) {
    select.entry = RequirePosition(*row, 1, place.Key("row")) - 1;
    ++entries;
  }
  if (const formats::Json* none = formats::Find(object, "none")) {
    RequireTrue(*none, place.Key("none"));
    ++entries;
  }
  if (entries != 1)
    place.Fail("genau einer der Schlüssel „text“, „index“, „row“ und „none“ wird erwartet");
  return select;
}

What ReadRead(const formats::Json& object, const formats::Place& place) {
  const formats::Json& value = object["read"];
  ReadAction read;
  if (!value.is_array()) {
    read.controls.push_back(formats::RequireText(value, place.Key("read")));
    return read;
  }
  for (std::size_t i = 0; i < value.size(); ++i) {
    read.controls.push_back(formats::RequireText(value[i], place.Key("read").Element(i)));
  }
  return read;
}

What ReadClose(const formats::Json& object, const formats::Place& place) {
  RequireTrue(object["close"], place.Key("close"));
  return CloseAction{};
}

struct Form {
  std::string_view key;
  std::vector<std::string_view> options;
  What (*read)(const formats::Json& object, const formats::Place& place);
};

const std::array<Form, 7>& Forms() {
  static const std::array<Form, 7> forms{{
      {"click", {}, ReadClick},
      {"type", {"keys", "clear"}, ReadType},
      {"set", {"value"}, ReadSet},
      {"leave", {}, ReadLeave},
      {"select", {"text", "index", "row", "none"}, ReadSelect},
      {"read", {}, ReadRead},
      {"close", {}, ReadClose},
  }};
  return forms;
}

// The one form whose key stands in the object.
const Form& FormOf(const formats::Json& object, const formats::Place& place) {
  const Form* found = nullptr;
  for (const Form& form : Forms()) {
    if (!formats::Find(object, form.key)) continue;
    if (found) {
      place.Fail(fmt::format("zwei Aktionen auf einmal: „{}“ und „{}“", found->key, form.key));
    }
    found = &form;
  }
  if (found) return *found;
  if (object.empty()) place.Fail("eine Aktion wird erwartet");
  place.FailUnknownKey(object.begin().key());
}

std::vector<ui::Answer> ReadAnswers(const formats::Json& list, const formats::Place& place) {
  static constexpr std::array<std::pair<std::string_view, ui::Answer>, 3> kAnswers{
      {{"ok", ui::Answer::Ok}, {"yes", ui::Answer::Yes}, {"no", ui::Answer::No}}};
  std::vector<ui::Answer> answers;
  for (std::size_t i = 0; i < formats::RequireArray(list, place).size(); ++i) {
    const std::string text = formats::RequireText(list[i], place.Element(i));
    const auto* found = std::ranges::find(kAnswers, text, [](const auto& a) { return a.first; });
    if (found == kAnswers.end()) place.Element(i).Fail("„yes“, „no“ oder „ok“ wird erwartet");
    answers.push_back(found->second);
  }
  return answers;
}

Action ParseAction(const formats::Json& object, const formats::Place& place) {
  formats::RequireObject(object, place);
  const Form& form = FormOf(object, place);
  for (const auto& [key, value] : object.items()) {
    if (key != form.key && key != "do" && key != "answers" &&
        std::ranges::find(form.options, key) == form.options.end()) {
      place.FailUnknownKey(key);
    }
  }
  Action action{form.read(object, place), place.Path(), {}, {}};
  if (const formats::Json* inner = formats::Find(object, "do"))
    action.inner = ParseActions(*inner, place.Key("do"));
  if (const formats::Json* answers = formats::Find(object, "answers")) {
    action.answers = ReadAnswers(*answers, place.Key("answers"));
  }
  return action;
}

}  // namespace

Actions ParseActions(const formats::Json& list, const formats::Place& place) {
  formats::RequireArray(list, place);
  Actions actions;
  for (std::size_t i = 0; i < list.size(); ++i) {
    actions.push_back(ParseAction(list[i], place.Element(i)));
  }
  return actions;
}

}  // namespace pactora::scripts
