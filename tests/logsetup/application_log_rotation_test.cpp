// SPDX-License-Identifier: MIT
#include "tests/logsetup/application_logs.h"

namespace {

using Quillmark_logging::createApplicationSpecificLogFile;
using testsupport::exists;
using testsupport::log;
using testsupport::Names;
using testsupport::readFile;
using testsupport::rotationKeys;

class ApplicationLogRotation : public testsupport::ApplicationLogs {};

TEST_F(ApplicationLogRotation, RollsOneByteBelowTheLimitAndKeepsFiveFilesByDefault) {
  configure(rotationKeys);
  EXPECT_TRUE(create("App"));
  log("App", std::string(1023998, 'x'));
  EXPECT_EQ(names(), Names{"App_log.txt"});
  log("App", "y");
  EXPECT_EQ(readFile(backup(1)).size(), 1023999U);
  EXPECT_EQ(readFile(file()), "");
  for (int i = 0; i < 6; ++i) {
    log("App", std::string(1023999, 'z'));
  }
  EXPECT_EQ(names(), (Names{"App_log.txt", "App_log.txt.1", "App_log.txt.2", "App_log.txt.3", "App_log.txt.4"}));
}

TEST_F(ApplicationLogRotation, ChecksNoSizeWhenTheLimitIsOne) {
  configureRotation("1", "5");
  EXPECT_TRUE(create("App"));
  for (int i = 0; i < 100; ++i) {
    log("App", "0123456789");
  }
  EXPECT_EQ(readFile(file()).size(), 1000U);
  EXPECT_EQ(names(), Names{"App_log.txt"});
}

TEST_F(ApplicationLogRotation, RollsAfterEveryMessageWhenTheLimitIsZeroOrNoNumber) {
  for (const char* limit : {"0", "abc"}) {
    configureRotation(limit, "3");
    EXPECT_TRUE(create("App"));
    log("App", "1");
    log("App", "2");
    EXPECT_EQ(readFile(file()), "") << limit;
    EXPECT_EQ(readFile(backup(1)), "2") << limit;
    EXPECT_EQ(readFile(backup(2)), "1") << limit;
  }
}

TEST_F(ApplicationLogRotation, EmptiesTheFileAtItsSizeWhenItKeepsNoBackups) {
  for (const char* files : {"1", "0"}) {
    configureRotation("11", files);
    EXPECT_TRUE(create("App"));
    log("App", "0123456789");
    EXPECT_EQ(readFile(file()), "") << files;
    log("App", "again");
    EXPECT_EQ(readFile(file()), "again") << files;
    EXPECT_EQ(names(), Names{"App_log.txt"}) << files;
    log("App", "56789");
  }
}

TEST_F(ApplicationLogRotation, ContinuesAnExistingFileEvenIfAskedToOverwrite) {
  configure(rotationKeys);
  writeExisting("old ");
  EXPECT_TRUE(create("App", true));
  log("App", "new");
  EXPECT_EQ(readFile(file()), "old new");
}

TEST_F(ApplicationLogRotation, CreatesTheFileAtOnceAndNotAtTheFirstMessage) {
  EXPECT_TRUE(create("App"));
  EXPECT_EQ(names(), Names{});
  configure(rotationKeys);
  EXPECT_TRUE(create("App"));
  EXPECT_EQ(names(), Names{"App_log.txt"});
}

TEST_F(ApplicationLogRotation, KeepsTheLimitWhenTheNumberOfFilesIsMissing) {
  configure(std::string(rotationKeys) + "SPEC_LOG_FILE_LIMIT=0\n");
  EXPECT_TRUE(create("App"));
  log("App", "1");
  EXPECT_EQ(readFile(backup(1)), "1");
}

}  // namespace
