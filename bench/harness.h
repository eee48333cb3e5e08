// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "bench/subject.h"

namespace bench {

/// The arguments of a workload program: --subject NAME --folder DIR [--count N] [--threads N] [--rounds N] [--rate N].
struct Options {
  std::string folder;
  int count = 0;
  int threads = 1;
  int rounds = 10;
  int rate = 100;

  std::string file() const { return folder + "/bench.log"; }
};

/// Runs one round of one workload for one subject in this process. A workload prints its figures with report, and
/// returns false when the subject has no such feature; the exit code is then 3.
int runWorkload(int _argc, char** _argv, int _defaultCount,
                const std::function<bool(Subject&, const Options&)>& _workload);

/// Prints "<metric> <value>" for the script that compares the subjects.
void report(const std::string& _metric, double _value);

std::int64_t nanoseconds();

/// The processor time of the process so far, in nanoseconds.
std::int64_t processorNanoseconds();

/// The bytes of the file; 0 when there is none.
std::int64_t sizeOf(const std::string& _file);

/// Waits until the file has the bytes of that many lines, or has not grown for two seconds; returns its size.
std::int64_t waitForSize(const std::string& _file, std::int64_t _bytes);

/// Line feeds in the file and its numbered backups.
std::int64_t countLines(const std::string& _file);

}  // namespace bench
