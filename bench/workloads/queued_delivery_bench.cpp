// SPDX-License-Identifier: MIT
// How long a line that is handed to a writer thread takes into the file. A second process polls the size of the file,
// so that it keeps neither the caller nor the writer awake; it looks every 20 us or so, which is part of every figure.
// About 200 lines a second, with pauses of 0 to 10 ms.
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <random>
#include <thread>
#include <vector>

#include "bench/harness.h"

namespace {

constexpr int mostLines = 10000;

/// What both processes see. The first line, which starts the writer, tells how long a line is.
struct Shared {
  std::atomic<std::int64_t> lineSize;
  std::atomic<bool> allLogged;
  std::atomic<std::int64_t> inFile[mostLines];
};

Shared* makeShared() {
  void* const memory = ::mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  return memory == MAP_FAILED ? nullptr : new (memory) Shared();
}

/// In the second process: notes when each line is in the file, until all are or none has come for two seconds.
void watch(const std::string& _file, int _lines, Shared& _shared) {
  constexpr std::int64_t patience = 2000000000;
  std::int64_t lastGrowth = bench::nanoseconds();
  for (int known = 0; known < _lines;) {
    const std::int64_t lineSize = _shared.lineSize;
    const std::int64_t size = lineSize > 0 ? bench::sizeOf(_file) : 0;
    const std::int64_t now = bench::nanoseconds();
    for (; known < _lines && lineSize > 0 && size >= lineSize * (known + 2); ++known) {
      _shared.inFile[known] = now;
      lastGrowth = now;
    }
    if (_shared.allLogged && now - lastGrowth > patience) {
      return;
    }
    std::this_thread::sleep_for(std::chrono::microseconds(20));
  }
}

pid_t startWatcher(const bench::Options& _options, Shared& _shared) {
  const pid_t watcher = ::fork();
  if (watcher == 0) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    ::prctl(PR_SET_TIMERSLACK, 1);
    watch(_options.file(), _options.count, _shared);
    ::_exit(0);
  }
  return watcher;
}

std::vector<std::int64_t> logWithPauses(bench::Subject& _subject, int _lines) {
  std::vector<std::int64_t> logged;
  std::mt19937 random(1);
  std::uniform_int_distribution<int> microseconds(0, 10000);
  for (int i = 0; i < _lines; ++i) {
    std::this_thread::sleep_for(std::chrono::microseconds(microseconds(random)));
    logged.push_back(bench::nanoseconds());
    _subject.logLines(1);
  }
  return logged;
}

void reportDelays(const std::vector<std::int64_t>& _logged, const Shared& _shared) {
  std::vector<std::int64_t> delays;
  for (std::size_t i = 0; i < _logged.size(); ++i) {
    if (_shared.inFile[i] > 0) {
      delays.push_back(_shared.inFile[i] - _logged[i]);
    }
  }
  std::sort(delays.begin(), delays.end());
  if (!delays.empty()) {
    bench::report("p50_us", static_cast<double>(delays[delays.size() / 2]) / 1e3);
    bench::report("p99_us", static_cast<double>(delays[delays.size() * 99 / 100]) / 1e3);
  }
  bench::report("lines_lost", static_cast<double>(_logged.size() - delays.size()));
}

}  // namespace

int main(int _argc, char** _argv) {
  return bench::runWorkload(_argc, _argv, 400, [](bench::Subject& _subject, const bench::Options& _options) {
    Shared* const shared = makeShared();
    const pid_t watcher = shared == nullptr || _options.count > mostLines ? -1 : startWatcher(_options, *shared);
    if (watcher < 0) {
      std::perror("watcher");
      std::exit(1);
    }
    if (!_subject.openQueued(_options.file())) {
      ::kill(watcher, SIGKILL);
      ::waitpid(watcher, nullptr, 0);
      return false;
    }
    _subject.logLines(1);
    shared->lineSize = bench::waitForSize(_options.file(), 1);
    const std::vector<std::int64_t> logged = logWithPauses(_subject, _options.count);
    shared->allLogged = true;
    ::waitpid(watcher, nullptr, 0);
    reportDelays(logged, *shared);
    return true;
  });
}
