// The pages that are one list each.
#pragma once

#include <vector>

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
  bool HasChoice() const { return Table().selectionModel()->hasSelection(); }
  // Marks the chosen appointments as done, or as open again where all are done. Returns how
  // many it changed.
  int Tick();
  // Whether a Tick can be taken back.
  bool CanTakeBack() const { return !last_tick_.empty(); }
  // Makes what the last Tick changed as it was before.
  void TakeBack();

 private:
  void Mark(const std::vector<store::Oid>& appointments, bool done);

  std::vector<store::Oid> last_tick_;
  bool last_done_ = false;  // what it made of them
};

}  // namespace pactora::desktop
