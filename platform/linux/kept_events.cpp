// SPDX-License-Identifier: MIT
#include "platform/linux/kept_events.h"

#include <map>
#include <mutex>
#include <utility>

namespace platform {
namespace {

// Never destroyed: a thread may be terminated while the process exits.
struct KeptEvents {
  std::mutex mutex;
  std::map<std::string, std::shared_ptr<EventFile>> files;
};

KeptEvents& keptEvents() {
  static KeptEvents& kept = *new KeptEvents;
  return kept;
}

}  // namespace

void keepEvent(const std::string& _name, std::shared_ptr<EventFile> _file) {
  KeptEvents& kept = keptEvents();
  {
    const std::lock_guard<std::mutex> lock(kept.mutex);
    std::shared_ptr<EventFile>& held = kept.files[_name];
    // One that was removed from outside is of no use.
    if (held == nullptr || !held->isInPlace()) held.swap(_file);
  }
  // Leaving the event may take a while, so without the lock.
  _file.reset();
}

void lockKeptEvents() { keptEvents().mutex.lock(); }

void unlockKeptEvents() { keptEvents().mutex.unlock(); }

void dropKeptEvents() { keptEvents().files.clear(); }

}  // namespace platform
