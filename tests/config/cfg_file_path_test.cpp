// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "config/cfg_data_manager.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/fault_plan.h"
#include "tests/support/golden.h"
#include "tests/trace/traced_console.h"

namespace {

using platform::Call;
using testsupport::FaultPlan;

class CfgFilePath : public testing::Test {
 protected:
  std::string pathOf(const std::string& _ca, bool _cfg) {
    std::string path;
    EXPECT_TRUE(CfgDataManager::getInstance(false)->getQmrkCfgFilePath(path, _ca, _cfg));
    return path;
  }

  testing::AssertionResult traceMatches(const std::string& _ca, bool _cfg, const std::string& _golden) {
    const testsupport::TracedConsole console;
    std::string path;
    CfgDataManager::getInstance(true)->getQmrkCfgFilePath(path, _ca, _cfg);
    return testsupport::matchesGolden(sandbox_.masked(console.text()), _golden);
  }

  testsupport::ConfigSandbox sandbox_;
};

TEST_F(CfgFilePath, FindsCfgFilesInTheSharedProgramFiles) {
  EXPECT_EQ(pathOf("CA12", true),
            sandbox_.commonProgramFiles() + R"(\Orvane Shared\qmrk\logging\cfg\qmrk_logging_CA12.cfg)");
}

TEST_F(CfgFilePath, FindsInitFilesInTheSharedApplicationData) {
  EXPECT_EQ(pathOf("CA12", false), sandbox_.commonAppData() + R"(\Orvane\qmrk\logging\qmrk_logging_CA12.init)");
}

TEST_F(CfgFilePath, WritesTheCaInUpperCase) {
  EXPECT_EQ(pathOf("ca12", true), sandbox_.cfgPath("CA12"));
  EXPECT_EQ(pathOf("Ca12", false), sandbox_.initPath("CA12"));
}

TEST_F(CfgFilePath, TakesTheCaUnchecked) {
  EXPECT_EQ(pathOf("sub\\x.y", true), sandbox_.cfgPath("SUB\\X.Y"));
  EXPECT_EQ(pathOf("XXX", true), sandbox_.cfgPath("XXX"));
}

TEST_F(CfgFilePath, FollowsTheRedirectionOfTheGenericCa) {
  sandbox_.writeCfg("GE", "CA_NR=GE\nREDIRECT_CA_NR=CA12\n");
  EXPECT_EQ(pathOf("GE", true), sandbox_.cfgPath("CA12"));
  EXPECT_EQ(pathOf("GE", false), sandbox_.initPath("CA12"));
  EXPECT_EQ(pathOf("ge", true), sandbox_.cfgPath("CA12"));
}

TEST_F(CfgFilePath, NamesTheGenericCfgFileForBothKindsWithoutARedirection) {
  sandbox_.writeCfg("GE", "CA_NR=GE\n");
  EXPECT_EQ(pathOf("GE", true), sandbox_.cfgPath("GE"));
  EXPECT_EQ(pathOf("GE", false), sandbox_.cfgPath("GE"));
}

TEST_F(CfgFilePath, NamesTheGenericCfgFileForBothKindsWhenItIsMissing) {
  EXPECT_EQ(pathOf("GE", true), sandbox_.cfgPath("GE"));
  EXPECT_EQ(pathOf("GE", false), sandbox_.cfgPath("GE"));
}

TEST_F(CfgFilePath, NamesTheGenericCfgFileWhenItIsUnreadable) {
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
  testsupport::denyAccess(sandbox_.cfgPath("GE"));
  const testsupport::AsUnprivilegedUser user;
  EXPECT_EQ(pathOf("GE", true), sandbox_.cfgPath("GE"));
}

TEST_F(CfgFilePath, KeepsTheLetterCaseOfARedirection) {
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=ca7\n");
  EXPECT_EQ(pathOf("GE", true), sandbox_.cfgPath("ca7"));
  EXPECT_EQ(pathOf("GE", false), sandbox_.initPath("ca7"));
}

TEST_F(CfgFilePath, TakesARedirectionWithSeparatorsAsItStands) {
  for (const char* const value : {"x/y", "x\\y"}) {
    sandbox_.writeCfg("GE", std::string("REDIRECT_CA_NR=") + value + "\n");
    EXPECT_EQ(pathOf("GE", true), sandbox_.cfgPath(value));
    EXPECT_EQ(pathOf("GE", false), sandbox_.initPath(value));
  }
}

TEST_F(CfgFilePath, FollowsOneRedirectionOnly) {
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
  sandbox_.writeCfg("CA12", "REDIRECT_CA_NR=CA13\n");
  EXPECT_EQ(pathOf("GE", true), sandbox_.cfgPath("CA12"));
  EXPECT_EQ(pathOf("CA12", true), sandbox_.cfgPath("CA12"));
}

TEST_F(CfgFilePath, AcceptsARedirectionToItself) {
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=GE\n");
  EXPECT_EQ(pathOf("GE", true), sandbox_.cfgPath("GE"));
  EXPECT_EQ(pathOf("GE", false), sandbox_.initPath("GE"));
}

TEST_F(CfgFilePath, ReplacesEveryCfgByInitInARedirectedInitPath) {
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=a.cfg\n");
  EXPECT_EQ(pathOf("GE", true), sandbox_.cfgPath("a.cfg"));
  EXPECT_EQ(pathOf("GE", false), sandbox_.initPath("a.init"));
}

TEST_F(CfgFilePath, FailsForAnEmptyCaAndGivesTheBaseFolder) {
  std::string path;
  EXPECT_FALSE(CfgDataManager::getInstance(false)->getQmrkCfgFilePath(path, "", true));
  EXPECT_EQ(path, sandbox_.commonProgramFiles());
  EXPECT_FALSE(CfgDataManager::getInstance(false)->getQmrkCfgFilePath(path, "", false));
  EXPECT_EQ(path, sandbox_.commonAppData());
}

TEST_F(CfgFilePath, LeavesThePathUntouchedWhenTheSystemNamesNoFolder) {
  const FaultPlan failure(Call::shellFolder, 1, platform::errorPathNotFound);
  std::string path = "preset";
  EXPECT_FALSE(CfgDataManager::getInstance(false)->getQmrkCfgFilePath(path, "CA12", true));
  EXPECT_EQ(path, "preset");
}

TEST_F(CfgFilePath, ReadsTheRedirectionFromTheGenericInitFileWhenTheCfgFolderIsUnknown) {
  sandbox_.writeInit("GE", "REDIRECT_CA_NR=CA12\n");
  const FaultPlan failure(Call::shellFolder, 2, platform::errorPathNotFound);
  EXPECT_EQ(pathOf("GE", false), sandbox_.initPath("CA12"));
}

TEST_F(CfgFilePath, AcceptsOneStringForPathAndCa) {
  std::string text = "ca12";
  EXPECT_TRUE(CfgDataManager::getInstance(false)->getQmrkCfgFilePath(text, text, true));
  EXPECT_EQ(text, sandbox_.cfgPath("CA12"));
}

TEST_F(CfgFilePath, TracesAPlainCa) { EXPECT_TRUE(traceMatches("ca12", false, "config_path_plain.txt")); }

TEST_F(CfgFilePath, TracesARedirectedCfgFile) {
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
  EXPECT_TRUE(traceMatches("ge", true, "config_path_redirected_cfg.txt"));
}

TEST_F(CfgFilePath, TracesARedirectedInitFile) {
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
  EXPECT_TRUE(traceMatches("GE", false, "config_path_redirected_init.txt"));
}

TEST_F(CfgFilePath, TracesAGenericCaWithoutRedirection) {
  sandbox_.writeCfg("GE", "CA_NR=GE\n");
  EXPECT_TRUE(traceMatches("GE", false, "config_path_not_redirected.txt"));
}

TEST_F(CfgFilePath, TracesAnEmptyCa) { EXPECT_TRUE(traceMatches("", true, "config_path_empty_ca.txt")); }

TEST_F(CfgFilePath, TracesAnUnknownFolder) {
  const FaultPlan failure(Call::shellFolder, 1, platform::errorPathNotFound);
  EXPECT_TRUE(traceMatches("CA12", true, "config_path_unknown_folder.txt"));
}

}  // namespace
