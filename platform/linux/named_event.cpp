// SPDX-License-Identifier: MIT
#include "platform/named_event.h"

#include <mutex>
#include <utility>

#include "platform/fault.h"
#include "platform/linux/deadline.h"
#include "platform/linux/event_file.h"
#include "platform/linux/event_name.h"
#include "platform/linux/event_word.h"
#include "platform/linux/handle_table.h"
#include "platform/linux/kept_events.h"
#include "platform/linux/thread_object.h"

namespace platform {
namespace {

// A wait looks as often whether the file of the event is still the one that others find: a log-out may remove it.
constexpr std::uint32_t longestSleep = 2'000;

class NamedEvent : public HandleTarget {
 public:
  NamedEvent(std::string _name, std::shared_ptr<EventFile> _file) : name_(std::move(_name)), file_(std::move(_file)) {}

  // The file that now stands for the event. When another cannot be joined, the one at hand goes on.
  std::shared_ptr<EventFile> file() {
    std::shared_ptr<EventFile> current = heldFile();
    if (current->isInPlace()) return current;
    // Without the lock, since it may take a while.
    EventFile::Joined joined = EventFile::join(name_, EventFile::Joining::createOrOpen);
    if (joined.file == nullptr) return current;
    const std::lock_guard<std::mutex> lock(mutex_);
    if (file_ == current) file_.swap(joined.file);
    return file_;
  }

  void outliveOwner() override { keepEvent(heldFile()); }

  std::shared_ptr<EventFile> heldFile() {
    const std::lock_guard<std::mutex> lock(mutex_);
    return file_;
  }

 private:
  const std::string name_;
  std::mutex mutex_;
  std::shared_ptr<EventFile> file_;
};

// Waits on one file; true when let through, false at the deadline or when it is time to look at the file again.
bool isLetThrough(std::uint32_t* _word, EventWatch& _watch, const Deadline& _deadline) {
  const TerminationPoint termination(_word);
  const Deadline look(longestSleep);
  while (!_watch.isLetThrough()) {
    if (_deadline.hasPassed() || look.hasPassed()) return false;
    TerminationPoint::check();
    _watch.sleepUntil(_deadline.within(longestSleep));
  }
  return true;
}

std::uint32_t waitFor(NamedEvent& _event, std::uint32_t _milliseconds) {
  const Deadline deadline(_milliseconds);
  auto file = _event.file();
  EventWatch watch(file->word());
  while (!isLetThrough(file->word(), watch, deadline)) {
    if (deadline.hasPassed()) return waitTimeout;
    auto current = _event.file();
    if (current != file) {
      file = std::move(current);
      watch = EventWatch(file->word());
    }
  }
  return waitObject;
}

Handle joinEvent(const std::string& _name, EventFile::Joining _joining) {
  setLastError(injectedFault(Call::openEvent));
  if (lastError() != noError) return nullptr;
  setLastError(checkEventName(_name));
  if (lastError() != noError) return nullptr;
  EventFile::Joined joined = EventFile::join(_name, _joining);
  setLastError(joined.error);
  if (joined.file == nullptr) return nullptr;
  const Handle handle = HandleTable::instance().insert(std::make_shared<NamedEvent>(_name, std::move(joined.file)),
                                                       ThreadObject::current());
  setLastError(joined.existed ? errorAlreadyExists : noError);
  return handle;
}

// The event of a handle; null with lastError when the call is to fail.
std::shared_ptr<NamedEvent> eventOf(Handle _handle, Call _call) {
  setLastError(injectedFault(_call));
  if (lastError() != noError) return nullptr;
  auto event = HandleTable::instance().find<NamedEvent>(_handle);
  if (event == nullptr) setLastError(errorInvalidHandle);
  return event;
}

}  // namespace

Handle createEvent(const std::string& _name) { return joinEvent(_name, EventFile::Joining::createOrOpen); }

Handle openEvent(const std::string& _name) {
  const Handle handle = joinEvent(_name, EventFile::Joining::openOnly);
  if (handle != nullptr) setLastError(noError);
  return handle;
}

bool setEvent(Handle _event) {
  const auto event = eventOf(_event, Call::setEvent);
  if (event == nullptr) return false;
  setEventWord(event->file()->word());
  return true;
}

bool resetEvent(Handle _event) {
  const auto event = eventOf(_event, Call::resetEvent);
  if (event == nullptr) return false;
  resetEventWord(event->file()->word());
  return true;
}

std::uint32_t settingsOf(Handle _event) {
  const auto event = HandleTable::instance().find<NamedEvent>(_event);
  return event != nullptr ? countSettings(event->heldFile()->word()) : 0;
}

std::uint32_t waitForEvent(Handle _event, std::uint32_t _milliseconds) {
  // Also for a wait that is satisfied, or fails, at once.
  TerminationPoint::check();
  const auto event = eventOf(_event, Call::waitEvent);
  return event != nullptr ? waitFor(*event, _milliseconds) : waitResultOfFault(lastError());
}

}  // namespace platform
