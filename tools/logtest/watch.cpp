// SPDX-License-Identifier: MIT
#include "tools/logtest/watch.h"

#include <chrono>
#include <cstdio>
#include <iostream>
#include <thread>

#include "quillmark_logging.h"

namespace logtest {
namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds interval(100);

void tellState(const ClassLog& _class, Clock::duration _since) {
  char seconds[32];
  std::snprintf(seconds, sizeof seconds, "%6.1f s  ", std::chrono::duration<double>(_since).count());
  std::cout << seconds + _class.log.name() + (_class.log.is_enabled() ? " is on\n" : " is off\n") << std::flush;
}

}  // namespace

void watch(std::vector<ClassLog>& _classes, double _seconds, bool _stamps) {
  const LogEventHandler listener;
  const auto begin = Clock::now();
  const auto end = begin + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(_seconds));
  std::vector<int> told(_classes.size(), -1);
  for (auto next = begin; next < end; next += interval) {
    std::this_thread::sleep_until(next);
    for (std::size_t i = 0; i < _classes.size(); ++i) {
      const int state = _classes[i].log.is_enabled() ? 1 : 0;
      if (state != told[i]) tellState(_classes[i], next - begin);
      told[i] = state;
      logLine(_classes[i], "line " + std::to_string(_classes[i].lines + 1), _stamps);
    }
  }
  std::this_thread::sleep_until(end);
}

}  // namespace logtest
