// SPDX-License-Identifier: MIT
#include "tests/support/companion_process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <utility>

#include "tests/support/linux/sleeping_process.h"

namespace testsupport {
namespace {

using Clock = std::chrono::steady_clock;

std::array<int, 2> makePipe() {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
    std::abort();
  }
  return ends;
}

int waitForEnd(long _process) {
  int status = 0;
  while (::waitpid(static_cast<pid_t>(_process), &status, 0) == -1 && errno == EINTR) {
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

CompanionProcess::CompanionProcess(const std::vector<std::string>& _command) {
  // A child that has ended must not end the test when it is sent a line.
  std::signal(SIGPIPE, SIG_IGN);
  const auto toChild = makePipe();
  const auto fromChild = makePipe();
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, toChild[0], STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, fromChild[1], STDOUT_FILENO);
  std::vector<char*> arguments;
  arguments.reserve(_command.size() + 1);
  for (const std::string& argument : _command) {
    arguments.push_back(const_cast<char*>(argument.c_str()));
  }
  arguments.push_back(nullptr);
  pid_t process = -1;
  if (::posix_spawn(&process, arguments[0], &actions, nullptr, arguments.data(), environ) != 0) {
    std::abort();
  }
  posix_spawn_file_actions_destroy(&actions);
  ::close(toChild[0]);
  ::close(fromChild[1]);
  process_ = process;
  input_ = toChild[1];
  output_ = fromChild[0];
}

void CompanionProcess::closeIfOpen(int& _end) {
  if (_end >= 0) ::close(std::exchange(_end, -1));
}

void CompanionProcess::send(const std::string& _line) {
  const std::string bytes = _line + "\n";
  // Shorter than what a pipe takes at once; nothing to do about a child that has ended.
  [[maybe_unused]] const ssize_t written = ::write(input_, bytes.data(), bytes.size());
}

std::string CompanionProcess::readLine(int _milliseconds) {
  const auto deadline = Clock::now() + std::chrono::milliseconds(_milliseconds);
  for (;;) {
    std::string line;
    if (takeLine(line)) return line;
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
    pollfd ready{output_, POLLIN, 0};
    if (::poll(&ready, 1, left > 0 ? static_cast<int>(left) : 0) <= 0) {
      return "<nothing>";
    }
    std::array<char, 4096> bytes{};
    const ssize_t got = ::read(output_, bytes.data(), bytes.size());
    if (got <= 0) {
      return "<end>";
    }
    buffered_.append(bytes.data(), static_cast<std::size_t>(got));
  }
}

void CompanionProcess::kill() {
  if (process_ > 0) {
    ::kill(static_cast<pid_t>(process_), SIGKILL);
    finish();
  }
}

int CompanionProcess::finish() {
  closeIfOpen(input_);
  return process_ > 0 ? waitForEnd(std::exchange(process_, -1)) : -1;
}

bool CompanionProcess::waitUntilAsleep() const { return waitUntilProcessSleeps(process_); }

}  // namespace testsupport
