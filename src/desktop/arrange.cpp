#include "desktop/arrange.h"

#include <QBoxLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTreeView>
#include <algorithm>
#include <stdexcept>
#include <string>

#include "desktop/FrameWidget.h"
#include "desktop/binding/ChoosingView.h"
#include "desktop/text.h"

namespace pactora::desktop {
namespace {

using dialogs::Item;
using dialogs::kMargin;

template <typename Layout>
Layout* Plain(Layout* layout) {
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(dialogs::kSpacing);
  return layout;
}

Qt::Alignment AlignmentOf(const Item& item) {
  switch (item.align) {
    case Item::Align::Top:
      return Qt::AlignTop;
    case Item::Align::Center:
      return Qt::AlignCenter;
    default:
      return {};
  }
}

bool IsGroup(const Item& item) {
  return item.kind == Item::Kind::Row || item.kind == Item::Kind::Column ||
         item.kind == Item::Kind::Grid;
}

class Arranger {
 public:
  explicit Arranger(const FindWidget& find) : find_(find) {}

  QWidget& operator[](const std::string& control) const {
    QWidget* widget = find_(control);
    if (!widget) throw std::invalid_argument("no control " + control);
    return *widget;
  }
  template <typename T>
  T& Get(const std::string& control) const {
    return dynamic_cast<T&>((*this)[control]);
  }

  QLayout* Make(const Item& group) const {
    if (group.kind == Item::Kind::Grid) return MakeGrid(group);
    const bool is_row = group.kind == Item::Kind::Row;
    auto* box = Plain(new QBoxLayout(is_row ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom));
    for (const Item& item : group.items) {
      if (item.kind == Item::Kind::Space && item.stretch > 0)
        box->addStretch(item.stretch);
      else if (item.kind == Item::Kind::Space)
        box->addSpacing(is_row ? item.width : item.height);
      else if (IsGroup(item))
        box->addLayout(static_cast<QLayout*>(Make(item)), item.stretch);
      else
        box->addWidget(&MakeWidget(item), item.stretch, AlignmentOf(item));
    }
    return box;
  }

 private:
  QLayout* MakeGrid(const Item& group) const {
    auto* grid = Plain(new QGridLayout);
    grid->setHorizontalSpacing(group.column_spacing);
    grid->setVerticalSpacing(group.row_spacing);
    for (const Item& cell : group.items) {
      if (cell.kind == Item::Kind::Space) {
        grid->setRowMinimumHeight(cell.row, cell.height);
        grid->setColumnMinimumWidth(cell.column, cell.width);
      } else if (IsGroup(cell)) {
        grid->addLayout(Make(cell), cell.row, cell.column, cell.rows, cell.columns);
      } else {
        grid->addWidget(&MakeWidget(cell), cell.row, cell.column, cell.rows, cell.columns,
                        AlignmentOf(cell));
      }
    }
    for (int i = 0; i < static_cast<int>(group.column_stretch.size()); ++i)
      grid->setColumnStretch(i, group.column_stretch[static_cast<std::size_t>(i)]);
    for (int i = 0; i < static_cast<int>(group.row_stretch.size()); ++i)
      grid->setRowStretch(i, group.row_stretch[static_cast<std::size_t>(i)]);
    return grid;
  }

  QWidget& MakeWidget(const Item& item) const {
    if (item.kind == Item::Kind::Stack) {
      auto* stack = new QStackedWidget;
      for (const Item& frame : item.items) stack->addWidget(&MakeWidget(frame));
      return *stack;
    }
    QWidget& widget = (*this)[item.control];
    if (!item.items.empty()) widget.setLayout(Make(item.items.front()));
    return widget;
  }

  const FindWidget& find_;
};

QWidget* MakeFooter(const dialogs::Layout& layout, const Arranger& widgets) {
  if (layout.notes.empty() && layout.buttons.empty()) return nullptr;
  std::vector<Item> items;
  for (const std::string& note : layout.notes) items.emplace_back(note.c_str());
  items.push_back(dialogs::Stretch());
  for (const std::string& button : layout.buttons) items.emplace_back(button.c_str());
  auto* strip = new QWidget;
  strip->setLayout(widgets.Make(dialogs::Row(std::move(items))));
  strip->layout()->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  return strip;
}

// After the button was pressed the view has the focus again, for the next row.
void OpenRowsBy(ChoosingView<QTreeView>& view, QPushButton& button) {
  view.Opened = [&view, &button] {
    if (!button.isEnabled()) return;
    button.click();
    view.setFocus();
  };
}

void MakeSameWidth(const std::vector<std::string>& controls, const Arranger& widgets) {
  int widest = 0;
  for (const std::string& control : controls)
    widest = std::max(widest, widgets[control].sizeHint().width());
  for (const std::string& control : controls) widgets[control].setMinimumWidth(widest);
}

}  // namespace

QWidget* Arrange(const dialogs::Layout& layout, QWidget& body, const FindWidget& find) {
  const Arranger widgets(find);
  body.setLayout(widgets.Make(layout.body));
  QWidget* footer = MakeFooter(layout, widgets);
  body.layout()->setContentsMargins(kMargin, kMargin, kMargin, footer ? 0 : kMargin);

  for (const std::string& label : layout.wrapped) widgets.Get<QLabel>(label).setWordWrap(true);
  for (const std::string& box : layout.right_aligned)
    widgets.Get<QLineEdit>(box).setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  for (const std::string& control : layout.keep_place) {
    QSizePolicy policy = widgets[control].sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widgets[control].setSizePolicy(policy);
  }
  for (const std::string& frame : layout.plain_frames) widgets.Get<FrameWidget>(frame).SetPlain();
  for (const auto& [control, name] : layout.names) widgets[control].setAccessibleName(ToQt(name));
  for (const auto& [view, button] : layout.opened_by)
    OpenRowsBy(widgets.Get<ChoosingView<QTreeView>>(view), widgets.Get<QPushButton>(button));
  for (const auto& group : layout.same_width) MakeSameWidth(group, widgets);
  MakeSameWidth(layout.buttons, widgets);
  return footer;
}

}  // namespace pactora::desktop
