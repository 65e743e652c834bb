// Where the controls of a laid-out dialog stand, for window systems that know no layouts:
// sizes in, rectangles out.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "dialogs/Layout.h"
#include "ui/XPFrame.h"

namespace pactora::dialogs {

// How large something is at least, and whether it takes more room than that where some is
// left over.
struct Wish {
  std::int32_t width = 0;
  std::int32_t height = 0;
  bool grows_wide = false;
  bool grows_high = false;
};

// What the window system knows of a control. All sizes are pixels of the screen.
class Measures {
 public:
  virtual ~Measures() = default;
  virtual Wish WishOf(const std::string& control) const = 0;
  // Of a frame: what lies between its edges and its content.
  virtual ui::Rectangle BorderOf(const std::string& frame) const = 0;
  // Whether the control takes a place now.
  virtual bool TakesPlace(const std::string& control) const = 0;
  // Pixels of this screen for those of one with 96 to the inch.
  virtual std::int32_t Scaled(std::int32_t pixels) const = 0;
};

using Places = std::map<std::string, ui::Rectangle>;

// The smallest size that shows all of the item.
Wish WishOf(const Item& item, const Measures& measures);
// The rectangles of all controls in the item when it fills the room, which is at least that
// large; those of controls in a frame count from the frame's left upper corner.
Places Arrange(const Item& item, const ui::Rectangle& room, const Measures& measures);

}  // namespace pactora::dialogs
