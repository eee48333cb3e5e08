// SPDX-License-Identifier: MIT
#include "logsetup/file_succession.h"

#include <chrono>
#include <map>
#include <mutex>
#include <thread>
#include <utility>

#include "platform/fork_handlers.h"

namespace Quillmark_logging {
namespace {

constexpr std::chrono::milliseconds betweenLooks{1};
constexpr int mostLooks = 2000;

constinit std::atomic<std::uint64_t> process{1};

using Key = std::pair<std::string, std::string>;

// Never destroyed: threads may log while the process exits.
struct Successions {
  std::mutex mutex;
  std::map<Key, std::weak_ptr<FileSuccession>> all;
};

Successions& successions() {
  static Successions& known = *new Successions;
  return known;
}

// While the library is loaded: the child of a fork must not find the guard of a local static taken for ever.
[[maybe_unused]] const bool isGuarded = [] {
  successions();
  platform::registerForkHandlers([] { successions().mutex.lock(); }, [] { successions().mutex.unlock(); },
                                 [] {
                                   process.fetch_add(1, std::memory_order_relaxed);
                                   successions().mutex.unlock();
                                 });
  return true;
}();

}  // namespace

std::shared_ptr<FileSuccession> FileSuccession::of(const std::string& _path, const std::string& _pattern) {
  Successions& known = successions();
  const std::lock_guard<std::mutex> lock(known.mutex);
  std::erase_if(known.all, [](const auto& _entry) { return _entry.second.expired(); });
  std::weak_ptr<FileSuccession>& place = known.all[Key(_path, _pattern)];
  std::shared_ptr<FileSuccession> succession = place.lock();
  if (succession == nullptr) {
    succession = std::make_shared<FileSuccession>();
    place = succession;
  }
  return succession;
}

bool FileSuccession::lock() {
  const std::uint64_t mine = process.load(std::memory_order_relaxed);
  for (int looks = 0;; ++looks) {
    std::uint64_t holder = holder_.load(std::memory_order_relaxed);
    const bool isFree = holder == 0;
    const bool isOver = isFree || holder != mine || looks >= mostLooks;
    if (isOver && holder_.compare_exchange_strong(holder, mine, std::memory_order_acquire)) return isFree;
    if (!isOver) std::this_thread::sleep_for(betweenLooks);
  }
}

FileSuccession::Turn::Turn(FileSuccession& _succession, std::uint64_t _member)
    : succession_(_succession), followsBroken_(!_succession.lock()) {
  const std::uint64_t former = _succession.latestWriter_.exchange(_member, std::memory_order_relaxed);
  followsAnother_ = former != 0 && former != _member;
}

FileSuccession::Turn::~Turn() { succession_.unlock(); }

}  // namespace Quillmark_logging
