// SPDX-License-Identifier: MIT
#include "tools/system/own_program.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace toolsystem {
namespace {

constexpr char ownProgram[] = "/proc/self/exe";

pid_t spawnInto(int _pipe, const std::vector<std::string>& _arguments) {
  std::vector<char*> words{const_cast<char*>("qmrkctl")};
  for (const std::string& argument : _arguments)
    words.push_back(const_cast<char*>(argument.c_str()));
  words.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  ::posix_spawn_file_actions_adddup2(&actions, _pipe, STDOUT_FILENO);
  ::posix_spawn_file_actions_adddup2(&actions, _pipe, STDERR_FILENO);
  pid_t child = -1;
  const int failure = ::posix_spawn(&child, ownProgram, &actions, nullptr, words.data(), environ);
  ::posix_spawn_file_actions_destroy(&actions);
  return failure == 0 ? child : -1;
}

std::string readAll(int _pipe, std::size_t _most) {
  std::string text;
  std::array<char, 65536> block;
  while (true) {
    const ssize_t size = ::read(_pipe, block.data(), block.size());
    if (size == -1 && errno == EINTR) continue;
    if (size <= 0) return text;
    text.append(block.data(), std::min(static_cast<std::size_t>(size), _most - text.size()));
  }
}

}  // namespace

ProgramResult runOwnProgram(const std::vector<std::string>& _arguments, std::size_t _most) {
  ProgramResult result;
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) return result;
  const pid_t child = spawnInto(ends[1], _arguments);
  ::close(ends[1]);
  if (child != -1) {
    result.output = readAll(ends[0], _most);
    int status = 0;
    while (::waitpid(child, &status, 0) == -1 && errno == EINTR) {
    }
    if (WIFEXITED(status)) result.exitCode = WEXITSTATUS(status);
  }
  ::close(ends[0]);
  return result;
}

}  // namespace toolsystem
