// SPDX-License-Identifier: MIT
#include "tests/support/child_process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/support/temporary_folder.h"

namespace testsupport {
namespace {

std::vector<char*> argumentVector(const std::string& _program, const std::vector<std::string>& _arguments) {
  std::vector<char*> vector{const_cast<char*>(_program.c_str())};
  for (const std::string& argument : _arguments) {
    vector.push_back(const_cast<char*>(argument.c_str()));
  }
  vector.push_back(nullptr);
  return vector;
}

int waitFor(pid_t _child) {
  int status = 0;
  if (::waitpid(_child, &status, 0) != _child) return -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

ChildResult runProgram(const std::string& _program, const std::vector<std::string>& _arguments) {
  const TemporaryFolder folder;
  const std::string output = folder.path() + "/output";
  const std::string errors = folder.path() + "/errors";
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0666);
  ::posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, errors.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0666);
  pid_t child = -1;
  const int failure =
      ::posix_spawn(&child, _program.c_str(), &actions, nullptr, argumentVector(_program, _arguments).data(), environ);
  ::posix_spawn_file_actions_destroy(&actions);
  ChildResult result;
  if (failure != 0) return result;
  result.exitCode = waitFor(child);
  result.output = readFile(output);
  result.errors = readFile(errors);
  return result;
}

}  // namespace testsupport
