// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <filesystem>

#include "config/auto_generate_cfg.h"
#include "config/cfg_data_manager.h"
#include "platform/native_path.h"
#include "platform/process.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/temporary_folder.h"

namespace {

TEST(LinkedConfiguration, DoesNotTakeALinkToAFolderForACfgFile) {
  const testsupport::TemporaryFolder folder;
  testsupport::makeFolders(folder.file("elsewhere"));
  std::filesystem::create_directory_symlink("elsewhere", platform::nativePath(folder.file("qmrk_logging_CA99.cfg")));
  AutoGenerateCfg generator(false);
  EXPECT_TRUE(generator.setCfgPath(folder.path()));
  EXPECT_FALSE(generator.getCA());
}

TEST(LinkedConfiguration, TakesALinkToAFileForTheFile) {
  const testsupport::TemporaryFolder folder;
  testsupport::writeFile(folder.file("elsewhere"), "");
  std::filesystem::create_symlink("elsewhere", platform::nativePath(folder.file("qmrk_logging_CA99.cfg")));
  AutoGenerateCfg generator(false);
  EXPECT_TRUE(generator.setCfgPath(folder.path()));
  EXPECT_TRUE(generator.getCA());
}

// The file gets its name when it is whole; its name until then can be foretold.
TEST(LinkedConfiguration, OverwritesNoFileToWhichTheNameOfABegunOneLeads) {
  const testsupport::TemporaryFolder folder;
  const std::string generated = folder.file("qmrk_logging_GE.cfg");
  const std::string begun =
      generated + "." + std::to_string(platform::processId()) + "." + std::to_string(platform::threadId());
  testsupport::writeFile(folder.file("qmrk_logging_CA12.cfg"), "");
  testsupport::writeFile(folder.file("victim"), "precious");
  std::filesystem::create_symlink("victim", platform::nativePath(begun));
  AutoGenerateCfg generator(false);
  EXPECT_TRUE(generator.setCfgPath(folder.path()));
  EXPECT_TRUE(generator.generateGenericCfgFile());
  EXPECT_EQ(testsupport::readFile(folder.file("victim")), "precious");
  EXPECT_FALSE(std::filesystem::is_symlink(platform::nativePath(generated)));
  EXPECT_FALSE(std::filesystem::is_symlink(platform::nativePath(begun)));
}

// A regular file of which no byte can be read.
TEST(LinkedConfiguration, FailsForALinkToAFileThatCannotBeRead) {
  const testsupport::ConfigSandbox sandbox;
  for (const std::string& path : {sandbox.cfgPath("CA12"), sandbox.initPath("CA12")})
    std::filesystem::create_symlink("/proc/self/mem", platform::nativePath(path));
  CfgDataManager* const store = CfgDataManager::getInstance(false);
  std::string value = "untouched";
  EXPECT_FALSE(store->getCfgValue(sandbox.cfgPath("CA12"), "KEY", value));
  EXPECT_FALSE(store->getEnabledLogClasses("CA12", value));
  EXPECT_EQ(value, "untouched");
}

// Every marker of the generic CA in a path is replaced, also in the folders above the file.
TEST(LinkedConfiguration, ReplacesEveryMarkerInARedirectedPath) {
  const testsupport::ConfigSandbox sandbox;
  const testsupport::TemporaryFolder folder;
  const std::string base = folder.path() + "/a_GE.b_GE.c";
  const std::string below = R"(\Orvane Shared\qmrk\logging\cfg)";
  testsupport::makeFolders(base + below);
  testsupport::writeFile(base + below + R"(\qmrk_logging_GE.cfg)", "REDIRECT_CA_NR=CA12\n");
  testsupport::setEnvironment("QMRK_COMMON_PROGRAM_FILES", base);
  std::string path;
  EXPECT_TRUE(CfgDataManager::getInstance(false)->getQmrkCfgFilePath(path, "GE", true));
  EXPECT_EQ(path, folder.path() + "/a_CA12.b_CA12.c" + below + R"(\qmrk_logging_CA12.cfg)");
}

}  // namespace
