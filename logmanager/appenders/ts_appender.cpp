// SPDX-License-Identifier: MIT
#include "logmanager/appenders/ts_appender.h"

#include <algorithm>
#include <atomic>
#include <boost/chrono/duration.hpp>
#include <boost/thread/thread.hpp>
#include <chrono>
#include <cstdlib>
#include <list>
#include <mutex>
#include <unordered_map>
#include <utility>
#include <vector>

#include "boost/logging/detail/program_end.hpp"
#include "logmanager/appenders/shared_append_file.h"
#include "platform/all_signals_blocked.h"
#include "platform/cancellation.h"
#include "platform/fork_handlers.h"
#include "platform/process.h"

namespace boost::logging {
namespace detail {
namespace {

using std::chrono::steady_clock;

constexpr boost::chrono::milliseconds startDelay{100};

/// How long the end of the process waits for all messages to be delivered.
constexpr std::chrono::seconds exitTimeout{5};
/// How long a thread waits for the writers whose place its own has taken: less than the end of the process does.
constexpr std::chrono::seconds successionTimeout{4};
/// The end of a thread that has nothing left to do takes an instant, or for ever while the system holds up the ends of
/// threads, as Windows does when it unloads a library.
constexpr boost::chrono::milliseconds joinTimeout{100};

/// The sources of the program that include the log manager and are not destroyed yet.
constinit std::atomic<int> sourcesOfProgram{0};

/// All batch writers that are in use, and their threads, which it owns. When the process exits normally or the library
/// is unloaded, all messages are delivered; afterwards no thread is started any more. All functions may be called from
/// any thread.
class WriterThreads {
 public:
  /// For the end of the process or of the library: waits until all messages are delivered, for a few seconds at most.
  /// Messages that come later are delivered on their callers' threads. To be called again without harm.
  void finishAll();

  /// To be called before the writer gets a message, so that a fork finds it. May throw std::bad_alloc.
  void add(const std::shared_ptr<BatchWriter>& _writer);

  /// To be called when the writer gets no more messages, before it is stopped. Its thread may still be at work.
  void remove(const BatchWriter& _writer);

  /// Starts the thread of a writer that has none; where none is to be had, the writer delivers on its callers' threads.
  /// The thread first lets those writers end that get no more messages, since what they hold was logged before: as a
  /// rule the writer has taken the place of one of them.
  /// @return whether this call started it.
  bool start(BatchWriter& _writer);

 private:
  /// A thread, or none before it is started. A list, so that a forked child can set it aside without any memory.
  using OneThread = std::list<boost::thread>;

  struct WriterThread {
    std::shared_ptr<BatchWriter> writer;
    OneThread thread;
  };

  using WriterThreadList = std::list<WriterThread>;
  using Writers = std::vector<std::shared_ptr<const BatchWriter>>;

  static void atExit();
  static void beforeFork();
  static void afterForkInParent();
  static void afterForkInChild();
  template <typename Visit>
  void forEach(Visit _visit);
  void setUp();
  bool tryStart(BatchWriter& _writer);
  Writers leavingWriters() const;
  void joinEnded();
  static void awaitEnds(const Writers& _leaving);
  static void join(WriterThread& _one, std::chrono::steady_clock::time_point _deadline);

  std::mutex lock_;
  /// Those that get messages, in the order in which they were added.
  WriterThreadList threads_;
  std::unordered_map<const BatchWriter*, WriterThreadList::iterator> places_;
  /// Those that get no more messages and whose thread has not been joined yet.
  WriterThreadList leaving_;
  /// Those that finishAll has waited for.
  WriterThreadList finished_;
  /// In a forked child: what the parent had. It cannot be joined here, nor awaited.
  OneThread threadsOfParent_;
  WriterThreadList leavingInParent_;
  bool isSetUp_ = false;
  bool isOver_ = false;
};

/// The one list of the process, never destroyed.
WriterThreads& writerThreads() {
  static auto* const all = new WriterThreads;
  return *all;
}

std::string fileOf(const appender& _wrapped, const std::string& _file) {
  const SharedAppendFile* const file = SharedAppendFile::of(_wrapped);
  return file != nullptr ? file->path() : _file;
}

bool isGone(boost::thread& _thread) {
  if (_thread.get_id() == boost::this_thread::get_id()) return false;
  return !_thread.joinable() || _thread.try_join_for(boost::chrono::milliseconds(0));
}

void WriterThreads::add(const std::shared_ptr<BatchWriter>& _writer) {
  const std::lock_guard<std::mutex> lock(lock_);
  setUp();
  joinEnded();
  WriterThreadList added;
  added.push_back(WriterThread{_writer, {}});
  places_.emplace(_writer.get(), added.begin());
  threads_.splice(threads_.end(), added);
}

void WriterThreads::remove(const BatchWriter& _writer) {
  WriterThreadList removed;
  const std::lock_guard<std::mutex> lock(lock_);
  const auto known = places_.extract(&_writer);
  if (known.empty()) return;
  WriterThreadList& to = !known.mapped()->thread.empty() ? leaving_ : removed;
  to.splice(to.end(), threads_, known.mapped());
}

bool WriterThreads::start(BatchWriter& _writer) {
  if (!_writer.noteThread()) return false;
  if (tryStart(_writer)) return true;
  _writer.noteNoThread();
  return false;
}

bool WriterThreads::tryStart(BatchWriter& _writer) {
  const std::lock_guard<std::mutex> lock(lock_);
  const auto place = places_.find(&_writer);
  if (isOver_ || place == places_.end()) return false;
  try {
    const platform::AllSignalsBlocked blocked;
    place->second->thread.emplace_back([&_writer, leaving = leavingWriters()]() mutable {
      awaitEnds(leaving);
      leaving.clear();
      _writer.run();
    });
    return true;
  } catch (...) {
    return false;
  }
}

void WriterThreads::awaitEnds(const Writers& _leaving) {
  const auto deadline = steady_clock::now() + successionTimeout;
  for (const auto& writer : _leaving) {
    while (!writer->hasEnded() && steady_clock::now() < deadline)
      boost::this_thread::sleep_for(boost::chrono::milliseconds(1));
  }
}

WriterThreads::Writers WriterThreads::leavingWriters() const {
  Writers leaving;
  for (const WriterThread& one : leaving_) {
    if (!one.writer->hasEnded()) leaving.push_back(one.writer);
  }
  return leaving;
}

// A thread that has delivered everything may still be destroying the wrapped appender.
void WriterThreads::join(WriterThread& _one, steady_clock::time_point _deadline) {
  boost::thread& thread = _one.thread.front();
  if (!thread.joinable() || thread.get_id() == boost::this_thread::get_id()) return;
  while (!_one.writer->hasEnded() && steady_clock::now() < _deadline) {
    if (thread.try_join_for(boost::chrono::milliseconds(10))) return;
  }
  if (_one.writer->hasEnded()) thread.try_join_for(joinTimeout);
}

// In a shared library the function for the exit is called at the latest when the library is unloaded.
void WriterThreads::setUp() {
  if (isSetUp_) return;
  std::atexit(&WriterThreads::atExit);
  platform::registerForkHandlers(&WriterThreads::beforeFork, &WriterThreads::afterForkInParent,
                                 &WriterThreads::afterForkInChild);
  isSetUp_ = true;
}

void WriterThreads::joinEnded() {
  std::erase_if(leaving_, [](WriterThread& _one) {
    return _one.writer->hasEnded() && _one.thread.front().try_join_for(joinTimeout);
  });
}

void WriterThreads::atExit() { writerThreads().finishAll(); }

void WriterThreads::finishAll() {
  WriterThreadList threads;
  {
    const std::lock_guard<std::mutex> lock(lock_);
    isOver_ = true;
    threads.swap(leaving_);
    threads.splice(threads.end(), threads_);
    places_.clear();
  }
  std::erase_if(threads, [](const WriterThread& _one) { return _one.thread.empty(); });
  const auto deadline = steady_clock::now() + exitTimeout;
  for (WriterThread& one : threads)
    one.writer->finish(deadline, [&one] { return isGone(one.thread.front()); });
  for (WriterThread& one : threads)
    join(one, deadline);
  // A thread that is still somewhere needs its writer.
  const std::lock_guard<std::mutex> lock(lock_);
  finished_.splice(finished_.end(), threads);
}

template <typename Visit>
void WriterThreads::forEach(Visit _visit) {
  std::ranges::for_each(leaving_, _visit);
  std::ranges::for_each(threads_, _visit);
}

void WriterThreads::beforeFork() {
  WriterThreads& all = writerThreads();
  all.lock_.lock();
  all.forEach([](WriterThread& _one) { _one.writer->lockForFork(); });
}

void WriterThreads::afterForkInParent() {
  WriterThreads& all = writerThreads();
  all.forEach([](WriterThread& _one) { _one.writer->unlockAfterFork(); });
  all.lock_.unlock();
}

void WriterThreads::afterForkInChild() {
  WriterThreads& all = writerThreads();
  all.forEach([&all](WriterThread& _one) {
    const bool goesOn = _one.writer->restartInChild();
    if (!goesOn) all.threadsOfParent_.splice(all.threadsOfParent_.end(), _one.thread);
  });
  for (auto next = all.leaving_.begin(); next != all.leaving_.end();) {
    const auto one = next++;
    if (one->thread.empty()) all.leavingInParent_.splice(all.leavingInParent_.end(), all.leaving_, one);
  }
  all.lock_.unlock();
}

}  // namespace

program_end::program_end() noexcept {
  if (platform::isDestroyedBeforeThreads(this)) sourcesOfProgram.fetch_add(1);
}

program_end::~program_end() {
  if (platform::isDestroyedBeforeThreads(this) && sourcesOfProgram.fetch_sub(1) == 1) writerThreads().finishAll();
}

BatchHandle* BatchHandle::of(const appender& _appender) {
  const auto* const toThread = _appender.target<ts_appender>();
  return toThread != nullptr ? toThread->handle_.get() : nullptr;
}

BatchHandle::BatchHandle(const appender& _wrapped, int _sleepMs, const std::string& _file)
    : writer_(std::make_shared<BatchWriter>(_wrapped, _sleepMs, fileOf(_wrapped, _file))) {
  writerThreads().add(writer_);
}

BatchHandle::~BatchHandle() {
  const platform::CancellationDelay delay;
  writerThreads().remove(*writer_);
  writer_->stop();
}

void BatchHandle::attend() {
  const platform::CancellationDelay delay;
  if (!writer_->attend() || !writerThreads().start(*writer_)) return;
  const boost::this_thread::disable_interruption uninterrupted;
  boost::this_thread::sleep_for(startDelay);
}

}  // namespace detail

ts_appender::ts_appender(const appender& _wrapped, int _sleepMs) : ts_appender(_wrapped, _sleepMs, std::string()) {}

ts_appender::ts_appender(const appender& _wrapped, int _sleepMs, const std::string& _fileName)
    : handle_(new detail::BatchHandle(_wrapped, _sleepMs, _fileName)) {}

void ts_appender::operator()(const std::string& /*_logName*/, const std::string& _message) const {
  handle_->append(_message);
}

}  // namespace boost::logging
