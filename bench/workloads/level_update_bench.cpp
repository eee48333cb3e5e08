// SPDX-License-Identifier: MIT
// All logs off, then as many patterns as there are logs on: the complete step of a change of the enabled classes.
#include "bench/harness.h"

int main(int _argc, char** _argv) {
  return bench::runWorkload(_argc, _argv, 1000, [](bench::Subject& _subject, const bench::Options& _options) {
    if (!_subject.makeLogs(_options.count)) {
      return false;
    }
    _subject.updateLevels(_options.count);
    const auto start = bench::nanoseconds();
    for (int i = 0; i < _options.rounds; ++i) {
      _subject.updateLevels(_options.count);
    }
    bench::report("us_per_update", static_cast<double>(bench::nanoseconds() - start) / _options.rounds / 1e3);
    return true;
  });
}
