// SPDX-License-Identifier: MIT
#include "tools/logtest/setup_reason.h"

#include <gtest/gtest.h>

#include "platform/native_path.h"

namespace {

using logtest::reasonOfFailure;
using logtest::SetupFacts;

constexpr char cfgFile[] = "C:\\cfg\\qmrk_logging_CA12.cfg";

// Facts of a set-up that does not fail.
SetupFacts fine() {
  SetupFacts facts;
  facts.ca = "CA12";
  facts.cfgFile = cfgFile;
  facts.cfgExists = true;
  facts.cfgIsReadable = true;
  facts.logState = "TRUE";
  facts.logFileName = "common.log";
  facts.logFolder = "C:\\logs";
  facts.logFolderExists = true;
  return facts;
}

std::string nativeCfgFile() { return platform::nativePath(cfgFile); }

TEST(SetupReason, NamesAnEmptyCa) {
  SetupFacts facts = fine();
  facts.ca = "";
  facts.cfgFile = "";
  EXPECT_EQ(reasonOfFailure(facts), "the customer adaptation is empty");
}

TEST(SetupReason, NamesAnUnknownConfigurationFolder) {
  SetupFacts facts = fine();
  facts.cfgFile = "";
  EXPECT_EQ(reasonOfFailure(facts), "the system does not know the folder of the configuration files");
}

TEST(SetupReason, NamesAMissingConfiguration) {
  SetupFacts facts = fine();
  facts.cfgExists = facts.cfgIsReadable = false;
  EXPECT_EQ(reasonOfFailure(facts), "the configuration is missing: there is no " + nativeCfgFile() +
                                        ", and none could be generated in that folder");
}

TEST(SetupReason, NamesAnUnreadableConfiguration) {
  SetupFacts facts = fine();
  facts.cfgIsReadable = false;
  facts.logState.reset();
  EXPECT_EQ(reasonOfFailure(facts), "the configuration cannot be read: permission denied for " + nativeCfgFile());
}

TEST(SetupReason, NamesLogStateThatIsMissingOrNotTrue) {
  SetupFacts facts = fine();
  facts.logState = "1";
  EXPECT_EQ(reasonOfFailure(facts), "logging is switched off: LOG_STATE is \"1\", not TRUE, in " + nativeCfgFile());
  facts.logState.reset();
  EXPECT_EQ(reasonOfFailure(facts), "logging is switched off: LOG_STATE is missing in " + nativeCfgFile());
}

TEST(SetupReason, NamesAMissingNameOfTheCommonLog) {
  SetupFacts facts = fine();
  facts.logState = "true";
  facts.logFileName.reset();
  EXPECT_EQ(reasonOfFailure(facts),
            "the common log has no name: COMMON_LOG_FILE_NAME is missing in " + nativeCfgFile());
}

TEST(SetupReason, NamesAnUnknownFolderOfTheUser) {
  SetupFacts facts = fine();
  facts.logFolder.reset();
  EXPECT_EQ(reasonOfFailure(facts), "the system does not know the folder of the user's application data");
}

TEST(SetupReason, NamesAMissingLogFolder) {
  SetupFacts facts = fine();
  facts.logFolderExists = false;
  EXPECT_EQ(reasonOfFailure(facts),
            "the folder of the common log cannot be created: " + platform::nativePath("C:\\logs"));
}

TEST(SetupReason, StaysUnknownWhenEverythingIsFine) {
  EXPECT_EQ(reasonOfFailure(fine()),
            "the cause does not show any more; QMRK_TRACE=TRUE in " + nativeCfgFile() + " traces the next set-up");
}

}  // namespace
