// SPDX-License-Identifier: MIT
#include "logmanager/appenders/file_notes.h"

#include <atomic>
#include <map>
#include <set>

#include "boost/logging/file_states.hpp"
#include "logmanager/appenders/message_queue.h"
#include "logmanager/threads/process_lock.h"
#include "platform/clock.h"

namespace boost::logging {
namespace detail {
namespace {

/// Files beyond that are noted as one without a path, so that the table is bounded.
constexpr std::size_t mostNotes = 1000;

using States = std::map<std::string, file_state>;

struct Notes {
  States states;
  /// Files that have lost messages, and that nobody has written since.
  std::set<std::string> leftFailing;
  /// A set-up can end thousands of them one by one.
  std::set<const NotedQueue*> queues;
};

constinit std::atomic<void (*)()> observer{nullptr};
constinit ProcessLock notesLock;
constinit std::atomic<bool> isAnyLeftFailing{false};
/// Never destroyed.
constinit Notes* notes = nullptr;

/// Holds the notes. A forked child does not use what a thread of the parent may have been changing.
class NotesScope {
 public:
  NotesScope() {
    if (!notesLock.lock()) notes = nullptr;
  }
  ~NotesScope() { notesLock.unlock(); }
  NotesScope(const NotesScope&) = delete;
  NotesScope& operator=(const NotesScope&) = delete;

  Notes& all() const {
    if (notes == nullptr) notes = new Notes;
    return *notes;
  }
};

file_state& stateOf(States& _states, const std::string& _path) {
  const bool isListed = _states.size() < mostNotes || _states.contains(_path);
  const std::string& path = isListed ? _path : std::string();
  return _states.try_emplace(path, file_state{path, 0, 0, 0, 0, 0, false}).first->second;
}

void callObserver() noexcept {
  void (*const function)() = observer.load(std::memory_order_acquire);
  if (function == nullptr) return;
  try {
    function();
  } catch (...) {
    // It was not to throw.
  }
}

/// Changes what is noted of a file. Nothing without memory for it.
template <typename Change>
void note(const std::string& _path, Change _change) noexcept {
  try {
    const NotesScope scope;
    _change(stateOf(scope.all().states, _path));
  } catch (...) {
  }
}

States currentStates() {
  const NotesScope scope;
  States states = scope.all().states;
  for (const NotedQueue* const queue : scope.all().queues) {
    file_state& state = stateOf(states, queue->path());
    state.dropped += queue->queue().droppedCount();
    state.held += queue->queue().heldBytes();
  }
  return states;
}

}  // namespace

void noteLoss(const std::string& _path, std::uint64_t _count, platform::ErrorCode _error) noexcept {
  note(_path, [&](file_state& _state) {
    _state.lost += _count;
    _state.error = _error;
    _state.failed_at = platform::wallClockMilliseconds();
    _state.is_failing = true;
  });
  callObserver();
}

void noteRecovery(const std::string& _path) noexcept {
  note(_path, [](file_state& _state) { _state.is_failing = false; });
  callObserver();
}

void leaveFailing(const std::string& _path) noexcept {
  try {
    const NotesScope scope;
    auto& left = scope.all().leftFailing;
    if (left.size() < mostNotes) left.insert(_path);
    isAnyLeftFailing.store(true, std::memory_order_relaxed);
  } catch (...) {
    // No memory: the file counts as failing.
  }
}

bool takeOverFailing(const std::string& _path) noexcept {
  if (!isAnyLeftFailing.load(std::memory_order_relaxed)) return false;
  try {
    const NotesScope scope;
    auto& left = scope.all().leftFailing;
    const bool isTaken = left.erase(_path) > 0;
    isAnyLeftFailing.store(!left.empty(), std::memory_order_relaxed);
    return isTaken;
  } catch (...) {
    // No memory for the notes of a forked child, which are empty then.
    return false;
  }
}

void noteDropping() noexcept { callObserver(); }

NotedQueue::NotedQueue(const std::string& _path, const MessageQueue& _queue) : path_(_path), queue_(_queue) {
  if (_path.empty()) return;
  const NotesScope scope;
  scope.all().queues.insert(this);
}

NotedQueue::~NotedQueue() {
  if (path_.empty()) return;
  const std::uint64_t dropped = queue_.droppedCount();
  try {
    const NotesScope scope;
    // A child may have forgotten it.
    scope.all().queues.erase(this);
    if (dropped > 0) stateOf(scope.all().states, path_).dropped += dropped;
  } catch (...) {
    // No memory to note what was dropped.
  }
}

}  // namespace detail

void list_files(const boost::function<void(const file_state&)>& _visit) {
  for (const auto& [path, state] : detail::currentStates())
    _visit(state);
}

void observe_files(void (*_observer)()) { detail::observer.store(_observer, std::memory_order_release); }

}  // namespace boost::logging
