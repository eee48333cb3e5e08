// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "tests/support/temporary_folder.h"

namespace testsupport {

/// A fixture for tests that write to standard output while that is impossible. By default such a write raises a signal
/// that ends the process, so each test that goes on also shows that none came.
class TroubledOutput : public testing::Test {
 protected:
  using Action = std::function<void()>;

  /// Runs the action while standard output is a pipe that nobody reads.
  static void whileNobodyReads(const Action& _action);

  /// Runs the action while standard output is on a full disk.
  static void onAFullDisk(const Action& _action);

  /// Runs the action while standard output is a file that cannot grow beyond four bytes.
  void underAFileSizeLimit(const Action& _action) const;

  /// Runs the action while standard output is that file again, now without the limit, and expects the file to end with
  /// the line. What the stream still held may come first.
  void expectLastLine(const std::string& _line, const Action& _action) const;

 private:
  int openFile() const;

  TemporaryFolder folder_;
};

}  // namespace testsupport
