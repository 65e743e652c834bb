// A button that does something.
#pragma once

#include "ui/Control.h"

namespace pactora::ui {

class Button final : public Control {
 public:
  // Default is pressed by the return key, Cancel by the escape key and by closing
  // the dialog's window; pressing Cancel validates no box.
  enum class Role { Plain, Default, Cancel };

  Button(Container& parent, std::string name, std::string caption, Role role = Role::Plain)
      : Control(parent, ControlKind::Button, std::move(name)),
        caption_(std::move(caption)),
        role_(role) {}

  std::function<void()> Click;

  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string caption);
  Role GetRole() const { return role_; }

 private:
  friend class Person;
  std::string caption_;
  const Role role_;
};

}  // namespace pactora::ui
