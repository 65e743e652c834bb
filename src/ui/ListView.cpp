#include "ui/ListView.h"

#include <algorithm>
#include <utility>

#include "platform/Error.h"

namespace pactora::ui {
namespace {

const std::string kNoText;

}  // namespace

std::int32_t ListView::FirstShownColumn() const {
  const auto shown = std::ranges::find_if(columns_, [](const Column& c) { return c.width != 0; });
  return shown == columns_.end() ? 0 : static_cast<std::int32_t>(shown - columns_.begin());
}

const ListView::Row& ListView::At(std::int32_t row) const {
  if (row == 0) platform::Raise(platform::RuntimeError::ObjectNotSet);
  if (row < 0 || row > RowCount()) platform::Raise(platform::RuntimeError::IndexOutOfRange);
  return rows_[static_cast<std::size_t>(row - 1)];
}

std::int32_t ListView::AddRow(std::string text, std::vector<std::string> sub_items,
                              std::string tool_tip) {
  Row row{std::move(sub_items), std::move(tool_tip)};
  row.texts.insert(row.texts.begin(), std::move(text));
  rows_.push_back(std::move(row));
  if (selected_row_ == 0) selected_row_ = RowCount();
  NotifyChanged(Property::Rows);
  return RowCount();
}

void ListView::RemoveRow(std::int32_t row) {
  At(row);
  rows_.erase(rows_.begin() + (row - 1));
  if (selected_row_ == row) {
    selected_row_ = 0;
  } else if (selected_row_ > row) {
    --selected_row_;
  }
  NotifyChanged(Property::Rows);
}

void ListView::ClearRows() {
  if (rows_.empty()) return;
  rows_.clear();
  selected_row_ = 0;
  NotifyChanged(Property::Rows);
}

const std::string& ListView::Text(std::int32_t row, std::int32_t column) const {
  const auto& texts = At(row).texts;
  if (column < 0) platform::Raise(platform::RuntimeError::IndexOutOfRange);
  const auto position = static_cast<std::size_t>(column);
  return position < texts.size() ? texts[position] : kNoText;
}

void ListView::SetText(std::int32_t row, std::int32_t column, std::string text) {
  At(row);
  if (column < 0) platform::Raise(platform::RuntimeError::IndexOutOfRange);
  auto& texts = rows_[static_cast<std::size_t>(row - 1)].texts;
  const auto position = static_cast<std::size_t>(column);
  if (position >= texts.size()) texts.resize(position + 1);
  texts[position] = std::move(text);
  NotifyChanged(Property::Rows);
}

const std::string& ListView::RowToolTip(std::int32_t row) const { return At(row).tool_tip; }

void ListView::SelectRow(std::int32_t row) {
  if (row != 0) At(row);
  if (row == selected_row_) return;
  selected_row_ = row;
  NotifyChanged(Property::Selection);
}

}  // namespace pactora::ui
