// The pages that are one list each.
#pragma once

#include "desktop/main_window/ListPage.h"

namespace pactora::desktop {

// The contract types; the chosen one is the current row.
class TypePage final : public ListPage {
 public:
  explicit TypePage(OpenDatabase& database);
  void ShowCurrent() override;
};

// The deadlines of all contracts, so many weeks ahead.
class DeadlinePage final : public ListPage {
 public:
  explicit DeadlinePage(OpenDatabase& database);
};

// The appointments of all contracts, so many weeks ahead, done ones where they are
// asked for.
class AppointmentPage final : public ListPage {
 public:
  explicit AppointmentPage(OpenDatabase& database);
  bool HasChoice() const { return Table().currentIndex().isValid(); }
  // Requires: HasChoice. Marks the chosen appointment as done, or as open again.
  void Tick();
};

}  // namespace pactora::desktop
