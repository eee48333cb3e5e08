// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "tests/support/temporary_folder.h"

namespace testsupport {

/// Tests of what writes to the standard output, for a time in which it cannot be written to. The signal of such a write
/// ends a process by default, so each test also shows, by going on, that none came.
class TroubledOutput : public testing::Test {
 protected:
  using Action = std::function<void()>;

  /// Acts while the standard output leads to a pipe that nobody reads.
  static void whileNobodyReads(const Action& _action);

  /// Acts while the standard output leads to a full disk.
  static void onAFullDisk(const Action& _action);

  /// Acts while the standard output leads to a file that may not grow beyond four bytes.
  void underAFileSizeLimit(const Action& _action) const;

  /// Acts while the standard output leads to that file again, which is writable now, and expects it to end with the
  /// line. What the stream still held from the trouble may come first.
  void expectLastLine(const std::string& _line, const Action& _action) const;

 private:
  int openFile() const;

  TemporaryFolder folder_;
};

}  // namespace testsupport
