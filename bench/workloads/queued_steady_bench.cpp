// SPDX-License-Identifier: MIT
// What a steady trickle of lines costs: one thread logs --rate lines a second, evenly, for two seconds, and hands them
// to a writer thread. The processor time is that of the whole process; the sleeping of the caller is part of it.
#include <chrono>
#include <thread>

#include "bench/harness.h"

namespace {

constexpr int seconds = 2;

void logSteadily(bench::Subject& _subject, int _rate) {
  const auto interval = std::chrono::nanoseconds(std::chrono::seconds(1)) / _rate;
  const auto start = std::chrono::steady_clock::now();
  for (int i = 1; i <= _rate * seconds; ++i) {
    _subject.logLines(1);
    std::this_thread::sleep_until(start + i * interval);
  }
}

}  // namespace

int main(int _argc, char** _argv) {
  return bench::runWorkload(_argc, _argv, 1, [](bench::Subject& _subject, const bench::Options& _options) {
    if (!_subject.openQueued(_options.file())) {
      return false;
    }
    _subject.logLines(1);  // starts the writer
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    const auto processor = bench::processorNanoseconds();
    const auto start = bench::nanoseconds();
    logSteadily(_subject, _options.rate);
    const auto used = static_cast<double>(bench::processorNanoseconds() - processor);
    bench::report("processor_percent", 100 * used / static_cast<double>(bench::nanoseconds() - start));
    return true;
  });
}
