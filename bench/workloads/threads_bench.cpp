// SPDX-License-Identifier: MIT
// Several threads, one file, each message written at once.
#include <thread>
#include <vector>

#include "bench/harness.h"

int main(int _argc, char** _argv) {
  return bench::runWorkload(_argc, _argv, 200000, [](bench::Subject& _subject, const bench::Options& _options) {
    if (!_subject.openPlain(_options.file())) {
      return false;
    }
    const auto start = bench::nanoseconds();
    std::vector<std::thread> threads;
    for (int i = 0; i < _options.threads; ++i) {
      threads.emplace_back([&] { _subject.logLines(_options.count / _options.threads); });
    }
    for (std::thread& thread : threads) {
      thread.join();
    }
    bench::report("lines_per_second", 1e9 * _options.count / static_cast<double>(bench::nanoseconds() - start));
    return true;
  });
}
