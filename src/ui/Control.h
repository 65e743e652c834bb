// What every control of a dialog is: a named, enabled, visible thing in a
// container, which code changes by setters and a person by Person.h.
//
// A control is a member of its dialog and registers itself with its container
// when it is constructed; the order of construction is the tab order. It never
// moves and lives as long as its form.
//
// A handler runs on a real change of value, by code or by a person; setting the value
// that a control has already runs nothing.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "ui/obstacle.h"

namespace pactora::ui {

class Control;
class Form;
class Frame;

// Colours are 32-bit numbers: 0x800000.. names a colour of the system, anything
// else is red + 256 * green + 65536 * blue.
namespace color {
inline constexpr std::uint32_t kWindowBackground = 0x80000005;
inline constexpr std::uint32_t kWindowText = 0x80000008;
inline constexpr std::uint32_t kButtonFace = 0x8000000F;
inline constexpr std::uint32_t kRed = 255;
}  // namespace color

enum class ControlKind {
  TextBox,
  ComboBox,
  ListBox,
  ListView,
  OptionButton,
  CheckBox,
  DTPicker,
  Label,
  Frame,
  Button,
};

// What has changed, for an observer. Items are the entries of a combo or list
// box, Rows those of a list view, Selection the chosen one of either.
enum class Property {
  Enabled,
  Visible,
  ToolTip,
  Text,
  Caption,
  Value,
  Items,
  Rows,
  Selection,
  ForeColor,
  BackColor,
  Bold,
  Order,  // another frame of those that overlap came to the front
};

// A form or a frame: what controls stand in. The option buttons that stand
// directly in the same container exclude each other.
class Container {
 public:
  Container(const Container&) = delete;
  Container& operator=(const Container&) = delete;

  const std::vector<Control*>& Children() const { return children_; }
  Form& OwnerForm() const { return form_; }
  // The frame that this container is, or null for a form.
  Frame* AsFrame() const { return frame_; }

 protected:
  Container(Form& form, Frame* frame) : form_(form), frame_(frame) {}
  ~Container() = default;

 private:
  friend class Control;
  Form& form_;
  Frame* frame_;
  std::vector<Control*> children_;
};

class Control {
 public:
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  ControlKind Kind() const { return kind_; }
  const std::string& Name() const { return name_; }
  Form& OwnerForm() const { return parent_.OwnerForm(); }
  Container& Parent() const { return parent_; }

  // The control's own settings, whatever its frame's.
  bool Enabled() const { return enabled_; }
  void SetEnabled(bool enabled);
  bool Visible() const { return visible_; }
  void SetVisible(bool visible);
  const std::string& ToolTip() const { return tool_tip_; }
  void SetToolTip(std::string tool_tip);

  // Labels and frames never have the focus.
  bool TakesFocus() const { return kind_ != ControlKind::Label && kind_ != ControlKind::Frame; }
  bool HasFocus() const;
  // Moves the focus here by program; the box that had it is not validated. On a
  // form that is not shown yet it decides where the focus is at first. Nothing
  // happens for a control that a person cannot reach.
  void SetFocus();

  // Why a person cannot act on this control now, its frames included;
  // Obstacle::None when nothing stands in the way.
  Obstacle Reach() const;

 protected:
  Control(Container& parent, ControlKind kind, std::string name);

  void NotifyChanged(Property property) const;
  // Runs a handler as the event procedure name_event, if one is set. False when
  // the form caught an error that it raised.
  template <typename... Args>
  bool Raise(const std::function<void(Args...)>& handler, std::string_view event,
             std::type_identity_t<Args>... args) {
    if (!handler) return true;
    return Dispatch(event, [&] { handler(args...); });
  }

 private:
  bool Dispatch(std::string_view event, const std::function<void()>& body);

  Container& parent_;
  const ControlKind kind_;
  const std::string name_;
  bool enabled_ = true;
  bool visible_ = true;
  std::string tool_tip_;
};

}  // namespace pactora::ui
