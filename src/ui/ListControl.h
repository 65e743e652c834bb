// The entries of a combo box or a list box: a text and a whole number each, and
// at most one of them chosen. Positions count from 0, -1 is none.
#pragma once

#include "ui/Control.h"

namespace pactora::ui {

struct ListItem {
  std::string text;
  std::int32_t data = 0;

  friend bool operator==(const ListItem&, const ListItem&) = default;
};

class ListControl : public Control {
 public:
  static constexpr std::int32_t kNone = -1;

  // Another entry was chosen, or none is any more.
  std::function<void()> Click;

  std::int32_t Count() const { return static_cast<std::int32_t>(items_.size()); }
  const std::vector<ListItem>& Items() const { return items_; }
  // All that take a position raise error 9 for one that does not exist, -1
  // included.
  const std::string& ItemText(std::int32_t index) const;
  std::int32_t ItemData(std::int32_t index) const;
  // The position of the first entry with exactly this text or data, or -1.
  std::int32_t FindText(std::string_view text) const;
  std::int32_t FindData(std::int32_t data) const;

  // The choice stays; nothing runs.
  void AddItem(std::string text, std::int32_t data = 0);
  void SetItemText(std::int32_t index, std::string text);
  void SetItemData(std::int32_t index, std::int32_t data);
  // No entries, none chosen, no text; nothing runs.
  void Clear();

  std::int32_t ListIndex() const { return list_index_; }
  // Chooses an entry, or none with -1. Runs Click if another one was chosen.
  void SetListIndex(std::int32_t index);

 protected:
  using Control::Control;
  virtual void SelectionMoved() {}
  void MoveSelection(std::int32_t index) { list_index_ = index; }

 private:
  const ListItem& At(std::int32_t index) const;
  ListItem& At(std::int32_t index);

  std::vector<ListItem> items_;
  std::int32_t list_index_ = kNone;
};

}  // namespace pactora::ui
