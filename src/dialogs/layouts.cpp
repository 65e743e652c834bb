#include "dialogs/layouts.h"

#include <algorithm>
#include <set>

#include "ui/Frame.h"

namespace pactora::dialogs {
namespace {

Item InOrder(const ui::Container& container);

Item InOrder(const ui::Control& control) {
  const auto* frame = dynamic_cast<const ui::Frame*>(&control);
  return frame ? Frame(control.Name().c_str(), InOrder(static_cast<const ui::Container&>(*frame)))
               : Item(control.Name().c_str());
}

// Controls one below the other, frames that overlap in one place.
Item InOrder(const ui::Container& container) {
  Item column = Column({});
  std::set<const ui::Control*> placed;
  for (const ui::Control* control : container.Children()) {
    if (!placed.insert(control).second) continue;
    const auto* frame = dynamic_cast<const ui::Frame*>(control);
    if (!frame || frame->Overlapping().empty()) {
      column.items.push_back(InOrder(*control));
      continue;
    }
    Item stack = Stack({InOrder(*control)});
    for (const ui::Frame* other : frame->Overlapping()) {
      placed.insert(other);
      stack.items.push_back(InOrder(static_cast<const ui::Control&>(*other)));
    }
    column.items.push_back(std::move(stack));
  }
  return column;
}

}  // namespace

Layout LayoutOf(const ui::Form& form) {
  for (const auto& layout_of : {NewContractLayout, EditDefinitionsLayout, EditDefPositionsLayout}) {
    Layout layout = layout_of();
    if (layout.form == form.ClassName()) return layout;
  }
  return {.form = form.ClassName(), .body = InOrder(static_cast<const ui::Container&>(form))};
}

}  // namespace pactora::dialogs
