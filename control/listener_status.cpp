// SPDX-License-Identifier: MIT
#include "control/listener_status.h"

#include <algorithm>
#include <vector>

#include "diagnostics/status_page.h"
#include "diagnostics/status_page_values.h"
#include "platform/clock.h"
#include "platform/named_event.h"
#include "platform/process.h"
#include "quillmark_logging_environment.h"
#include "quillmark_logging_names.h"

namespace Quillmark_logging {
namespace {

using status::ListenerState;
using status::StatusImage;

// What the listeners of this process are. Under the lock of the page; never destroyed.
struct Listeners {
  int process = 0;
  std::vector<std::uint32_t> threads;
  std::uint64_t wakes = 0;
};

Listeners& listeners() {
  static Listeners& all = *new Listeners;
  // A forked child has none of the threads.
  if (all.process != platform::processId()) all = {platform::processId(), {}, 0};
  return all;
}

std::uint64_t listenerTime() { return static_cast<std::uint64_t>(platform::wallClockNanoseconds()); }

void putState(StatusImage& _image, ListenerState _state) {
  _image.number(status::listenerState, static_cast<std::uint32_t>(_state));
  _image.number(status::listenerThreads, listeners().threads.size());
  _image.number(status::listenerAt, listenerTime());
}

// An update follows the environment as it is then. Looked at where the application or the update look at it as well,
// as a change of the environment and a look at it must not overlap.
void putCa(StatusImage& _image) {
  std::string ca;
  const bool isNamed = getEnvironmentVariable(DEFAULT_CA_NR, ca);
  _image.text(status::listenerCa, isNamed ? ca : GENERIC_CA);
}

void putFailure(StatusImage& _image, const std::string& _text, platform::ErrorCode _error) {
  _image.number(status::listenerFailedAt, listenerTime());
  _image.number(status::listenerError, _error);
  _image.text(status::listenerFailure, _text);
}

}  // namespace

void ListenerStatus::showCa() noexcept { status::changePageBy(putCa); }

ListenerStatus::ListenerStatus(const std::string& _eventName, platform::Handle _event) noexcept : event_(_event) {
  const std::uint32_t settings = platform::settingsOf(event_);
  status::changePageBy([&](StatusImage& _image) {
    listeners().threads.push_back(platform::threadId());
    _image.text(status::listenerEvent, _eventName);
    _image.number(status::listenerGeneration, settings);
    putState(_image, ListenerState::waiting);
  });
}

ListenerStatus::~ListenerStatus() { showEnd(platform::threadId()); }

void ListenerStatus::showUpdate() noexcept {
  const std::uint32_t settings = platform::settingsOf(event_);
  status::changePageBy([&](StatusImage& _image) {
    _image.number(status::listenerGeneration, settings);
    _image.number(status::listenerWakes, ++listeners().wakes);
    putCa(_image);
    putState(_image, ListenerState::updating);
  });
}

void ListenerStatus::showWait() noexcept {
  status::changePageBy([](StatusImage& _image) { putState(_image, ListenerState::waiting); });
}

void ListenerStatus::showEnd(std::uint32_t _threadId) noexcept {
  status::changePageBy([&](StatusImage& _image) {
    std::vector<std::uint32_t>& threads = listeners().threads;
    if (std::erase(threads, _threadId) == 0) return;
    putState(_image, threads.empty() ? ListenerState::ended : ListenerState::waiting);
  });
}

void ListenerStatus::showFailure(const char* _text, const std::string& _subject, platform::ErrorCode _error) noexcept {
  status::changePageBy([&](StatusImage& _image) { putFailure(_image, _text + _subject, _error); });
}

void ListenerStatus::showNoStart(const std::string& _eventName, platform::ErrorCode _error) noexcept {
  status::changePageBy([&](StatusImage& _image) {
    _image.text(status::listenerEvent, _eventName);
    putFailure(_image, "cannot create the event " + _eventName, _error);
    if (listeners().threads.empty()) putState(_image, ListenerState::failed);
  });
}

}  // namespace Quillmark_logging
