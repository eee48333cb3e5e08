// SPDX-License-Identifier: MIT
// A statement of a log that is off. The instructions are counted from outside, as the difference of two counts.
#include "bench/harness.h"

int main(int _argc, char** _argv) {
  return bench::runWorkload(_argc, _argv, 10000000, [](bench::Subject& _subject, const bench::Options& _options) {
    const auto start = bench::nanoseconds();
    const bool supported = _subject.logOffLines(_options.count);
    bench::report("ns_per_statement", static_cast<double>(bench::nanoseconds() - start) / _options.count);
    return supported;
  });
}
