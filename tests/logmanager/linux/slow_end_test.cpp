// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>

#include "tests/support/child_process.h"
#include "tests/support/temporary_folder.h"

namespace {

// On Windows the system ends the thread before.
TEST(SlowEnd, DelaysTheEndOfTheProcessUntilTheAppenderIsDone) {
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.file("app.log");
  EXPECT_EQ(testsupport::runProgram(LOGGING_APPLICATION, {"slow-end", path}).exitCode, 0);
  EXPECT_EQ(testsupport::readFile(path), "logged\ndestroyed\n");
}

}  // namespace
