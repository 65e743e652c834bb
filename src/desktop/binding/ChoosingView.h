// A view of a list in which a person chooses one row, by mouse or keyboard.
#pragma once

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyledItemDelegate>
#include <functional>

namespace pactora::desktop {

// Rows with air around their text.
class RoomyDelegate final : public QStyledItemDelegate {
 public:
  static constexpr int kAir = 6;  // pixels above and below together

  using QStyledItemDelegate::QStyledItemDelegate;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return QStyledItemDelegate::sizeHint(option, index).grownBy(QMargins(0, 0, 0, kAir));
  }
};

template <typename View>
class ChoosingView : public View {
 public:
  explicit ChoosingView(QWidget* parent) : View(parent) {
    this->setSelectionMode(QAbstractItemView::SingleSelection);
    this->setSelectionBehavior(QAbstractItemView::SelectRows);
    this->setEditTriggers(QAbstractItemView::NoEditTriggers);
    this->setFocusPolicy(Qt::TabFocus);
    this->setItemDelegate(new RoomyDelegate(this));
  }

  // A person chose a row, perhaps the chosen one again; from 0.
  std::function<void(int row)> Chosen;
  // A person opened the chosen row, by double click or return key; may be null.
  std::function<void()> Opened;
  // A person clicked where no row is; the view must show its choice again.
  std::function<void()> Missed;

  // Shows a row as the chosen one, none for -1. Reports nothing.
  void ShowRow(int row) {
    showing_ = true;
    if (row < 0) {
      this->selectionModel()->clear();
    } else {
      const QModelIndex index = this->model()->index(row, FirstShown());
      this->selectionModel()->setCurrentIndex(
          index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
      this->scrollTo(index);
    }
    showing_ = false;
  }

 protected:
  virtual int FirstShown() const { return 0; }

  void mousePressEvent(QMouseEvent* event) override {
    pressing_ = true;
    View::mousePressEvent(event);
    pressing_ = false;
    if (event->button() != Qt::LeftButton) return;
    const QModelIndex index = this->indexAt(event->position().toPoint());
    if (index.isValid()) {
      Chosen(index.row());
    } else {
      Missed();
    }
  }
  void mouseDoubleClickEvent(QMouseEvent* event) override {
    mousePressEvent(event);
    const bool on_row = this->indexAt(event->position().toPoint()).isValid();
    if (Opened && on_row && event->button() == Qt::LeftButton) Opened();
  }
  void keyPressEvent(QKeyEvent* event) override {
    const bool is_return = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (Opened && is_return && this->currentIndex().isValid())
      Opened();
    else
      View::keyPressEvent(event);
  }
  // Rows are chosen by a press, not by dragging over them.
  void mouseMoveEvent(QMouseEvent*) override {}

  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override {
    View::currentChanged(current, previous);
    if (!pressing_ && !showing_ && current.isValid()) Chosen(current.row());
  }

 private:
  bool pressing_ = false;
  bool showing_ = false;
};

}  // namespace pactora::desktop
