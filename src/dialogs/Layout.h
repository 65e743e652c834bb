// Where the controls of a dialog stand, as data: every window system arranges them from here.
// Controls are called by their names.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace pactora::dialogs {

// Distances in pixels of a screen with 96 to the inch.
inline constexpr std::int32_t kMargin = 12;
inline constexpr std::int32_t kSpacing = 8;

// What takes a place: a control, or several things in an order of their own.
struct Item {
  enum class Kind {
    Control,  // a frame has one item: what stands in it
    Row,
    Column,
    Grid,
    Stack,  // frames in one place, the one in front is seen
    Space,
  };
  enum class Align { Fill, Top, Center };

  // A control.
  Item(const char* name) : control(name) {}  // NOLINT: a name stands for its control
  Item(Kind of_kind, std::vector<Item> of_items) : kind(of_kind), items(std::move(of_items)) {}

  Kind kind = Kind::Control;
  std::string control;
  std::vector<Item> items;
  Align align = Align::Fill;
  // The share of the room that is left over in a row or column.
  std::int32_t stretch = 0;
  std::int32_t width = 0;  // of a space, at least
  std::int32_t height = 0;

  // In a grid.
  std::int32_t row = 0;
  std::int32_t column = 0;
  std::int32_t rows = 1;
  std::int32_t columns = 1;

  // Of a grid: the shares of its columns and rows, by number; those left out have none.
  std::vector<std::int32_t> column_stretch;
  std::vector<std::int32_t> row_stretch;
  std::int32_t column_spacing = kSpacing;
  std::int32_t row_spacing = kSpacing;
};

Item Row(std::vector<Item> items);
Item Column(std::vector<Item> items);
Item Grid(std::vector<Item> cells, std::vector<std::int32_t> column_stretch,
          std::vector<std::int32_t> row_stretch = {});
Item Stack(std::vector<Item> frames);
Item Frame(const char* name, Item content);
// Room that nothing needs.
Item Stretch();
Item Gap(std::int32_t width, std::int32_t height);

Item Stretched(Item item);
Item At(std::int32_t row, std::int32_t column, Item item, std::int32_t columns = 1);
Item Aligned(Item::Align align, Item item);

struct Layout {
  std::string form;  // class name
  Item body;
  // The strip below the body, which stays when the body is scrolled: notes at the left,
  // buttons at the right. Without both there is none.
  std::vector<std::string> notes = {};
  std::vector<std::string> buttons = {};

  std::vector<std::string> wrapped = {};        // labels that take several lines where they must
  std::vector<std::string> right_aligned = {};  // boxes of numbers
  std::vector<std::string> keep_place = {};     // their place stays free while they are hidden
  std::vector<std::string> plain_frames = {};   // without a line: in line with their surroundings
  // All of one group are as wide as the widest of them.
  std::vector<std::vector<std::string>> same_width = {};
  // What a control is called that has no label, or only signs on it.
  std::vector<std::pair<std::string, std::string>> names = {};
  // Double click and return key on a row of the list view press the button.
  std::vector<std::pair<std::string, std::string>> opened_by = {};
};

}  // namespace pactora::dialogs
