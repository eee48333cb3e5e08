// SPDX-License-Identifier: MIT
#include "tests/support/child_process.h"

#include <fcntl.h>
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

bool redirect(int _descriptor, const char* _path) {
  const int file = ::open(_path, O_WRONLY | O_CREAT | O_APPEND, 0666);
  return file != -1 && ::dup2(file, _descriptor) != -1 && ::close(file) == 0;
}

// The program belongs wholly to the user whose rights the caller has at the moment. One that could take other rights
// back is no such user's, and may not be examined, not even by its own leak sanitizer.
bool becomeEffectiveUser() {
  const gid_t group = ::getegid();
  const uid_t user = ::geteuid();
  return ::setresgid(group, group, group) == 0 && ::setresuid(user, user, user) == 0;
}

}  // namespace

ChildResult runProgram(const std::string& _program, const std::vector<std::string>& _arguments) {
  const TemporaryFolder folder;
  const std::string output = folder.path() + "/output";
  const std::string errors = folder.path() + "/errors";
  const std::vector<char*> arguments = argumentVector(_program, _arguments);
  const pid_t child = ::fork();
  if (child == 0) {
    constexpr int notStarted = 127;
    if (redirect(STDOUT_FILENO, output.c_str()) && redirect(STDERR_FILENO, errors.c_str()) && becomeEffectiveUser())
      ::execv(_program.c_str(), arguments.data());
    ::_exit(notStarted);
  }
  ChildResult result;
  if (child == -1) return result;
  result.exitCode = waitFor(child);
  result.output = readFile(output);
  result.errors = readFile(errors);
  return result;
}

}  // namespace testsupport
