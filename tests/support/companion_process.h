// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace testsupport {

/// A process with which a test exchanges lines: the test writes to its standard input and reads its standard output. It
/// shares the test's standard error. For one thread.
class CompanionProcess {
 public:
  /// Starts the program _command[0] with the remaining arguments. Aborts if that fails.
  explicit CompanionProcess(const std::vector<std::string>& _command);
  /// Kills the process if it still runs.
  ~CompanionProcess();
  CompanionProcess(CompanionProcess&& _other) noexcept;
  CompanionProcess& operator=(CompanionProcess&& _other) noexcept;
  CompanionProcess(const CompanionProcess&) = delete;
  CompanionProcess& operator=(const CompanionProcess&) = delete;

  /// Sends a line; has no effect if the process has ended.
  void send(const std::string& _line);

  /// Waits at most _milliseconds for the next complete line.
  /// @return the line without its end; "<end>" if the process has closed its output, "<nothing>" if no line came.
  std::string readLine(int _milliseconds = 30'000);

  /// Sends a line and reads the next one.
  std::string ask(const std::string& _line);

  /// Kills the process as a power cut would (SIGKILL, TerminateProcess) and waits for its end.
  void kill();

  /// Closes its standard input and waits for its end.
  /// @return the exit code; -1 if it was killed.
  int finish();

  /// Waits until every thread of the process sleeps in the system, at most 30 s.
  /// @return whether they do.
  bool waitUntilAsleep() const;

 private:
  void release();
  static void closeIfOpen(int& _end);
  /// Takes the next line, without its end, out of what was read; false if there is no complete one.
  bool takeLine(std::string& _line);

  long process_ = -1;
  int input_ = -1;
  int output_ = -1;
  std::string buffered_;
};

}  // namespace testsupport
