// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>
#include <sys/types.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "tests/stress/linux/oracle.h"
#include "tests/support/config_sandbox.h"

namespace stress {

/// The ways in which this library connects an application's logs to a file.
enum class Way {
  commonLog,        ///< each statement writes to the file that all applications share
  threadSafe,       ///< the same, through a writer thread
  applicationFile,  ///< a plain file of the application's own
  rollingFile,      ///< its file, rolled at 20,000 bytes, with 60 backups
};

/// Configuration files for all ways, in folders of their own.
class Writers : public testing::Test {
 protected:
  Writers();

  /// Sets the process up: from then on, the logs below "Stress" go to the file of this way.
  /// @return whether that succeeded.
  static bool setUp(Way _way);

  /// Logs that many lines of a writer, each with a filler of up to that many characters, and acknowledges each.
  static void logLines(Oracle& _oracle, std::uint32_t _writer, int _count, std::size_t _largestFiller);

  /// Forks a process that sets up, runs the function and ends normally. An alarm ends it when it hangs.
  static pid_t start(Way _way, const std::function<void()>& _function);

  std::string path(Way _way) const;

  /// The text of the file of a way; of all of its files when it rolls, the oldest first.
  std::string text(Way _way) const;

  const testsupport::ConfigSandbox sandbox_;
};

/// Waits for the end of each process, and expects a normal one.
void expectNormalEnds(const std::vector<pid_t>& _processes);

/// Waits until the condition holds, at most two minutes.
/// @return whether it does.
bool comesTrue(const std::function<bool()>& _condition);

}  // namespace stress
