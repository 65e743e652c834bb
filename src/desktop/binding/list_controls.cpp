#include <QHeaderView>
#include <QListView>
#include <QTreeView>
#include <algorithm>
#include <numeric>

#include "desktop/binding/ChoosingView.h"
#include "desktop/binding/binders.h"
#include "desktop/binding/list_models.h"
#include "desktop/colors.h"
#include "desktop/text.h"

namespace pactora::desktop {
namespace {

constexpr int kLines = 6;            // that a list shows at least
constexpr int kNameCharacters = 36;  // of what distinguishes rows, besides the captions

int HeightOfLines(const QWidget& widget, int lines) {
  return (widget.fontMetrics().height() + RoomyDelegate::kAir) * lines;
}

class EntryView final : public ChoosingView<QListView> {
 public:
  using ChoosingView::ChoosingView;
  QSize sizeHint() const override {
    return {fontMetrics().averageCharWidth() * 28, HeightOfLines(*this, kLines)};
  }
  QSize minimumSizeHint() const override { return sizeHint(); }
};

// Columns share the width as the list says.
class RowView final : public ChoosingView<QTreeView> {
 public:
  RowView(const ui::ListView& list, QWidget* parent) : ChoosingView(parent), list_(list) {
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setItemsExpandable(false);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    header()->setSectionsMovable(false);
    header()->setStretchLastSection(false);
  }

  // To be called when the rows have changed.
  void ShowColumns() {
    for (int i = 0; i < header()->count(); ++i) setColumnHidden(i, Share(i) == 0);
    ShareWidth();
  }

  QSize sizeHint() const override {
    return {HeaderWidth() + fontMetrics().averageCharWidth() * kNameCharacters,
            HeightOfLines(*this, kLines + 1)};
  }
  QSize minimumSizeHint() const override { return {HeaderWidth(), HeightOfLines(*this, kLines)}; }

 protected:
  int FirstShown() const override { return list_.FirstShownColumn(); }
  void resizeEvent(QResizeEvent* event) override {
    ChoosingView::resizeEvent(event);
    ShareWidth();
  }

 private:
  int Share(int column) const { return list_.Columns()[static_cast<std::size_t>(column)].width; }

  int HeaderWidth() const {
    int width = 2 * frameWidth();
    for (int i = 0; i < header()->count(); ++i) {
      if (Share(i) != 0) width += header()->sectionSizeHint(i);
    }
    return width;
  }

  // No column is narrower than its caption; what it shows fits as well, except in
  // the column with the largest share, which gets what is left.
  void ShareWidth() {
    const auto& columns = list_.Columns();
    const int shares = std::accumulate(columns.begin(), columns.end(), 0,
                                       [](int sum, const auto& c) { return sum + c.width; });
    const auto largest = std::ranges::max_element(columns, {}, &ui::ListView::Column::width);
    const int room = viewport()->width();
    int left = room;
    for (int i = 0; i < header()->count(); ++i) {
      if (Share(i) == 0 || i == largest - columns.begin()) continue;
      const int width =
          std::max({room * Share(i) / shares, header()->sectionSizeHint(i), sizeHintForColumn(i)});
      header()->resizeSection(i, width);
      left -= width;
    }
    if (largest == columns.end() || largest->width == 0) return;
    const int widest = static_cast<int>(largest - columns.begin());
    header()->resizeSection(widest, qMax(left, header()->sectionSizeHint(widest)));
  }

  const ui::ListView& list_;
};

class ListBoxBinder final : public Binder {
 public:
  ListBoxBinder(ui::ListBox& box, PersonDoor& door, QWidget& parent)
      : Binder(door, box), box_(box), view_(*new EntryView(&parent)) {
    model_ = new EntryModel(box, &view_);
    view_.setModel(model_);
    view_.setUniformItemSizes(true);
    view_.Chosen = [this](int row) {
      Act([&](ui::Person& person) { return person.Choose(box_, row); });
    };
    view_.Missed = [this] {
      choice_changed_ = true;
      Refresh();
    };
  }

  QWidget& Widget() const override { return view_; }
  std::vector<QWidget*> PressTargets() const override { return {view_.viewport()}; }

  void Refresh() override {
    if (entries_changed_) model_->Reload();
    if (entries_changed_ || choice_changed_) view_.ShowRow(box_.ListIndex());
    entries_changed_ = choice_changed_ = false;
  }

 protected:
  void ShowOwn(ui::Property property) override {
    if (property == ui::Property::BackColor) {
      QPalette palette;
      palette.setColor(QPalette::Base, BackgroundColor(box_.BackColor(), palette));
      view_.setPalette(box_.BackColor() == ui::color::kWindowBackground ? QPalette() : palette);
      return;
    }
    if (property != ui::Property::Items && property != ui::Property::Selection) return;
    (property == ui::Property::Items ? entries_changed_ : choice_changed_) = true;
    door_.RefreshLater();
  }

 private:
  ui::ListBox& box_;
  EntryView& view_;
  EntryModel* model_ = nullptr;
  bool entries_changed_ = true;
  bool choice_changed_ = true;
};

class ListViewBinder final : public Binder {
 public:
  ListViewBinder(ui::ListView& list, PersonDoor& door, QWidget& parent)
      : Binder(door, list), list_(list), view_(*new RowView(list, &parent)) {
    model_ = new RowModel(list, &view_);
    view_.setModel(model_);
    view_.Chosen = [this](int row) {
      Act([&](ui::Person& person) { return person.Choose(list_, row); });
    };
    view_.Missed = [this] {
      choice_changed_ = true;
      Refresh();
    };
  }

  QWidget& Widget() const override { return view_; }
  std::vector<QWidget*> PressTargets() const override { return {view_.viewport()}; }

  void Refresh() override {
    if (rows_changed_) {
      model_->Reload();
      view_.ShowColumns();
    }
    if (rows_changed_ || choice_changed_) view_.ShowRow(list_.SelectedRow() - 1);
    rows_changed_ = choice_changed_ = false;
  }

 protected:
  void ShowOwn(ui::Property property) override {
    if (property != ui::Property::Rows && property != ui::Property::Selection) return;
    (property == ui::Property::Rows ? rows_changed_ : choice_changed_) = true;
    door_.RefreshLater();
  }

 private:
  ui::ListView& list_;
  RowView& view_;
  RowModel* model_ = nullptr;
  bool rows_changed_ = true;
  bool choice_changed_ = true;
};

}  // namespace

BinderPtr BindListBox(ui::ListBox& box, PersonDoor& door, QWidget& parent) {
  return std::make_unique<ListBoxBinder>(box, door, parent);
}

BinderPtr BindListView(ui::ListView& view, PersonDoor& door, QWidget& parent) {
  return std::make_unique<ListViewBinder>(view, door, parent);
}

}  // namespace pactora::desktop
