// SPDX-License-Identifier: MIT
// One thread, one file, each message written at once.
#include "bench/harness.h"

int main(int _argc, char** _argv) {
  return bench::runWorkload(_argc, _argv, 200000, [](bench::Subject& _subject, const bench::Options& _options) {
    if (!_subject.openPlain(_options.file())) {
      return false;
    }
    _subject.logLines(1000);
    const auto start = bench::nanoseconds();
    _subject.logLines(_options.count);
    bench::report("ns_per_line", static_cast<double>(bench::nanoseconds() - start) / _options.count);
    return true;
  });
}
