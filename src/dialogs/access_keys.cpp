#include "dialogs/access_keys.h"

#include <algorithm>
#include <functional>
#include <set>

#include "dialogs/order.h"
#include "platform/Text.h"
#include "ui/controls.h"

namespace pactora::dialogs {
namespace {

struct Character {
  AccessKey code = 0;        // of the lower-case letter
  std::string_view written;  // as it stands in the text
};

bool IsLetterOrDigit(AccessKey code) {
  constexpr AccessKey kFirstLetterBeyondAscii = 0xC0;
  return (code >= 'a' && code <= 'z') || (code >= '0' && code <= '9') ||
         code >= kFirstLetterBeyondAscii;
}

std::vector<Character> CharactersOf(std::string_view text) {
  std::vector<Character> characters;
  while (!text.empty()) {
    const std::string_view written = platform::FirstCharacters(text, 1);
    characters.push_back({platform::FirstCode(platform::LowerCase(written)).value_or(0), written});
    text.remove_prefix(written.size());
  }
  return characters;
}

bool BeginsWord(const std::vector<Character>& text, std::size_t place) {
  return place == 0 || !IsLetterOrDigit(text[place - 1].code);
}

// The keys that a text offers, the best first: initials, other letters, signs.
std::vector<AccessKey> Candidates(std::string_view caption) {
  const std::vector<Character> text = CharactersOf(caption);
  std::vector<AccessKey> initials;
  std::vector<AccessKey> letters;
  std::vector<AccessKey> signs;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const AccessKey key = text[i].code;
    if (key <= ' ' || key == '&') continue;
    (!IsLetterOrDigit(key) ? signs : BeginsWord(text, i) ? initials : letters).push_back(key);
  }
  // Signs are hard to find on a keyboard: only for a text of signs alone.
  if (initials.empty() && letters.empty()) return signs;
  initials.insert(initials.end(), letters.begin(), letters.end());
  return initials;
}

int Rank(const ui::Control& control) {
  if (control.Kind() == ui::ControlKind::OptionButton) return 2;
  const auto* button = dynamic_cast<const ui::Button*>(&control);
  return button && button->GetRole() != ui::Button::Role::Plain ? 0 : 1;
}

// The caption in which a key can be marked; empty for none.
std::string CaptionOf(const ui::Control& control) {
  if (const auto* label = dynamic_cast<const ui::Label*>(&control))
    return LabelledBy(*label) ? label->Caption() : std::string();
  if (const auto* box = dynamic_cast<const ui::CheckBox*>(&control)) return box->Caption();
  if (const auto* option = dynamic_cast<const ui::OptionButton*>(&control))
    return option->Caption();
  if (const auto* button = dynamic_cast<const ui::Button*>(&control)) return button->Caption();
  return {};
}

}  // namespace

// A largest matching: a text that finds all its keys taken makes their owners look
// for others.
std::vector<AccessKey> ChooseAccessKeys(const std::vector<std::string>& texts) {
  std::map<AccessKey, std::size_t> owner;
  const std::function<bool(std::size_t, std::set<AccessKey>&)> find =
      [&](std::size_t text, std::set<AccessKey>& tried) {
        const std::vector<AccessKey> candidates = Candidates(texts[text]);
        for (const AccessKey key : candidates) {
          if (!owner.try_emplace(key, text).second) continue;
          return true;
        }
        for (const AccessKey key : candidates) {
          if (!tried.insert(key).second || !find(owner[key], tried)) continue;
          owner[key] = text;
          return true;
        }
        return false;
      };
  for (std::size_t i = 0; i < texts.size(); ++i) {
    std::set<AccessKey> tried;
    find(i, tried);
  }
  std::vector<AccessKey> keys(texts.size());
  for (const auto& [key, text] : owner) keys[text] = key;
  return keys;
}

std::string WithMark(std::string_view text, AccessKey key) {
  const std::vector<Character> characters = CharactersOf(text);
  std::size_t marked = characters.size();
  for (std::size_t i = characters.size(); key != 0 && i-- > 0;) {
    if (characters[i].code != key) continue;
    const bool found = marked < characters.size();
    if (!found || BeginsWord(characters, i) || !BeginsWord(characters, marked)) marked = i;
  }
  std::string out;
  for (std::size_t i = 0; i < characters.size(); ++i) {
    if (i == marked || characters[i].code == '&') out += '&';
    out += characters[i].written;
  }
  return out;
}

std::map<const ui::Control*, AccessKey> AccessKeysOf(const ui::Form& form) {
  std::vector<const ui::Control*> captioned;
  for (const ui::Control* control : form.Controls()) {
    if (!CaptionOf(*control).empty()) captioned.push_back(control);
  }
  std::ranges::stable_sort(captioned, {},
                           [](const ui::Control* control) { return Rank(*control); });
  std::vector<std::string> texts;
  texts.reserve(captioned.size());
  for (const ui::Control* control : captioned) texts.push_back(CaptionOf(*control));
  const std::vector<AccessKey> keys = ChooseAccessKeys(texts);
  std::map<const ui::Control*, AccessKey> key_of;
  for (std::size_t i = 0; i < captioned.size(); ++i) key_of[captioned[i]] = keys[i];
  return key_of;
}

}  // namespace pactora::dialogs
