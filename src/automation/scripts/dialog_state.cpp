#include "automation/scripts/dialog_state.h"

#include "platform/Date.h"
#include "ui/controls.h"

namespace pactora::scripts {
namespace {

void AddItems(formats::Json& event, const ui::ListControl& list) {
  formats::Json& items = event["items"] = formats::Json::array();
  for (const ui::ListItem& item : list.Items()) {
    items.push_back(formats::Json{{"text", item.text}, {"data", item.data}});
  }
  event["index"] = list.ListIndex();
}

void AddRows(formats::Json& event, const ui::ListView& view) {
  formats::Json& rows = event["rows"] = formats::Json::array();
  for (std::int32_t row = 1; row <= view.RowCount(); ++row) {
    formats::Json texts = formats::Json::array();
    for (std::int32_t column = 0; column < std::ssize(view.Columns()); ++column) {
      texts.push_back(view.Text(row, column));
    }
    rows.push_back(std::move(texts));
  }
  event["row"] = view.SelectedRow();
}

void AddContent(formats::Json& event, const ui::Control& control) {
  switch (control.Kind()) {
    case ui::ControlKind::TextBox:
      event["text"] = dynamic_cast<const ui::TextBox&>(control).Text();
      return;
    case ui::ControlKind::ComboBox:
      event["text"] = dynamic_cast<const ui::ComboBox&>(control).Text();
      return AddItems(event, dynamic_cast<const ui::ListControl&>(control));
    case ui::ControlKind::ListBox:
      return AddItems(event, dynamic_cast<const ui::ListControl&>(control));
    case ui::ControlKind::ListView:
      return AddRows(event, dynamic_cast<const ui::ListView&>(control));
    case ui::ControlKind::OptionButton: {
      const auto& option = dynamic_cast<const ui::OptionButton&>(control);
      event["caption"] = option.Caption();
      event["value"] = option.Value();
      return;
    }
    case ui::ControlKind::CheckBox: {
      const auto& box = dynamic_cast<const ui::CheckBox&>(control);
      event["caption"] = box.Caption();
      event["value"] = box.Checked();
      return;
    }
    case ui::ControlKind::DTPicker: {
      const auto& picker = dynamic_cast<const ui::DTPicker&>(control);
      event["value"] =
          picker.IsNull() ? formats::Json() : formats::Json(platform::FormatIso(picker.Value()));
      return;
    }
    case ui::ControlKind::Label:
      event["caption"] = dynamic_cast<const ui::Label&>(control).Caption();
      return;
    case ui::ControlKind::Frame:
      event["caption"] = dynamic_cast<const ui::Frame&>(control).Caption();
      return;
    case ui::ControlKind::Button:
      event["caption"] = dynamic_cast<const ui::Button&>(control).Caption();
      return;
  }
}

}  // namespace

formats::Json ControlEvent(const ui::Control& control) {
  formats::Json event{{"event", "control"},
                      {"dialog", control.OwnerForm().ClassName()},
                      {"name", control.Name()},
                      {"enabled", control.Enabled()},
                      {"visible", control.Visible()}};
  AddContent(event, control);
  return event;
}

}  // namespace pactora::scripts
