#include "desktop/binding/Binder.h"

#include "desktop/text.h"

namespace pactora::desktop {

void Binder::Show(ui::Property property) {
  switch (property) {
    case ui::Property::Enabled:
      return ShowEnabled(control_.Enabled());
    case ui::Property::Visible:
      return ShowVisible(control_.Visible());
    case ui::Property::ToolTip:
      return ShowToolTip();
    default:
      return ShowOwn(property);
  }
}

// A button of signs says what it is called.
void Binder::ShowToolTip() {
  const bool named = control_.Kind() == ui::ControlKind::Button && control_.ToolTip().empty();
  Widget().setToolTip(named ? Widget().accessibleName() : ToQt(control_.ToolTip()));
}

void Binder::ShowAll() {
  using enum ui::Property;
  for (const ui::Property property : {Items, Rows, Text, Caption, Value, Selection, ForeColor,
                                      BackColor, Bold, Order, Enabled, Visible, ToolTip}) {
    Show(property);
  }
  Refresh();
}

void Binder::SetAccessKey(dialogs::AccessKey key) {
  access_key_ = key;
  if (const QString text = MarkableText(); !text.isEmpty()) ShowMarked(Marked(text));
}

void Binder::SetName(const QString& name) {
  if (Widget().accessibleName().isEmpty()) Widget().setAccessibleName(name);
  for (QWidget* stop : FocusStops())
    if (stop->accessibleName().isEmpty()) stop->setAccessibleName(Widget().accessibleName());
}

QString Binder::Marked(const QString& text) const {
  return ToQt(dialogs::WithMark(FromQt(text), access_key_));
}

void Binder::Act(const PersonDoor::Action& action) {
  if (!door_.Act(control_, action)) ShowAll();
}

}  // namespace pactora::desktop
