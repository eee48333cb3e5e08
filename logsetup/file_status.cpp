// SPDX-License-Identifier: MIT
#include "logsetup/file_status.h"

#include <algorithm>
#include <atomic>
#include <boost/logging/logging.hpp>
#include <map>
#include <mutex>
#include <utility>

#include "diagnostics/status_page.h"
#include "platform/clock.h"
#include "platform/fork_handlers.h"

namespace Quillmark_logging {
namespace {

using status::FileValues;

constexpr std::int64_t nanosecondsPerMillisecond = 1'000'000;
constexpr std::size_t mostKnownFiles = 1000;

struct Files {
  /// In the order in which they were set up.
  std::vector<FileValues> known;
  /// By path: what the appenders of this library have lost.
  std::map<std::string, FileValues> failures;
};

constinit std::atomic<bool> isMissed{false};

/// Never destroyed.
std::mutex& filesLock() {
  static std::mutex& lock = *new std::mutex;
  return lock;
}

/// Never destroyed. Under the lock.
Files& files() {
  static Files& all = *new Files;
  return all;
}

// At the latest when the library is loaded.
[[maybe_unused]] const bool areFileForksWatched = [] {
  filesLock();
  platform::registerForkHandlers([] { filesLock().lock(); }, [] { filesLock().unlock(); },
                                 [] { filesLock().unlock(); });
  return true;
}();

std::vector<FileValues>::iterator placeOf(std::vector<FileValues>& _files, const std::string& _path) {
  return std::find_if(_files.begin(), _files.end(), [&](const FileValues& _file) { return _file.path == _path; });
}

// A file that nobody has set up, such as one of the application's own, is told of when something is wrong with it.
FileValues* valuesFor(std::vector<FileValues>& _files, const std::string& _path, bool _isTroubled) {
  const auto place = placeOf(_files, _path);
  if (place != _files.end()) return &*place;
  if (!_isTroubled) return nullptr;
  _files.push_back({_path});
  return &_files.back();
}

void addFailure(FileValues& _values, const FileValues& _failure) {
  _values.lost += _failure.lost;
  _values.state |= _failure.state;
  if (_failure.failedAt < _values.failedAt) return;
  _values.failedAt = _failure.failedAt;
  _values.error = _failure.error;
}

FileValues valuesOf(const boost::logging::file_state& _state) {
  FileValues values;
  values.lost = _state.lost;
  values.error = _state.error;
  values.failedAt = _state.failed_at * nanosecondsPerMillisecond;
  values.state = _state.is_failing ? status::isFailing : 0;
  return values;
}

// @return whether the page is not locked by others.
bool tryToShow() noexcept {
  try {
    std::vector<FileValues> current = currentFiles();
    const auto put = [&](status::StatusImage& _image) { _image.putFiles(current); };
    status::ChangeBy<decltype(put)> change(put);
    return status::tryToChangePage(change);
  } catch (...) {
    return true;
  }
}

}  // namespace

void noteLostLine(const std::string& _path, platform::ErrorCode _error) noexcept {
  try {
    const std::lock_guard<std::mutex> lock(filesLock());
    std::map<std::string, FileValues>& failures = files().failures;
    const bool isListed = failures.size() < mostKnownFiles || failures.contains(_path);
    FileValues& failure = failures[isListed ? _path : std::string()];
    ++failure.lost;
    failure.error = _error;
    failure.failedAt = platform::wallClockNanoseconds();
    failure.state = status::isFailing;
  } catch (...) {
    // No memory.
  }
  showFiles();
}

void noteOpenedFile(const std::string& _path) noexcept {
  {
    const std::lock_guard<std::mutex> lock(filesLock());
    const auto failure = files().failures.find(_path);
    if (failure == files().failures.end() || failure->second.state == 0) return;
    failure->second.state = 0;
  }
  showFiles();
}

void addFiles(const std::vector<FileValues>& _files) {
  const std::lock_guard<std::mutex> lock(filesLock());
  std::vector<FileValues>& known = files().known;
  for (const FileValues& file : _files) {
    const auto place = placeOf(known, file.path);
    if (place != known.end()) {
      *place = file;
    } else if (known.size() < mostKnownFiles) {
      known.push_back(file);
    }
  }
}

std::vector<FileValues> currentFiles() {
  std::vector<FileValues> current;
  {
    const std::lock_guard<std::mutex> lock(filesLock());
    current = files().known;
    for (const auto& [path, failure] : files().failures)
      addFailure(*valuesFor(current, path, true), failure);
  }
  boost::logging::list_files([&current](const boost::logging::file_state& _state) {
    FileValues* const values = valuesFor(current, _state.path, _state.lost > 0 || _state.dropped > 0);
    if (values == nullptr) return;
    addFailure(*values, valuesOf(_state));
    values->dropped += _state.dropped;
    values->held += _state.held;
  });
  return current;
}

void showFiles() noexcept {
  isMissed.store(true);
  showMissedFiles();
}

// Who finds the page locked leaves the mark and tries once more: either the page is free by then, or whoever has it
// looks for the mark after that.
void showMissedFiles() noexcept {
  while (isMissed.exchange(false)) {
    if (tryToShow()) continue;
    isMissed.store(true);
    if (!tryToShow()) return;
  }
}

}  // namespace Quillmark_logging
