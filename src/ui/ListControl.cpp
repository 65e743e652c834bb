#include "ui/ListControl.h"

#include <algorithm>
#include <utility>

#include "platform/Error.h"

namespace pactora::ui {

const ListItem& ListControl::At(std::int32_t index) const {
  if (index < 0 || index >= Count()) platform::Raise(platform::RuntimeError::IndexOutOfRange);
  return items_[static_cast<std::size_t>(index)];
}

ListItem& ListControl::At(std::int32_t index) {
  return const_cast<ListItem&>(std::as_const(*this).At(index));
}

const std::string& ListControl::ItemText(std::int32_t index) const { return At(index).text; }

std::int32_t ListControl::ItemData(std::int32_t index) const { return At(index).data; }

std::int32_t ListControl::FindText(std::string_view text) const {
  const auto found = std::ranges::find(items_, text, &ListItem::text);
  return found == items_.end() ? kNone : static_cast<std::int32_t>(found - items_.begin());
}

std::int32_t ListControl::FindData(std::int32_t data) const {
  const auto found = std::ranges::find(items_, data, &ListItem::data);
  return found == items_.end() ? kNone : static_cast<std::int32_t>(found - items_.begin());
}

void ListControl::AddItem(std::string text, std::int32_t data) {
  items_.push_back({std::move(text), data});
  NotifyChanged(Property::Items);
}

void ListControl::SetItemText(std::int32_t index, std::string text) {
  At(index).text = std::move(text);
  NotifyChanged(Property::Items);
}

void ListControl::SetItemData(std::int32_t index, std::int32_t data) { At(index).data = data; }

void ListControl::Clear() {
  items_.clear();
  list_index_ = kNone;
  SelectionMoved();
  NotifyChanged(Property::Items);
}

void ListControl::SetListIndex(std::int32_t index) {
  if (index != kNone) At(index);
  if (index == list_index_) return;
  list_index_ = index;
  SelectionMoved();
  NotifyChanged(Property::Selection);
  Raise(Click, "Click");
}

}  // namespace pactora::ui
