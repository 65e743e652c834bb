// Rectangles of controls: nothing overlaps, nothing is smaller than it wishes, all room is used.
#include <gtest/gtest.h>

#include "dialogs/arrangement.h"
#include "dialogs/layouts.h"

namespace pactora::dialogs {
namespace {

// Boxes are 60 by 20, those called list... grow; frames have 3 pixels around, 10 above.
struct Sizes final : Measures {
  std::string hidden;

  Wish WishOf(const std::string& control) const override {
    const bool grows = control.starts_with("list") || control.starts_with("lvw");
    return {60, 20, grows || control.starts_with("txt"), grows};
  }
  ui::Rectangle BorderOf(const std::string&) const override { return {3, 10, 3, 3}; }
  bool TakesPlace(const std::string& control) const override { return control != hidden; }
  std::int32_t Scaled(std::int32_t pixels) const override { return pixels; }
};

struct Case {
  const char* name;
  Item item;
  const char* hidden;
  const char* places;
};

std::string Written(const Places& places) {
  std::string out;
  for (const auto& [name, place] : places)
    out += name + " " + std::to_string(place.left) + "," + std::to_string(place.top) + "-" +
           std::to_string(place.right) + "," + std::to_string(place.bottom) + " ";
  return out;
}

TEST(Arrangement, GivesEachItsPlaceAndLeftOverRoomToWhatTakesIt) {
  const Case cases[] = {
      {"row with a stretch", Row({"a", Stretch(), "b"}), "", "a 0,0-60,100 b 140,0-200,100 "},
      {"column", Column({"a", Stretched("list"), "b"}), "",
       "a 0,0-200,20 b 0,80-200,100 list 0,28-200,72 "},
      {"what is hidden takes no place", Column({"a", "list", "b"}), "b",
       "a 0,0-200,20 list 0,28-200,100 "},
      {"shares of columns", Grid({At(0, 0, "a"), At(0, 1, "b")}, {1, 3}, {1}), "",
       "a 0,0-78,100 b 86,0-200,100 "},
      {"a part over two columns", Grid({At(0, 0, "a"), At(0, 1, "txt"), At(1, 0, "b", 2)}, {}), "",
       "a 0,0-60,46 b 0,54-200,100 txt 68,0-200,46 "},
      {"a share of an empty row", Grid({At(0, 0, "a"), At(1, 0, "b")}, {}, {0, 0, 1}), "",
       "a 0,0-200,20 b 0,28-200,48 "},
      {"content of a frame", Frame("f", Column({"list"})), "", "f 0,0-200,100 list 3,10-197,97 "},
      {"alignment", Column({Aligned(Item::Align::Center, "a")}), "", "a 70,40-130,60 "},
  };
  for (const Case& one : cases) {
    Sizes sizes;
    sizes.hidden = one.hidden;
    EXPECT_EQ(Written(Arrange(one.item, {0, 0, 200, 100}, sizes)), one.places) << one.name;
  }
}

void ExpectInside(const Item& item, const Places& places, std::int32_t width, std::int32_t height,
                  const std::string& form) {
  std::vector<ui::Rectangle> siblings;
  const std::function<void(const Item&)> walk = [&](const Item& part) {
    if (part.kind != Item::Kind::Control) {
      for (const Item& inner : part.items) walk(inner);
      return;
    }
    const ui::Rectangle& place = places.at(part.control);
    const std::string where = form + " " + part.control;
    EXPECT_TRUE(place.left >= 0 && place.top >= 0 && place.right <= width && place.bottom <= height)
        << where;
    EXPECT_TRUE(place.right - place.left >= 60 && place.bottom - place.top >= 20) << where;
    if (!part.items.empty())
      ExpectInside(part.items.front(), places, place.right - place.left, place.bottom - place.top,
                   where);
  };
  walk(item);
}

TEST(Arrangement, OfEachDialogKeepsEveryControlInsideAndLargeEnough) {
  for (const Layout& layout :
       {NewContractLayout(), EditDefinitionsLayout(), EditDefPositionsLayout()}) {
    const Sizes sizes;
    const Wish wish = WishOf(layout.body, sizes);
    for (const std::int32_t more : {0, 1, 333}) {
      const std::int32_t width = wish.width + more;
      const std::int32_t height = wish.height + more;
      ExpectInside(layout.body, Arrange(layout.body, {0, 0, width, height}, sizes), width, height,
                   layout.form);
    }
  }
}

}  // namespace
}  // namespace pactora::dialogs
