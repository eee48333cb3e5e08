// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "config/cfg_data_manager.h"
#include "tests/config/scarce_memory.h"
#include "tests/support/config_sandbox.h"

namespace {

// Every request for memory fails once, until there are no more.
TEST(CfgFilePathMemory, ReturnsFalseWhicheverAllocationFails) {
  const testsupport::ConfigSandbox sandbox;
  sandbox.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
  CfgDataManager* const manager = CfgDataManager::getInstance(false);
  const std::string ca = "GE";
  int failures = 0;
  for (bool hasFailed = true; hasFailed; failures += hasFailed ? 1 : 0) {
    std::string path;
    const testsupport::ScarceMemory memory(failures + 1);
    const bool done = manager->getQmrkCfgFilePath(path, ca, true);
    hasFailed = memory.hasFailed();
    ASSERT_EQ(done, !hasFailed) << "request " << failures + 1;
  }
  EXPECT_GT(failures, 3);
}

}  // namespace
