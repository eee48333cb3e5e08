// SPDX-License-Identifier: MIT
// What a caller waits for a message that is handed to a writer thread, in bursts of 20 lines that are 1 ms apart, and
// the processor time that the whole process takes for a line. The two readings of the clock are part of every figure,
// the baseline's too.
#include <algorithm>
#include <thread>
#include <vector>

#include "bench/harness.h"

int main(int _argc, char** _argv) {
  return bench::runWorkload(_argc, _argv, 20000, [](bench::Subject& _subject, const bench::Options& _options) {
    if (!_subject.openQueued(_options.file())) {
      return false;
    }
    _subject.logLines(1);  // starts the writer
    std::vector<std::int64_t> latencies;
    latencies.reserve(static_cast<std::size_t>(_options.count));
    const auto processor = bench::processorNanoseconds();
    while (latencies.size() < static_cast<std::size_t>(_options.count)) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
      for (int i = 0; i < 20; ++i) {
        const auto start = bench::nanoseconds();
        _subject.logLines(1);
        latencies.push_back(bench::nanoseconds() - start);
      }
    }
    const auto used = static_cast<double>(bench::processorNanoseconds() - processor);
    std::sort(latencies.begin(), latencies.end());
    bench::report("p50_ns", static_cast<double>(latencies[latencies.size() / 2]));
    bench::report("p99_ns", static_cast<double>(latencies[latencies.size() / 100 * 99]));
    bench::report("processor_us_per_line", used / 1e3 / static_cast<double>(latencies.size()));
    return true;
  });
}
