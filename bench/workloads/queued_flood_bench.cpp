// SPDX-License-Identifier: MIT
// Messages handed to a writer thread as fast as the callers can, until all are in the file; then the processor time of
// the idle process over three seconds.
#include <thread>
#include <vector>

#include "bench/harness.h"
#include "bench/message.h"

namespace {

// It is the same whatever came before.
void reportIdle() {
  std::this_thread::sleep_for(std::chrono::seconds(1));
  const auto idle = bench::processorNanoseconds();
  std::this_thread::sleep_for(std::chrono::seconds(3));
  bench::report("idle_ms", static_cast<double>(bench::processorNanoseconds() - idle) / 1e6);
}

}  // namespace

int main(int _argc, char** _argv) {
  return bench::runWorkload(_argc, _argv, 200000, [](bench::Subject& _subject, const bench::Options& _options) {
    if (!_subject.openQueued(_options.file())) {
      return false;
    }
    _subject.logLines(1);  // starts the writer
    const std::int64_t before = bench::waitForSize(_options.file(), 1);
    const auto start = bench::nanoseconds();
    std::vector<std::thread> threads;
    for (int i = 0; i < _options.threads; ++i) {
      threads.emplace_back([&] { _subject.logLines(_options.count / _options.threads); });
    }
    for (std::thread& thread : threads) {
      thread.join();
    }
    bench::waitForSize(_options.file(), before * (_options.count + 1));
    bench::report("lines_per_second", 1e9 * _options.count / static_cast<double>(bench::nanoseconds() - start));
    bench::report("lines_lost", static_cast<double>(_options.count + 1 - bench::countLines(_options.file())));
    if (_options.threads == 1) {
      reportIdle();
    }
    return true;
  });
}
