#include "dialogs/Layout.h"

namespace pactora::dialogs {

Item Row(std::vector<Item> items) { return {Item::Kind::Row, std::move(items)}; }

Item Column(std::vector<Item> items) { return {Item::Kind::Column, std::move(items)}; }

Item Grid(std::vector<Item> cells, std::vector<std::int32_t> column_stretch,
          std::vector<std::int32_t> row_stretch) {
  Item grid(Item::Kind::Grid, std::move(cells));
  grid.column_stretch = std::move(column_stretch);
  grid.row_stretch = std::move(row_stretch);
  return grid;
}

Item Stack(std::vector<Item> frames) { return {Item::Kind::Stack, std::move(frames)}; }

Item Frame(const char* name, Item content) {
  Item frame(name);
  frame.items.push_back(std::move(content));
  return frame;
}

Item Stretch() { return Stretched(Gap(0, 0)); }

Item Gap(std::int32_t width, std::int32_t height) {
  Item space(Item::Kind::Space, {});
  space.width = width;
  space.height = height;
  return space;
}

Item Stretched(Item item) {
  item.stretch = 1;
  return item;
}

Item At(std::int32_t row, std::int32_t column, Item item, std::int32_t columns) {
  item.row = row;
  item.column = column;
  item.columns = columns;
  return item;
}

Item Aligned(Item::Align align, Item item) {
  item.align = align;
  return item;
}

}  // namespace pactora::dialogs
