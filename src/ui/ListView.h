// A list of rows with columns. Rows count from 1, row 0 is none. Column 0 is the
// row's own text, columns from 1 its sub-items. A column of width 0 is not shown
// and serves as storage.
#pragma once

#include "ui/Control.h"

namespace pactora::ui {

class ListView final : public Control {
 public:
  struct Column {
    std::string caption;
    std::int32_t width = 0;  // a share of the list's width; 0 hides the column
  };

  ListView(Container& parent, std::string name)
      : Control(parent, ControlKind::ListView, std::move(name)) {}

  // A person clicked a row, the selected one included; it is the selected row by
  // then. Selecting by program runs nothing. The procedure's name ends in
  // "_ItemClick".
  std::function<void(std::int32_t row)> RowClick;

  void AddColumn(std::string caption, std::int32_t width) {
    columns_.push_back({std::move(caption), width});
  }
  const std::vector<Column>& Columns() const { return columns_; }
  // The column that a person tells rows by: the first one that is shown.
  std::int32_t FirstShownColumn() const;

  std::int32_t RowCount() const { return static_cast<std::int32_t>(rows_.size()); }
  // Appends a row and returns its number. It is selected if no row was, so the
  // first row of a list is the selected one until another is chosen.
  std::int32_t AddRow(std::string text, std::vector<std::string> sub_items = {},
                      std::string tool_tip = {});
  // The selection stays with its row; without that row none is selected.
  void RemoveRow(std::int32_t row);
  void ClearRows();

  // Raise error 91 for row 0 and error 9 for any other row that does not exist.
  // A sub-item that was never set is empty.
  const std::string& Text(std::int32_t row, std::int32_t column = 0) const;
  void SetText(std::int32_t row, std::int32_t column, std::string text);
  const std::string& RowToolTip(std::int32_t row) const;

  std::int32_t SelectedRow() const { return selected_row_; }
  // Row 0 selects none; error 9 for a row that does not exist.
  void SelectRow(std::int32_t row);

 private:
  friend class Person;
  struct Row {
    std::vector<std::string> texts;  // by column
    std::string tool_tip;
  };
  const Row& At(std::int32_t row) const;

  std::vector<Column> columns_;
  std::vector<Row> rows_;
  std::int32_t selected_row_ = 0;
};

}  // namespace pactora::ui
