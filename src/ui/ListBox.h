// An open list of which one entry can be chosen.
#pragma once

#include "ui/ListControl.h"

namespace pactora::ui {

class ListBox final : public ListControl {
 public:
  ListBox(Container& parent, std::string name)
      : ListControl(parent, ControlKind::ListBox, std::move(name)) {}

  std::uint32_t BackColor() const { return back_color_; }
  void SetBackColor(std::uint32_t back_color);

 private:
  std::uint32_t back_color_ = color::kWindowBackground;
};

}  // namespace pactora::ui
