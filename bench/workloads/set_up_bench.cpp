// SPDX-License-Identifier: MIT
// initDefaultLogs in the sandbox that the environment names. Each iteration but the first replaces an earlier set-up.
#include <benchmark/benchmark.h>

#include <boost/logging/logging.hpp>
#include <cstdint>
#include <string>

#include "quillmark_logging.h"

namespace {

void initialiseDefaultLogs(benchmark::State& _state) {
  for (auto round : _state) {
    if (!Quillmark_logging::initDefaultLogs("set_up_bench", false)) {
      _state.SkipWithError("the set-up failed");
      break;
    }
  }
}
BENCHMARK(initialiseDefaultLogs);

/// The same where an application has created so many logs.
void initialiseDefaultLogsOverLogs(benchmark::State& _state) {
  for (std::int64_t i = 0; i < _state.range(0); ++i)
    boost::logging::logger("Class" + std::to_string(i) + ".part.info");
  initialiseDefaultLogs(_state);
}
BENCHMARK(initialiseDefaultLogsOverLogs)->Arg(4000);

}  // namespace

BENCHMARK_MAIN();
