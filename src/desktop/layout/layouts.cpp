#include "desktop/layout/layouts.h"

#include <QStackedWidget>

#include "desktop/layout/DialogLayout.h"
#include "ui/Frame.h"

namespace pactora::desktop {
namespace {

struct Layout {
  std::string_view form;
  QWidget* (*arrange)(const DialogLayout& dialog);
};

constexpr Layout kLayouts[] = {
    {"frmNewContract", ArrangeNewContract},
    {"frmFEditDefinitions", ArrangeEditDefinitions},
    {"frmFEditDefPositions", ArrangeEditDefPositions},
};

// Controls one below the other, frames that overlap in one place.
void ArrangeInOrder(const ui::Container& container, QWidget& owner, const DialogLayout& dialog) {
  QVBoxLayout* column = dialog.Column(owner);
  QHash<const ui::Frame*, QStackedWidget*> stacks;
  for (const ui::Control* control : container.Children()) {
    QWidget& widget = dialog[control->Name()];
    const auto* frame = dynamic_cast<const ui::Frame*>(control);
    if (!frame || frame->Overlapping().empty()) {
      column->addWidget(&widget);
    } else {
      QStackedWidget* stack = stacks.value(frame);
      if (!stack) {
        stack = new QStackedWidget;
        column->addWidget(stack);
      }
      stack->addWidget(&widget);
      for (const ui::Frame* other : frame->Overlapping()) stacks[other] = stack;
    }
    if (frame) ArrangeInOrder(*frame, widget, dialog);
  }
}

}  // namespace

QWidget* Arrange(const ui::Form& form, QWidget& body, const FindWidget& find) {
  const DialogLayout dialog(body, find);
  for (const Layout& layout : kLayouts) {
    if (layout.form == form.ClassName()) return layout.arrange(dialog);
  }
  ArrangeInOrder(form, body, dialog);
  body.layout()->setContentsMargins(DialogLayout::kMargin, DialogLayout::kMargin,
                                    DialogLayout::kMargin, DialogLayout::kMargin);
  return nullptr;
}

}  // namespace pactora::desktop
