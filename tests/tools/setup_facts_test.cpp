// SPDX-License-Identifier: MIT
#include "tools/logtest/setup_facts.h"

#include <gtest/gtest.h>

#include "tests/support/config_sandbox.h"
#include "tests/support/fault_plan.h"
#include "tests/support/without_read_permission.h"

namespace {

using logtest::gatherSetupFacts;
using logtest::SetupFacts;

class SetupFactsTest : public testing::Test {
 protected:
  testsupport::ConfigSandbox sandbox_;
};

TEST_F(SetupFactsTest, DescribeTheCa) {
  sandbox_.writeCfg("CA12", "LOG_STATE=1\nCOMMON_LOG_FILE_NAME=common.log\nCOMMON_LOG_FILE_ROOT=Logs\n");
  const SetupFacts facts = gatherSetupFacts("ca12");
  EXPECT_EQ(facts.ca, "ca12");
  EXPECT_EQ(facts.cfgFile, sandbox_.cfgPath("CA12"));
  EXPECT_FALSE(facts.fellBack);
  EXPECT_TRUE(facts.cfgExists);
  EXPECT_TRUE(facts.cfgIsReadable);
  EXPECT_EQ(facts.logState, "1");
  EXPECT_EQ(facts.logFileName, "common.log");
  EXPECT_EQ(facts.logFolder, sandbox_.appData() + "\\Logs");
  EXPECT_FALSE(facts.logFolderExists);
  EXPECT_FALSE(facts.errorRecords);
}

TEST_F(SetupFactsTest, DescribeTheGenericCaWhenTheFileOfTheCaIsMissing) {
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
  sandbox_.writeCfg("CA12", "LOG_STATE=TRUE\n");
  testsupport::makeFolders(sandbox_.logFolder());
  testsupport::writeFile(sandbox_.logFolder() + "\\qmrk.info", "record\n");
  const SetupFacts facts = gatherSetupFacts("CA7");
  EXPECT_TRUE(facts.fellBack);
  EXPECT_EQ(facts.cfgFile, sandbox_.cfgPath("CA12"));
  EXPECT_EQ(facts.logState, "TRUE");
  EXPECT_FALSE(facts.logFileName);
  EXPECT_TRUE(facts.logFolderExists);
  EXPECT_EQ(facts.errorRecords, sandbox_.logFolder() + "\\qmrk.info");
}

TEST_F(SetupFactsTest, SayThatThereIsNoFile) {
  const SetupFacts facts = gatherSetupFacts("CA7");
  EXPECT_TRUE(facts.fellBack);
  EXPECT_EQ(facts.cfgFile, sandbox_.cfgPath("GE"));
  EXPECT_FALSE(facts.cfgExists);
}

TEST_F(SetupFactsTest, DoNotCallTheGenericCaAFallBackOfItself) {
  EXPECT_FALSE(gatherSetupFacts("GE").fellBack);
  EXPECT_FALSE(gatherSetupFacts("ge").fellBack);
}

TEST_F(SetupFactsTest, SayThatAFileIsUnreadable) {
  sandbox_.writeCfg("CA12", "LOG_STATE=TRUE\n");
  const testsupport::WithoutReadPermission denied(sandbox_.cfgPath("CA12"));
  const SetupFacts facts = gatherSetupFacts("CA12");
  EXPECT_TRUE(facts.cfgExists);
  EXPECT_FALSE(facts.cfgIsReadable);
}

TEST_F(SetupFactsTest, NameNoFileForAnEmptyCa) { EXPECT_EQ(gatherSetupFacts("").cfgFile, ""); }

TEST_F(SetupFactsTest, NameNoFileWhenTheSystemNamesNoFolder) {
  const testsupport::FaultPlan plan(platform::Call::shellFolder, 1, platform::errorPathNotFound, 100);
  const SetupFacts facts = gatherSetupFacts("CA12");
  EXPECT_EQ(facts.cfgFile, "");
  EXPECT_FALSE(facts.logFolder);
}

}  // namespace
