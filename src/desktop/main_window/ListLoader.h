// Fills a list from the database in portions, so that the windows respond meanwhile.
#pragma once

#include <QTimer>
#include <functional>
#include <vector>

#include "desktop/main_window/ListModel.h"
#include "platform/Error.h"

namespace pactora::desktop {

// Adds the next rows, if any, to the end; false when there are no more.
using ReadRows = std::function<bool(std::vector<ListRow>& rows)>;

class ListLoader final : public QObject {
 public:
  // The model must outlive the loader.
  explicit ListLoader(ListModel& model, QObject* parent = nullptr);

  // Empties the list and begins to fill it; a filling that runs is cancelled.
  void Start(ReadRows read);
  bool Running() const { return timer_.isActive(); }
  // Reads the rest at once.
  void Finish();

  // Called after each portion that is shown, and at the end.
  std::function<void()> Progress;
  std::function<void(const platform::Error& error)> Failed;

 private:
  // Reads for that many milliseconds, or to the end for less than 0.
  void Read(int milliseconds);

  ListModel& model_;
  QTimer timer_;
  ReadRows read_;
};

}  // namespace pactora::desktop
