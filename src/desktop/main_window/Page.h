// A page of the main window.
#pragma once

#include <QWidget>
#include <functional>

#include "store/RecordStore.h"

namespace pactora::desktop {

class ListPage;

class Page : public QWidget {
 public:
  using QWidget::QWidget;

  // The list in which the page's rows are searched and chosen.
  virtual ListPage& List() = 0;
  // Reads the page again.
  virtual void Reload() = 0;
  // Shows the current rows as they are in the database now.
  virtual void ShowCurrent() {}

  // Another row is chosen, or none.
  std::function<void()> ChoiceChanged;
  // A person asked to see this contract.
  std::function<void(store::Oid contract)> ContractAsked;
};

}  // namespace pactora::desktop
