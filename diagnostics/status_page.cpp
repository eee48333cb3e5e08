// SPDX-License-Identifier: MIT
#include "diagnostics/status_page.h"

#include <chrono>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <thread>

#include "diagnostics/status_page_values.h"
#include "platform/cancellation.h"
#include "platform/clock.h"
#include "platform/fork_handlers.h"
#include "platform/process.h"
#include "platform/running_process.h"
#include "platform/status_mapping.h"
#include "quillmark_logging_version.h"

namespace Quillmark_logging::status {
namespace {

constexpr platform::StatusMapping::Form pageForm{pageSize, pidNamespace.offset};
constexpr int mostLockTries = 100;
constexpr std::chrono::milliseconds betweenLockTries{1};

struct Page {
  std::unique_ptr<StatusImage> image;
  std::unique_ptr<platform::StatusMapping> mapping;
  /// Whose page it is: a child may have been made without the functions around a fork.
  int process = 0;
  bool isRegistered = false;
  /// The process has begun to end.
  bool isOver = false;
};

/// Never destroyed.
std::mutex& pageLock() {
  static std::mutex& lock = *new std::mutex;
  return lock;
}

/// Never destroyed: threads go on while the process ends. Under the lock.
Page& page() {
  static Page& onlyOne = *new Page;
  return onlyOne;
}

bool lockSoon(std::unique_lock<std::mutex>& _lock) {
  for (int tries = 1; !_lock.try_lock(); ++tries) {
    if (tries >= mostLockTries) return false;
    std::this_thread::sleep_for(betweenLockTries);
  }
  return true;
}

void removeAtExit() {
  const platform::CancellationDelay delay;
  std::unique_lock<std::mutex> lock(pageLock(), std::defer_lock);
  if (!lockSoon(lock)) return;
  page().isOver = true;
  // A child leaves its parent's page.
  if (page().mapping != nullptr && page().process != platform::processId()) page().mapping->abandon();
  page().mapping.reset();
}

void describeProcess(StatusImage& _image) {
  const auto process = static_cast<std::uint32_t>(platform::processId());
  _image.number(pid, process);
  _image.number(startTime, platform::startTimeOf(process));
  _image.number(pidNamespace, platform::processNamespace());
  _image.number(userId, platform::userId());
  _image.text(user, platform::userName());
  _image.text(program, platform::programPath());
  _image.text(libraryVersion, QMRK_LOG_VERSION_STRING);
}

// The listeners are threads of the parent.
void forgetParent(StatusImage& _image) {
  for (const Field& field : {listenerState, listenerThreads, listenerWakes, listenerAt})
    _image.number(field, 0);
}

// The page belongs to this process, and can be written.
void provideMapping(Page& _page) {
  if (_page.process != platform::processId()) {
    if (_page.mapping != nullptr) _page.mapping->abandon();
    _page.mapping.reset();
    if (_page.image != nullptr) forgetParent(*_page.image);
    _page.process = platform::processId();
  }
  if (_page.image == nullptr) _page.image = std::make_unique<StatusImage>();
  if (!_page.isRegistered) {
    std::atexit(&removeAtExit);
    _page.isRegistered = true;
  }
  if (_page.mapping != nullptr && !_page.mapping->isInPlace()) _page.mapping.reset();
  if (_page.mapping != nullptr || _page.isOver) return;
  describeProcess(*_page.image);
}

void show(Page& _page) {
  _page.image->number(writtenAt, static_cast<std::uint64_t>(platform::wallClockNanoseconds()));
  if (_page.mapping != nullptr) {
    _page.image->copyTo(_page.mapping->words());
    return;
  }
  if (_page.isOver) return;
  _page.mapping = platform::StatusMapping::create(pageForm);
  if (_page.mapping == nullptr) return;
  _page.image->copyTo(_page.mapping->words());
  if (!_page.mapping->show()) _page.mapping.reset();
}

// At the latest when the library is loaded. The child's first call finds that the page is its parent's.
[[maybe_unused]] const bool arePageForksWatched = [] {
  pageLock();
  platform::registerForkHandlers([] { pageLock().lock(); }, [] { pageLock().unlock(); }, [] { pageLock().unlock(); });
  return true;
}();

}  // namespace

void changePage(Change& _change) noexcept {
  const platform::CancellationDelay delay;
  std::unique_lock<std::mutex> lock(pageLock(), std::defer_lock);
  if (!lockSoon(lock)) return;
  try {
    provideMapping(page());
    _change.apply(*page().image);
    show(page());
  } catch (...) {
    // No memory.
  }
}

bool tryToChangePage(Change& _change) noexcept {
  const platform::CancellationDelay delay;
  const std::unique_lock<std::mutex> lock(pageLock(), std::try_to_lock);
  if (!lock.owns_lock()) return false;
  Page& own = page();
  if (own.mapping == nullptr || own.process != platform::processId()) return true;
  try {
    _change.apply(*own.image);
    show(own);
  } catch (...) {
    // No memory.
  }
  return true;
}

}  // namespace Quillmark_logging::status
