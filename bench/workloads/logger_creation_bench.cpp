// SPDX-License-Identifier: MIT
// A logger for a name that exists, and for a new name while 1,000 rules are in force.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "bench/message.h"
#include "boost/logging/logging.hpp"

namespace {

constexpr int rules = 1000;
constexpr unsigned int off = 4294967295U;

void createLoggerOfExistingName(benchmark::State& _state) {
  const std::string name = bench::logName;
  const boost::logging::logger first(name);
  for (auto round : _state) {
    const boost::logging::logger again(name);
    benchmark::DoNotOptimize(again);
  }
}
BENCHMARK(createLoggerOfExistingName);

/// How many names were made: every repetition takes new ones.
int created = 0;

void createLoggerOfNewName(benchmark::State& _state) {
  auto& manager = boost::logging::get_default_log_manager();
  for (int i = 0; i < rules; ++i) {
    boost::logging::enable_logs(manager, "Rule" + std::to_string(i), off);
  }
  std::vector<std::string> names;
  for (int i = 0; i < static_cast<int>(_state.max_iterations); ++i) {
    names.push_back("New.Module" + std::to_string(created++) + ".info");
  }
  std::size_t next = 0;
  for (auto round : _state) {
    const boost::logging::logger log(names[next++]);
    benchmark::DoNotOptimize(log);
  }
}
BENCHMARK(createLoggerOfNewName)->Iterations(100000);

}  // namespace

BENCHMARK_MAIN();
