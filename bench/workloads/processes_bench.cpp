// SPDX-License-Identifier: MIT
// Two processes, each opens the same file and logs to it; then the lines in the file are counted.
#include <sys/wait.h>
#include <unistd.h>

#include <vector>

#include "bench/harness.h"

namespace {

constexpr int processes = 2;

// The children wait for the end of the pipe, so that they start together.
pid_t startChild(bench::Subject& _subject, const bench::Options& _options, const int (&_pipe)[2]) {
  const pid_t child = ::fork();
  if (child == 0) {
    ::close(_pipe[1]);
    char byte = 0;
    const bool ready = _subject.openPlain(_options.file()) && ::read(_pipe[0], &byte, 1) == 0;
    if (ready) {
      _subject.logLines(_options.count);
    }
    ::_exit(ready ? 0 : 3);
  }
  return child;
}

}  // namespace

int main(int _argc, char** _argv) {
  return bench::runWorkload(_argc, _argv, 100000, [](bench::Subject& _subject, const bench::Options& _options) {
    int pipe[2];
    if (::pipe(pipe) != 0) {
      return false;
    }
    std::vector<pid_t> children;
    for (int i = 0; i < processes; ++i) {
      children.push_back(startChild(_subject, _options, pipe));
    }
    ::close(pipe[0]);
    ::usleep(200000);
    const auto start = bench::nanoseconds();
    ::close(pipe[1]);
    bool all = true;
    for (const pid_t child : children) {
      int status = 0;
      all = ::waitpid(child, &status, 0) == child && status == 0 && all;
    }
    const int lines = processes * _options.count;
    bench::report("ns_per_line", static_cast<double>(bench::nanoseconds() - start) / lines);
    bench::report("lines_lost", static_cast<double>(lines - bench::countLines(_options.file())));
    return all;
  });
}
