#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <utility>

#include "platform/Locale.h"
#include "win32/binding/binders.h"
#include "win32/text.h"

namespace pactora::win32 {
namespace {

constexpr std::int32_t kLines = 6;            // that a list shows at least
constexpr std::int32_t kNameCharacters = 36;  // of what distinguishes rows, besides the captions
constexpr std::int32_t kEntryCharacters = 28;
constexpr std::int32_t kAir = 4;             // above and below a line together, at 96 to the inch
constexpr std::int32_t kCellInset = 8;       // left and right of a text
constexpr std::int32_t kMeasuredRows = 100;  // of a long list

class ListBoxBinder final : public Binder {
 public:
  ListBoxBinder(ui::ListBox& box, PersonDoor& door, HWND parent)
      : Binder(door, box),
        box_(box),
        list_(MakeControl(WC_LISTBOXW, LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL,
                          WS_EX_CLIENTEDGE, parent)) {
    HookPart(list_);
  }

  HWND Window() const override { return list_; }

  void ShowFont() override {
    Binder::ShowFont();
    SendMessageW(list_, LB_SETITEMHEIGHT, 0, Sizes().LineHeight() + Sizes().Scaled(kAir) / 2);
  }

  void Report(HWND, WORD code) override {
    if (code == LBN_SELCHANGE) door_.ChosenLater(*this);
  }
  void Chosen() override {
    const auto index = static_cast<std::int32_t>(SendMessageW(list_, LB_GETCURSEL, 0, 0));
    if (index == box_.ListIndex()) return;
    Act([&](ui::Person& person) { return person.Choose(box_, index); });
  }

  void Refresh() override {
    if (std::exchange(entries_changed_, false)) {
      SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
      SendMessageW(list_, LB_RESETCONTENT, 0, 0);
      for (const ui::ListItem& item : box_.Items())
        SendMessageW(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(item.text).c_str()));
      SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
      InvalidateRect(list_, nullptr, TRUE);
      choice_changed_ = true;
    }
    if (!std::exchange(choice_changed_, false)) return;
    SendMessageW(list_, LB_SETCURSEL, static_cast<WPARAM>(box_.ListIndex()), 0);
  }

  HBRUSH Paint(HDC device) override {
    if (box_.BackColor() == ui::color::kWindowBackground) return nullptr;
    // The only other colour that dialogs give is that of their surroundings.
    SetBkColor(device, GetSysColor(COLOR_BTNFACE));
    return GetSysColorBrush(COLOR_BTNFACE);
  }

  dialogs::Wish Wish() const override {
    return {Sizes().Characters(kEntryCharacters),
            (Sizes().LineHeight() + Sizes().Scaled(kAir)) * kLines, true, true};
  }

 protected:
  void ShowOwn(ui::Property property) override {
    if (property == ui::Property::BackColor) InvalidateRect(list_, nullptr, TRUE);
    if (property != ui::Property::Items && property != ui::Property::Selection) return;
    (property == ui::Property::Items ? entries_changed_ : choice_changed_) = true;
    door_.RefreshLater();
  }

 private:
  ui::ListBox& box_;
  const HWND list_;
  bool entries_changed_ = true;
  bool choice_changed_ = true;
};

// The system asks for the text of a row when it shows it; nothing is copied.
class ListViewBinder final : public Binder {
 public:
  ListViewBinder(ui::ListView& list, PersonDoor& door, HWND parent)
      : Binder(door, list),
        list_(list),
        view_(MakeControl(
            WC_LISTVIEWW,
            LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER | LVS_OWNERDATA,
            WS_EX_CLIENTEDGE, parent)) {
    constexpr LPARAM kStyles = LVS_EX_FULLROWSELECT | LVS_EX_INFOTIP | LVS_EX_DOUBLEBUFFER;
    SendMessageW(view_, LVM_SETEXTENDEDLISTVIEWSTYLE, static_cast<WPARAM>(kStyles), kStyles);
    HookPart(view_);
  }

  HWND Window() const override { return view_; }

  // A press is a choice of its row, also of the chosen one; where no row is it is none.
  Answered Message(const WindowMessage& message) override {
    if (message.id == WM_SIZE) {
      const LRESULT result = Pass(message);
      ShareWidth();
      return result;
    }
    if (message.id != WM_LBUTTONDOWN && message.id != WM_LBUTTONDBLCLK) return std::nullopt;
    pressing_ = true;
    const LRESULT result = Pass(message);
    pressing_ = false;
    LVHITTESTINFO hit{};
    hit.pt = {static_cast<short>(LOWORD(message.l)), static_cast<short>(HIWORD(message.l))};
    const auto row = static_cast<std::int32_t>(
        SendMessageW(view_, LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
    if (row >= 0) {
      Choose(row);
    } else {
      ShowChoice();
    }
    return result;
  }

  Answered Notify(NMHDR& report) override {
    switch (report.code) {
      case LVN_GETDISPINFOW: {
        LVITEMW& item = reinterpret_cast<NMLVDISPINFOW&>(report).item;
        if ((item.mask & LVIF_TEXT) == 0 || item.iItem >= list_.RowCount()) return 0;
        text_ = Wide(list_.Text(item.iItem + 1, shown_[static_cast<std::size_t>(item.iSubItem)]));
        item.pszText = text_.data();
        return 0;
      }
      case LVN_GETINFOTIPW: {
        auto& tip = reinterpret_cast<NMLVGETINFOTIPW&>(report);
        const std::wstring text = Wide(list_.RowToolTip(tip.iItem + 1));
        if (!text.empty()) lstrcpynW(tip.pszText, text.c_str(), tip.cchTextMax);
        return 0;
      }
      case LVN_ITEMCHANGED: {
        const auto& change = reinterpret_cast<NMLISTVIEW&>(report);
        const bool chosen =
            (change.uNewState & LVIS_SELECTED) != 0 && (change.uOldState & LVIS_SELECTED) == 0;
        if (chosen && !pressing_ && !showing_ && change.iItem >= 0) Choose(change.iItem);
        return 0;
      }
      default:
        return std::nullopt;
    }
  }

  void Refresh() override {
    if (shown_.empty()) MakeColumns();
    if (std::exchange(rows_changed_, false)) {
      showing_ = true;
      SendMessageW(view_, LVM_SETITEMCOUNT, static_cast<WPARAM>(list_.RowCount()), 0);
      showing_ = false;
      InvalidateRect(view_, nullptr, TRUE);
      Align();
      ShareWidth();
      choice_changed_ = true;
    }
    if (std::exchange(choice_changed_, false)) ShowChoice();
  }

  dialogs::Wish Wish() const override {
    return {HeaderWidth() + Sizes().Characters(kNameCharacters),
            (Sizes().LineHeight() + Sizes().Scaled(kAir)) * (kLines + 1), true, true};
  }

 protected:
  void ShowOwn(ui::Property property) override {
    if (property != ui::Property::Rows && property != ui::Property::Selection) return;
    (property == ui::Property::Rows ? rows_changed_ : choice_changed_) = true;
    door_.RefreshLater();
  }

 private:
  void Choose(std::int32_t row) {
    Act([&](ui::Person& person) { return person.Choose(list_, row); });
    ShowChoice();
  }

  void ShowChoice() {
    constexpr UINT kBoth = LVIS_SELECTED | LVIS_FOCUSED;
    const std::int32_t row = list_.SelectedRow() - 1;
    LVITEMW state{};
    state.stateMask = kBoth;
    showing_ = true;
    if (SendMessageW(view_, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED) != row) {
      SendMessageW(view_, LVM_SETITEMSTATE, static_cast<WPARAM>(-1),
                   reinterpret_cast<LPARAM>(&state));
    }
    if (row >= 0) {
      state.state = kBoth;
      SendMessageW(view_, LVM_SETITEMSTATE, static_cast<WPARAM>(row),
                   reinterpret_cast<LPARAM>(&state));
      SendMessageW(view_, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
    }
    showing_ = false;
  }

  const ui::ListView::Column& ColumnOf(std::size_t shown) const {
    return list_.Columns()[static_cast<std::size_t>(shown_[shown])];
  }

  void MakeColumns() {
    for (std::size_t i = 0; i < list_.Columns().size(); ++i) {
      if (list_.Columns()[i].width == 0) continue;
      const std::wstring caption = Wide(list_.Columns()[i].caption);
      LVCOLUMNW column{};
      column.mask = LVCF_TEXT | LVCF_SUBITEM;
      column.pszText = const_cast<wchar_t*>(caption.c_str());
      column.iSubItem = static_cast<int>(shown_.size());
      SendMessageW(view_, LVM_INSERTCOLUMNW, shown_.size(), reinterpret_cast<LPARAM>(&column));
      shown_.push_back(static_cast<std::int32_t>(i));
    }
  }

  // Numbers stand at the right.
  void Align() const {
    for (std::size_t i = 0; i < shown_.size(); ++i) {
      const std::string text = list_.RowCount() > 0 ? list_.Text(1, shown_[i]) : std::string();
      const bool number = platform::ParseNumber(text, platform::Locale{','}).has_value() ||
                          platform::ParseNumber(text, platform::Locale{'.'}).has_value();
      LVCOLUMNW column{};
      column.mask = LVCF_FMT;
      column.fmt = number ? LVCFMT_RIGHT : LVCFMT_LEFT;
      SendMessageW(view_, LVM_SETCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
    }
  }

  std::int32_t HeadingWidth(const ui::ListView::Column& column) const {
    return Sizes().WidthOf(column.caption) + 2 * Sizes().Scaled(kCellInset);
  }

  std::int32_t HeaderWidth() const {
    std::int32_t width = Sizes().Scaled(4);
    for (const ui::ListView::Column& column : list_.Columns()) {
      if (column.width != 0) width += HeadingWidth(column);
    }
    return width;
  }

  std::int32_t TextWidth(std::int32_t column) const {
    std::int32_t width = 0;
    for (std::int32_t row = 1; row <= std::min(list_.RowCount(), kMeasuredRows); ++row)
      width = std::max(width, Sizes().WidthOf(list_.Text(row, column)));
    return width + 2 * Sizes().Scaled(kCellInset);
  }

  // No column is narrower than its caption; what it shows fits as well, except in the column
  // with the largest share, which gets what is left.
  void ShareWidth() const {
    if (shown_.empty()) return;
    RECT area{};
    GetClientRect(view_, &area);
    std::int32_t shares = 0;
    std::size_t largest = 0;
    for (std::size_t i = 0; i < shown_.size(); ++i) {
      shares += ColumnOf(i).width;
      if (ColumnOf(i).width > ColumnOf(largest).width) largest = i;
    }
    std::int32_t left = area.right;
    for (std::size_t i = 0; i < shown_.size(); ++i) {
      if (i == largest) continue;
      const std::int32_t width =
          std::max<std::int32_t>({area.right * ColumnOf(i).width / shares,
                                  HeadingWidth(ColumnOf(i)), TextWidth(shown_[i])});
      SendMessageW(view_, LVM_SETCOLUMNWIDTH, i, width);
      left -= width;
    }
    SendMessageW(view_, LVM_SETCOLUMNWIDTH, largest,
                 std::max(left, HeadingWidth(ColumnOf(largest))));
  }

  ui::ListView& list_;
  const HWND view_;
  std::vector<std::int32_t> shown_;  // the columns that the system knows
  std::wstring text_;                // that the system shows just now
  bool rows_changed_ = true;
  bool choice_changed_ = true;
  bool pressing_ = false;
  bool showing_ = false;
};

}  // namespace

BinderPtr BindListBox(ui::ListBox& box, PersonDoor& door, HWND parent) {
  return std::make_unique<ListBoxBinder>(box, door, parent);
}

BinderPtr BindListView(ui::ListView& view, PersonDoor& door, HWND parent) {
  return std::make_unique<ListViewBinder>(view, door, parent);
}

}  // namespace pactora::win32
