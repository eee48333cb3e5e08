// SPDX-License-Identifier: MIT
// Forks, signal handlers and exits in a process that logs.
#include <pthread.h>
#include <sys/time.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <thread>

#include "tests/stress/linux/scale.h"
#include "tests/stress/linux/writers.h"
#include "tests/support/linux/forked_child.h"

namespace {

using stress::Oracle;
using stress::Tally;
using stress::Way;

void expectNothingWrong(const Tally& _tally) {
  EXPECT_EQ(_tally.found, _tally.written);
  EXPECT_EQ(_tally.lost + _tally.torn + _tally.duplicated + _tally.glued + _tally.disordered, 0) << _tally;
}

class ForkDuringLogging : public stress::Writers {
 protected:
  /// A process whose threads log forks again and again; each child logs, sets up again, logs and ends.
  void forkWhileThreadsLog(Way _way) const {
    constexpr std::uint32_t threadCount = 3;
    const auto forks = static_cast<std::uint32_t>(stress::scaled(25));
    Oracle oracle(threadCount + forks);
    stress::expectNormalEnds({start(_way, [&oracle, forks, _way] {
      std::atomic<bool> isOver{false};
      std::vector<std::thread> threads;
      for (std::uint32_t thread = 0; thread < threadCount; ++thread) {
        threads.emplace_back([&oracle, &isOver, thread] {
          while (!isOver) {
            logLines(oracle, thread, 10, 300);
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
          }
        });
      }
      for (std::uint32_t child = 0; child < forks; ++child) {
        const int exitCode = testsupport::exitCodeOf(forkedChild(oracle, threadCount + child, _way));
        if (exitCode != 0) std::abort();
      }
      isOver = true;
      for (std::thread& thread : threads)
        thread.join();
    })});
    const Tally tally = oracle.check(text(_way));
    stress::report(forks, " forks: ", tally);
    expectNothingWrong(tally);
  }

 private:
  static pid_t forkedChild(Oracle& _oracle, std::uint32_t _writer, Way _way) {
    const pid_t child = ::fork();
    if (child != 0) return child;
    ::alarm(60);
    logLines(_oracle, _writer, 5, 300);
    if (!setUp(_way)) ::_exit(1);
    logLines(_oracle, _writer, 5, 300);
    std::exit(0);
  }
};

TEST_F(ForkDuringLogging, LosesNothingInTheCommonLog) { forkWhileThreadsLog(Way::commonLog); }

TEST_F(ForkDuringLogging, LosesNothingInTheApplicationFile) { forkWhileThreadsLog(Way::applicationFile); }

TEST_F(ForkDuringLogging, LosesNothingInThreadSafeMode) { forkWhileThreadsLog(Way::threadSafe); }

// The rolling file belongs to one process: the children leave it alone.
TEST_F(ForkDuringLogging, LosesNothingInTheRollingFile) {
  Oracle oracle(1);
  const int forks = stress::scaled(25);
  stress::expectNormalEnds({start(Way::rollingFile, [&oracle, forks] {
    std::thread writer([&oracle] { logLines(oracle, 0, 2000, 300); });
    for (int i = 0; i < forks; ++i) {
      const pid_t child = ::fork();
      if (child == 0) std::exit(0);
      if (testsupport::exitCodeOf(child) != 0) std::abort();
    }
    writer.join();
  })});
  const Tally tally = oracle.check(text(Way::rollingFile));
  expectNothingWrong(tally);
  stress::report(forks, " forks: ", tally);
}

class ExitFromASecondThread : public stress::Writers {
 protected:
  /// Two threads log, and the second calls exit after its last line.
  void run(Way _way) const {
    const int exits = stress::scaled(10);
    Tally sum;
    for (int i = 0; i < exits; ++i) {
      testsupport::removeAll(sandbox_.logFolder());
      Oracle oracle(2);
      stress::expectNormalEnds({start(_way, [&oracle] {
        std::thread([&oracle] {
          logLines(oracle, 1, 500, 300);
          std::exit(0);
        }).detach();
        while (true)
          logLines(oracle, 0, 1, 300);
      })});
      const Tally tally = oracle.check(text(_way));
      EXPECT_EQ(tally.torn + tally.duplicated + tally.glued + tally.disordered, 0) << tally;
      // What the first thread logs while the process ends may come too late for its writer thread.
      EXPECT_EQ(stress::countLinesOf(1, text(_way)), 500);
      EXPECT_TRUE(_way == Way::threadSafe || tally.lost == 0) << tally;
      sum.written += tally.written;
      sum.found += tally.found;
      sum.lost += tally.lost;
    }
    stress::report(exits, " exits, nothing of the thread that ended lost: ", sum);
  }
};

TEST_F(ExitFromASecondThread, LosesNoStatementInTheCommonLog) { run(Way::commonLog); }

TEST_F(ExitFromASecondThread, LosesNoStatementInThreadSafeMode) { run(Way::threadSafe); }

TEST_F(ExitFromASecondThread, LosesNoStatementInTheApplicationFile) { run(Way::applicationFile); }

class SignalHandler : public stress::Writers {
 protected:
  static constexpr std::uint32_t ofTheHandler = 1;

  /// Lets a timer signal the process some times, with the calling thread in the given work, outside of any statement.
  static void logFromAHandler(Oracle& _oracle, int _signals) {
    handled() = 0;
    shared() = &_oracle;
    struct sigaction action {};
    action.sa_handler = [](int) {
      logLines(*shared(), ofTheHandler, 1, 100);
      handled() = handled() + 1;
    };
    ::sigaction(SIGALRM, &action, nullptr);
    while (handled() < _signals) {
      const itimerval soon{{0, 0}, {0, 500}};
      const int before = handled();
      ::setitimer(ITIMER_REAL, &soon, nullptr);
      // Work of the application that neither logs nor allocates.
      while (handled() == before) {
      }
      logLines(_oracle, 0, 3, 100);
    }
  }

  void run(Way _way) const {
    const int signals = stress::scaled(200);
    Oracle oracle(2);
    stress::expectNormalEnds({start(_way, [&oracle, signals] { logFromAHandler(oracle, signals); })});
    const Tally tally = oracle.check(text(_way));
    expectNothingWrong(tally);
    stress::report(signals, " signals: ", tally);
  }

 private:
  static volatile std::sig_atomic_t& handled() {
    static volatile std::sig_atomic_t count = 0;
    return count;
  }
  static Oracle*& shared() {
    static Oracle* oracle = nullptr;
    return oracle;
  }
};

TEST_F(SignalHandler, MayLogOutsideOfStatements) { run(Way::commonLog); }

TEST_F(SignalHandler, MayLogOutsideOfStatementsInThreadSafeMode) { run(Way::threadSafe); }

TEST_F(SignalHandler, ShouldRatherBeAThreadThatWaitsForTheSignal) {
  const int signals = stress::scaled(200);
  Oracle oracle(2);
  stress::expectNormalEnds({start(Way::commonLog, [&oracle, signals] {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGUSR1);
    ::pthread_sigmask(SIG_BLOCK, &set, nullptr);
    std::atomic<int> handled{0};
    std::thread waiter([&oracle, &handled, &set, signals] {
      while (handled < signals) {
        int signal = 0;
        ::sigwait(&set, &signal);
        logLines(oracle, ofTheHandler, 1, 100);
        ++handled;
      }
    });
    for (int sent = 0; sent < signals; ++sent) {
      ::kill(::getpid(), SIGUSR1);
      while (handled <= sent)
        logLines(oracle, 0, 1, 100);
    }
    waiter.join();
  })});
  const Tally tally = oracle.check(text(Way::commonLog));
  expectNothingWrong(tally);
  stress::report(signals, " signals that come in the middle of statements: ", tally);
}

}  // namespace
