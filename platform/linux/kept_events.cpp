// SPDX-License-Identifier: MIT
#include "platform/linux/kept_events.h"

#include <mutex>
#include <utility>

namespace platform {
namespace {

// Never destroyed: a thread may be terminated while the process exits.
struct KeptEvents {
  std::mutex mutex;
  std::shared_ptr<EventFile> first;
};

KeptEvents& keptEvents() {
  static KeptEvents& kept = *new KeptEvents;
  return kept;
}

}  // namespace

void keepEvent(std::shared_ptr<EventFile> _file) {
  KeptEvents& kept = keptEvents();
  {
    const std::lock_guard<std::mutex> lock(kept.mutex);
    std::shared_ptr<EventFile>* place = &kept.first;
    while (*place != nullptr && (*place)->name() != _file->name()) {
      place = &(*place)->nextKept;
    }
    // One that was removed from outside is of no use.
    if (*place == nullptr || !(*place)->isInPlace()) {
      if (*place != nullptr) _file->nextKept.swap((*place)->nextKept);
      place->swap(_file);
    }
  }
  // Leaving the event may take a while, so without the lock.
  _file.reset();
}

void prepareKeptEvents() { keptEvents(); }

void lockKeptEvents() { keptEvents().mutex.lock(); }

void unlockKeptEvents() { keptEvents().mutex.unlock(); }

void dropKeptEvents() {
  std::shared_ptr<EventFile> next = std::move(keptEvents().first);
  while (next != nullptr) {
    next = std::move(next->nextKept);
  }
}

}  // namespace platform
