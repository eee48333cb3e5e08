// SPDX-License-Identifier: MIT
// One thread, each message written at once, a file of at most 1,000,000 bytes and four backups.
#include "bench/harness.h"

int main(int _argc, char** _argv) {
  return bench::runWorkload(_argc, _argv, 200000, [](bench::Subject& _subject, const bench::Options& _options) {
    if (!_subject.openRolling(_options.file(), 1000000, 5)) {
      return false;
    }
    _subject.logLines(1000);
    const auto start = bench::nanoseconds();
    _subject.logLines(_options.count);
    bench::report("ns_per_line", static_cast<double>(bench::nanoseconds() - start) / _options.count);
    return true;
  });
}
