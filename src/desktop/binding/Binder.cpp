#include "desktop/binding/Binder.h"

#include "desktop/binding/access_keys.h"
#include "desktop/text.h"

namespace pactora::desktop {

void Binder::Show(ui::Property property) {
  switch (property) {
    case ui::Property::Enabled:
      return ShowEnabled(control_.Enabled());
    case ui::Property::Visible:
      return ShowVisible(control_.Visible());
    case ui::Property::ToolTip:
      return Widget().setToolTip(ToQt(control_.ToolTip()));
    default:
      return ShowOwn(property);
  }
}

void Binder::ShowAll() {
  using enum ui::Property;
  for (const ui::Property property : {Items, Rows, Text, Caption, Value, Selection, ForeColor,
                                      BackColor, Bold, Order, Enabled, Visible, ToolTip}) {
    Show(property);
  }
  Refresh();
}

void Binder::SetAccessKey(QChar letter) {
  access_key_ = letter;
  if (const QString text = MarkableText(); !text.isEmpty()) ShowMarked(Marked(text));
}

QString Binder::Marked(const QString& text) const {
  const qsizetype place = access_key_.isNull() ? -1 : PlaceOfKey(text, access_key_);
  if (place < 0) return WithoutMarks(text);
  return WithoutMarks(text.left(place)) + QLatin1Char('&') + text[place] +
         WithoutMarks(text.mid(place + 1));
}

void Binder::Act(const PersonDoor::Action& action) {
  if (!door_.Act(control_, action)) ShowAll();
}

}  // namespace pactora::desktop
