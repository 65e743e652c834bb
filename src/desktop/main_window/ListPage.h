// A long list with a line to search it, and what can be done with its rows.
#pragma once

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <unordered_set>

#include "desktop/main_window/ListLoader.h"
#include "desktop/main_window/ListModel.h"
#include "desktop/main_window/ListTable.h"
#include "desktop/main_window/OpenDatabase.h"
#include "desktop/main_window/Page.h"
#include "desktop/main_window/shown_lists.h"

namespace pactora::desktop {

class ListPage : public Page {
 public:
  // name becomes the table's object name, with "_search" behind it that of the line.
  // The database must outlive the page.
  ListPage(OpenDatabase& database, const ListKind& kind, const QString& name, const QString& search,
           QWidget* parent = nullptr);

  ListTable& Table() { return table_; }
  const ListTable& Table() const { return table_; }
  ListModel& Model() { return model_; }

  ListPage& List() override { return *this; }
  // Reads the list again, in portions; the chosen row stays chosen.
  void Reload() override;
  // Reads the rest at once.
  void Finish() { loader_.Finish(); }
  bool Reading() const { return loader_.Running(); }
  // Those of the rows that weeks, words and switches let through; reads the rest at once.
  std::unordered_set<std::int64_t> ShownKeys();
  // Shows the row, though a search may have hidden it.
  void Reveal(std::int64_t key);
  // Puts the caret into the line.
  void Search();
  // Further widgets beside the line, in a row.
  void AddTool(QWidget& widget) { tools_->addWidget(&widget); }
  // A button for the action, which must outlive the page.
  void AddTool(QAction& action);
  // Shows the rows for which this is true; null for all.
  void SetCondition(std::function<bool(const ListRow& row)> condition);

 protected:
  OpenDatabase& Database() { return database_; }
  // An action that asks for the current row's contract; of gives its Oid, 0 for none.
  QAction* ShowingContract(std::function<store::Oid(const ListRow& row)> of);
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void ShowCount();

  OpenDatabase& database_;
  const ListKind& kind_;
  ListModel model_;
  ListLoader loader_;
  QLineEdit search_;
  ListTable table_;
  QLabel count_;
  QHBoxLayout* tools_ = nullptr;
};

}  // namespace pactora::desktop
