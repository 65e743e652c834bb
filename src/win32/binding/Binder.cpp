#include "win32/binding/Binder.h"

#include <algorithm>

#include "ui/Frame.h"
#include "win32/text.h"

namespace pactora::win32 {
namespace {

// A window in a disabled frame looks disabled, too.
bool LooksEnabled(const ui::Control& control) {
  if (!control.Enabled()) return false;
  const ui::Frame* frame = control.Parent().AsFrame();
  return frame == nullptr || LooksEnabled(*frame);
}

bool IsShown(const ui::Control& control) {
  const auto* frame = dynamic_cast<const ui::Frame*>(&control);
  return control.Visible() && !(frame && frame->Behind());
}

}  // namespace

void Binder::Show(ui::Property property) {
  switch (property) {
    case ui::Property::Enabled:
      return ShowEnabled(LooksEnabled(control_));
    case ui::Property::Visible:
    case ui::Property::Order:
      return ShowOrHide(Window(), IsShown(control_));
    default:
      return ShowOwn(property);
  }
}

void Binder::ShowAll() {
  using enum ui::Property;
  for (const ui::Property property : {Items, Rows, Text, Caption, Value, Selection, ForeColor,
                                      BackColor, Bold, Enabled, Visible}) {
    Show(property);
  }
  Refresh();
}

void Binder::ShowFont() {
  for (const HWND part : Parts())
    SendMessageW(part, WM_SETFONT, reinterpret_cast<WPARAM>(Sizes().Font()), TRUE);
}

void Binder::SetAccessKey(dialogs::AccessKey key) {
  access_key_ = key;
  Show(ui::Property::Caption);
}

void Binder::Place(const ui::Rectangle& room) {
  const dialogs::Wish wish = Wish();
  ui::Rectangle place = room;
  if (!wish.grows_high) {  // in the middle of a higher room
    place.top += std::max(0, (room.bottom - room.top - wish.height) / 2);
    place.bottom = place.top + wish.height;
  }
  Move(Window(), place);
}

void Binder::HookPart(HWND part) {
  hooks_.emplace_back(part, std::make_unique<Hook>(part, [this](const WindowMessage& message) {
                        const Answered answer = door_.Before(*this, message);
                        return answer ? answer : Message(message);
                      }));
}

LRESULT Binder::Pass(const WindowMessage& message) const {
  const auto hook =
      std::ranges::find(hooks_, message.window, [](const auto& part) { return part.first; });
  return hook->second->Pass(message);
}

void Binder::ShowCaption(const std::string& caption) {
  SetWindowTextW(Window(), Wide(dialogs::WithMark(caption, access_key_)).c_str());
}

void Binder::Act(const PersonDoor::Action& action) {
  if (!door_.Act(control_, action)) ShowAll();
}

}  // namespace pactora::win32
