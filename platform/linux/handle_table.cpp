// SPDX-License-Identifier: MIT
#include "platform/linux/handle_table.h"

#include <pthread.h>

#include <utility>

#include "platform/linux/event_file.h"
#include "platform/linux/kept_events.h"

namespace platform {
namespace {

constexpr std::uintptr_t step = 4;

void beforeFork() {
  lockKeptEvents();
  EventFile::lockAll();
  HandleTable::instance().lock();
}

void inParent() {
  HandleTable::instance().unlock();
  EventFile::unlockAll();
  unlockKeptEvents();
}

void inChild() {
  EventFile::abandonAll();
  HandleTable::instance().forgetAll();
  inParent();
  dropKeptEvents();
}

// What the handlers use is made first: the process that forks may lack the memory for it.
int registerHandlers() {
  HandleTable::instance();
  EventFile::prepareForForks();
  prepareKeptEvents();
  return ::pthread_atfork(beforeFork, inParent, inChild);
}

void guardForks() { [[maybe_unused]] static const int guarded = registerHandlers(); }

// At the latest while the program is loaded: a process that forks during the first use would have a child that finds
// the guard of the local static taken for ever.
[[maybe_unused]] const bool areForksGuarded = (guardForks(), true);

}  // namespace

HandleTable& HandleTable::instance() {
  static HandleTable& table = *new HandleTable;
  return table;
}

Handle HandleTable::insert(std::shared_ptr<HandleTarget> _target, const void* _owner) {
  guardForks();
  const std::lock_guard<std::mutex> lock(mutex_);
  latest_ += step;
  const Handle handle = reinterpret_cast<Handle>(latest_);  // NOLINT(performance-no-int-to-ptr): a number, see handle.h
  entries_.emplace(handle, Entry{std::move(_target), _owner});
  return handle;
}

std::shared_ptr<HandleTarget> HandleTable::findAny(Handle _handle) {
  const std::lock_guard<std::mutex> lock(mutex_);
  const auto found = entries_.find(_handle);
  return found == entries_.end() ? nullptr : found->second.target;
}

bool HandleTable::remove(Handle _handle) {
  // Outlives the lock: the end of an object may take long, and locks too.
  std::shared_ptr<HandleTarget> last;
  const std::lock_guard<std::mutex> lock(mutex_);
  const auto found = entries_.find(_handle);
  if (found == entries_.end()) return false;
  last = std::move(found->second.target);
  entries_.erase(found);
  return true;
}

void HandleTable::removeOwnedBy(const void* _owner) {
  // Moved as they are: a thread that ends has nobody to tell that memory is lacking.
  std::map<Handle, Entry> last;
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    for (auto next = entries_.begin(); next != entries_.end();) {
      const auto entry = next++;
      if (entry->second.owner == _owner) last.insert(entries_.extract(entry));
    }
  }
  for (const auto& [handle, entry] : last) {
    entry.target->outliveOwner();
  }
}

std::size_t HandleTable::size() {
  const std::lock_guard<std::mutex> lock(mutex_);
  return entries_.size();
}

}  // namespace platform
