// SPDX-License-Identifier: MIT
#include "bench/harness.h"

#include <time.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <thread>

namespace bench {
namespace {

constexpr int notSupported = 3;

}  // namespace

int runWorkload(int _argc, char** _argv, int _defaultCount,
                const std::function<bool(Subject&, const Options&)>& _workload) {
  CLI::App app("One round of one workload; prints its figures.");
  Options options;
  options.count = _defaultCount;
  std::string name;
  app.add_option("--subject", name)->required()->check(CLI::IsMember(subjectNames()));
  app.add_option("--folder", options.folder)->required()->check(CLI::ExistingDirectory);
  app.add_option("--count", options.count)->check(CLI::PositiveNumber);
  app.add_option("--threads", options.threads)->check(CLI::PositiveNumber);
  app.add_option("--rounds", options.rounds)->check(CLI::PositiveNumber);
  app.add_option("--rate", options.rate)->check(CLI::PositiveNumber);
  CLI11_PARSE(app, _argc, _argv);
  const std::unique_ptr<Subject> subject = makeSubject(name);
  return _workload(*subject, options) ? 0 : notSupported;
}

void report(const std::string& _metric, double _value) { std::cout << _metric << ' ' << _value << std::endl; }

std::int64_t nanoseconds() {
  return std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::steady_clock::now().time_since_epoch())
      .count();
}

std::int64_t processorNanoseconds() {
  timespec used{};
  ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
  return static_cast<std::int64_t>(used.tv_sec) * 1000000000 + used.tv_nsec;
}

std::int64_t sizeOf(const std::string& _file) {
  std::error_code missing;
  const auto size = std::filesystem::file_size(_file, missing);
  return missing ? 0 : static_cast<std::int64_t>(size);
}

std::int64_t waitForSize(const std::string& _file, std::int64_t _bytes) {
  constexpr std::int64_t patience = 2000000000;
  std::int64_t size = -1;
  std::int64_t lastGrowth = nanoseconds();
  while (size < _bytes && nanoseconds() - lastGrowth < patience) {
    const std::int64_t current = sizeOf(_file);
    if (current != size) {
      size = current;
      lastGrowth = nanoseconds();
    }
    std::this_thread::sleep_for(std::chrono::microseconds(20));
  }
  return size;
}

std::int64_t countLines(const std::string& _file) {
  std::ifstream file(_file, std::ios::binary);
  return std::count(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>(), '\n');
}

}  // namespace bench
