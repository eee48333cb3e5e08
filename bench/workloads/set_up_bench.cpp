// SPDX-License-Identifier: MIT
// initDefaultLogs with a redirected generic file and a filter of 20 entries, in the sandbox that the environment names.
#include <benchmark/benchmark.h>

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

}  // namespace

BENCHMARK_MAIN();
