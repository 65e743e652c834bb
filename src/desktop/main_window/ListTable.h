// A list of the main window as a table: whole rows are chosen, columns can be moved,
// sized and sorted by.
#pragma once

#include <QAction>
#include <QTableView>
#include <functional>
#include <optional>

#include "desktop/main_window/ListModel.h"

namespace pactora::desktop {

class ListTable final : public QTableView {
 public:
  // The model must outlive the table.
  ListTable(ListModel& model, const QString& name, QWidget* parent = nullptr);

  // A person chose a row.
  std::function<void(const ListRow& row)> Chosen;

  // What double click and return key do with the current row; the first line of the
  // menu, in which all actions of the table are. The action must outlive the table.
  void OpenBy(QAction& action);
  // The row with the focus; null for none.
  const ListRow* Current() const;

  // Shows the row of that key as the chosen one, none for nothing; it stays the
  // chosen one when the list changes. Reports nothing.
  void ShowChoice(std::optional<std::int64_t> key);
  std::optional<std::int64_t> Choice() const { return key_; }
  // Takes the focus, as a person would: the first row is chosen where none is.
  void Enter();

 protected:
  void focusInEvent(QFocusEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
  void Restore(bool scroll);

  ListModel& rows_;
  std::optional<std::int64_t> key_;
  bool showing_ = false;
};

}  // namespace pactora::desktop
