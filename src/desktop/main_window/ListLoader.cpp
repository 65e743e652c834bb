#include "desktop/main_window/ListLoader.h"

#include <QElapsedTimer>
#include <algorithm>
#include <utility>

namespace pactora::desktop {
namespace {

constexpr int kSliceMs = 8;              // half a frame
constexpr int kReadsAtOnce = 64;         // between two looks at the clock
constexpr std::size_t kFirstRows = 500;  // shown as soon as they are there

}  // namespace

ListLoader::ListLoader(ListModel& model, QObject* parent) : QObject(parent), model_(model) {
  timer_.setInterval(0);
  connect(&timer_, &QTimer::timeout, this, [this] { Read(kSliceMs); });
}

void ListLoader::Start(ReadRows read) {
  read_ = std::move(read);
  model_.Clear();
  timer_.start();
}

void ListLoader::Finish() {
  if (Running()) Read(-1);
}

void ListLoader::Read(int milliseconds) {
  QElapsedTimer clock;
  clock.start();
  bool more = true;
  try {
    while (more && (milliseconds < 0 || clock.elapsed() < milliseconds)) {
      std::vector<ListRow> rows;
      for (int i = 0; more && i < kReadsAtOnce; ++i) more = read_(rows);
      model_.Add(std::move(rows));
    }
  } catch (const platform::Error& error) {
    timer_.stop();
    model_.Publish();
    if (Failed) Failed(error);
    return;
  }
  if (!more) timer_.stop();
  // Twice as many each time: a long list is sorted and shown a few times only.
  const std::size_t shown = model_.All() - model_.Waiting();
  if (more && model_.Waiting() < std::max(kFirstRows, shown)) return;
  model_.Publish();
  if (Progress) Progress();
}

}  // namespace pactora::desktop
