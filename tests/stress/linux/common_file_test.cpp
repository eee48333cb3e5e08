// SPDX-License-Identifier: MIT
// Many processes and threads append to one file.
#include <algorithm>
#include <thread>

#include "tests/stress/linux/scale.h"
#include "tests/stress/linux/writers.h"

namespace {

using stress::Oracle;
using stress::Tally;
using stress::Way;

class CommonFile : public stress::Writers {
 protected:
  static void expectNothingWrong(const Tally& _tally) {
    EXPECT_GT(_tally.written, 0);
    EXPECT_EQ(_tally.found, _tally.written);
    EXPECT_EQ(_tally.lost + _tally.torn + _tally.duplicated + _tally.glued + _tally.disordered, 0) << _tally;
  }

  void logFromThreadsOfProcesses(Way _way) const {
    constexpr std::uint32_t processCount = 4;
    constexpr std::uint32_t threadCount = 8;
    Oracle oracle(processCount * threadCount);
    const int lineCount = stress::scaled(150);
    std::vector<pid_t> processes;
    for (std::uint32_t process = 0; process < processCount; ++process) {
      processes.push_back(start(_way, [&oracle, process, lineCount] {
        std::vector<std::thread> threads;
        for (std::uint32_t thread = 0; thread < threadCount; ++thread) {
          threads.emplace_back([&oracle, process, thread, lineCount] {
            logLines(oracle, process * threadCount + thread, lineCount, 64 * 1024);
          });
        }
        std::for_each(threads.begin(), threads.end(), [](std::thread& _thread) { _thread.join(); });
      }));
    }
    stress::expectNormalEnds(processes);
    const Tally tally = oracle.check(text(_way));
    expectNothingWrong(tally);
    stress::report(tally);
  }
};

TEST_F(CommonFile, KeepsEveryLineOfEightThreadsInEachOfFourProcesses) { logFromThreadsOfProcesses(Way::commonLog); }

TEST_F(CommonFile, KeepsEveryLineOfEightThreadsInEachOfFourThreadSafeProcesses) {
  logFromThreadsOfProcesses(Way::threadSafe);
}

TEST_F(CommonFile, KeepsEveryLineOfTwoHundredShortLivedProcesses) {
  constexpr std::uint32_t processCount = 200;
  constexpr std::uint32_t atOnce = 8;
  for (int round = 0; round < stress::scaled(1); ++round) {
    Oracle oracle(processCount);
    testsupport::removeAll(path(Way::commonLog));
    std::vector<pid_t> processes;
    for (std::uint32_t process = 0; process < processCount; ++process) {
      const Way way = process % 2 == 0 ? Way::commonLog : Way::threadSafe;
      processes.push_back(start(way, [&oracle, process] { logLines(oracle, process, 25, 64 * 1024); }));
      if (processes.size() < atOnce) continue;
      stress::expectNormalEnds({processes.front()});
      processes.erase(processes.begin());
    }
    stress::expectNormalEnds(processes);
    const Tally tally = oracle.check(text(Way::commonLog));
    expectNothingWrong(tally);
    stress::report(tally);
  }
}

}  // namespace
