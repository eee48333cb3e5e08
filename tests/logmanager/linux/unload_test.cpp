// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <chrono>
#include <string>

#include "tests/support/child_process.h"
#include "tests/support/temporary_folder.h"

namespace {

TEST(Unload, DeliversWhatIsHeldAndLeavesNothingBehind) {
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.file("plugin.log");
  const auto begin = std::chrono::steady_clock::now();
  const testsupport::ChildResult result =
      testsupport::runProgram(PLUGIN_LOADER, {LOGGING_PLUGIN, path, LOG_MANAGER_NAME});
  EXPECT_EQ(result.exitCode, 0) << result.errors;
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(60));
  std::string lines;
  for (int i = 0; i < 2000; ++i)
    lines += std::to_string(i % 1000) + "\n";
  EXPECT_EQ(testsupport::readFile(path), lines);
}

}  // namespace
