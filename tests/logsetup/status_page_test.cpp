// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>

#include "logsetup/setup_status.h"
#include "platform/clock.h"
#include "quillmark_logging.h"
#include "tests/logsetup/page_of_setup.h"
#include "tests/support/fault_plan.h"

namespace {

using namespace Quillmark_logging;
using qmrkctl::ProcessStatus;
using testsupport::FaultPlan;
using testsupport::ownStatus;

using StatusPage = testsupport::PageOfSetup;

TEST_F(StatusPage, DoesNotExistBeforeASetUp) { EXPECT_TRUE(testsupport::showsNothing()); }

TEST_F(StatusPage, TellsWhoTheProcessIs) {
  ASSERT_TRUE(initDefaultLogs("App", "CA12", false));
  const ProcessStatus process = ownStatus();
  EXPECT_EQ(process.pid, static_cast<std::uint32_t>(platform::processId()));
  EXPECT_EQ(process.startTime, platform::startTimeOf(process.pid));
  EXPECT_EQ(process.userId, platform::userId());
  EXPECT_EQ(process.user, platform::userName());
  EXPECT_EQ(process.program.text, platform::programPath());
  EXPECT_EQ(process.libraryVersion, QMRK_LOG_VERSION_STRING);
  EXPECT_FALSE(process.isThreadSafe);
  EXPECT_LE(*process.writtenAt, platform::wallClockNanoseconds());
}

TEST_F(StatusPage, TellsOfTheSetUp) {
  const std::int64_t before = platform::wallClockNanoseconds();
  ASSERT_TRUE(initDefaultLogs("App", "ca12", false));
  const ProcessStatus process = ownStatus();
  EXPECT_EQ(process.caAsked, "ca12");
  EXPECT_EQ(process.caInEffect, "CA12");
  EXPECT_EQ(process.caSource, status::CaSource::given);
  EXPECT_EQ(process.caChanges, 0U);
  EXPECT_EQ(process.cfgPath.text, sandbox_.cfgPath("CA12"));
  EXPECT_EQ(process.initPath.text, sandbox_.initPath("CA12"));
  EXPECT_EQ(process.commonLogPath.text, commonLog());
  EXPECT_EQ(process.setUp.call, status::Call::initDefaultLogs);
  EXPECT_EQ(process.setUp.result, status::Result::done);
  EXPECT_EQ(process.setUp.failure, status::Failure::none);
  EXPECT_GE(*process.setUp.at, before);
}

TEST_F(StatusPage, TellsHowTheCaWasFound) {
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
  ASSERT_TRUE(initDefaultLogs("App", false));
  EXPECT_EQ(ownStatus().caSource, status::CaSource::generic);
  EXPECT_EQ(ownStatus().caAsked, "GE");
  EXPECT_EQ(ownStatus().caInEffect, "CA12");
  EXPECT_EQ(ownStatus().caChanges, status::redirected);
  ASSERT_TRUE(initDefaultLogs("App", "CA99", false));
  EXPECT_EQ(ownStatus().caSource, status::CaSource::given);
  EXPECT_EQ(ownStatus().caInEffect, "CA12");
  EXPECT_EQ(ownStatus().caChanges, status::fallenBack | status::redirected);
  testsupport::setEnvironment(DEFAULT_CA_NR, "CA12");
  ASSERT_TRUE(initDefaultLogs("App", false));
  EXPECT_EQ(ownStatus().caSource, status::CaSource::environment);
  EXPECT_EQ(ownStatus().caAsked, "CA12");
  EXPECT_EQ(ownStatus().caChanges, 0U);
}

TEST_F(StatusPage, TellsThatTheGenericFileWasGenerated) {
  ASSERT_TRUE(initDefaultLogs("App", false));
  EXPECT_EQ(ownStatus().caChanges, status::redirected | status::generated);
}

TEST_F(StatusPage, ListsTheApplicationsOfTheProcess) {
  ASSERT_TRUE(initDefaultLogs("First", "CA12", false));
  ASSERT_TRUE(initDefaultLogs("Second", "CA12", false));
  ASSERT_TRUE(initDefaultLogs("First", "CA12", false));
  ASSERT_TRUE(unregisterApplication("Second"));
  const auto applications = ownStatus().applications;
  ASSERT_EQ(applications.size(), 2U);
  EXPECT_EQ(applications[0].name, "First");
  EXPECT_FALSE(applications[0].isUnregistered);
  EXPECT_EQ(applications[1].name, "Second");
  EXPECT_TRUE(applications[1].isUnregistered);
}

TEST_F(StatusPage, CountsApplicationsForWhichThereIsNoRoom) {
  const std::string name(1000, 'x');
  for (const char* end : {"1", "2", "3"})
    ASSERT_TRUE(initDefaultLogs(name + end, "CA12", false));
  EXPECT_EQ(ownStatus().applications.size(), 2U);
  EXPECT_EQ(ownStatus().applicationsLeftOut, 1U);
}

// ---- Why a set-up fails ----

TEST_F(StatusPage, TellsThatLoggingIsSwitchedOff) {
  writeCfg("CA12", "LOG_STATE=FALSE\n");
  ASSERT_FALSE(initDefaultLogs("App", "CA12", false));
  expectFailure(status::Failure::switchedOff, "LOG_STATE is not TRUE in " + sandbox_.cfgPath("CA12"));
  EXPECT_EQ(ownStatus().cfgPath.text, sandbox_.cfgPath("CA12"));
}

TEST_F(StatusPage, TellsThatThereIsNoConfiguration) {
  testsupport::removeAll(sandbox_.cfgFolder());
  ASSERT_FALSE(initDefaultLogs("App", "CA12", false));
  expectFailure(status::Failure::noConfiguration, "no configuration file that can be read for CA12");
  EXPECT_EQ(ownStatus().cfgPath.text, sandbox_.cfgPath("GE"));
}

TEST_F(StatusPage, TellsThatTheFileNameIsMissing) {
  sandbox_.writeCfg("CA12", "LOG_STATE=TRUE\n");
  ASSERT_FALSE(initDefaultLogs("App", "CA12", false));
  expectFailure(status::Failure::noFileName, "COMMON_LOG_FILE_NAME is missing for CA12");
}

TEST_F(StatusPage, TellsThatTheLogFolderCannotBeMade) {
  testsupport::writeFile(sandbox_.appData() + "\\Orvane", "in the way");
  ASSERT_FALSE(initDefaultLogs("App", "CA12", false));
  expectFailure(status::Failure::folderNotMade, "cannot create " + sandbox_.logFolder());
}

TEST_F(StatusPage, TellsOfALaterSetUpThatFails) {
  ASSERT_TRUE(initDefaultLogs("App", "CA12", false));
  ASSERT_FALSE(createApplicationSpecificLogFile("Def", "", "CA12", false));
  EXPECT_EQ(ownStatus().setUp.call, status::Call::createApplicationSpecificLogFile);
  expectFailure(status::Failure::emptyName, "the file name is empty");
  EXPECT_EQ(ownStatus().caInEffect, "CA12") << "that of the default logs";
  ASSERT_TRUE(initDefaultLogs("App", "CA12", false));
  EXPECT_EQ(ownStatus().setUp.result, status::Result::done);
  EXPECT_EQ(ownStatus().setUp.error.text, "");
}

// ---- Classes ----

TEST_F(StatusPage, TellsWhichClassListIsApplied) {
  ASSERT_TRUE(initDefaultLogs("App", "CA12", false));
  const qmrkctl::ClassStatus first = ownStatus().classes;
  EXPECT_EQ(first.generation, 1U);
  EXPECT_EQ(first.hash, status::hashOf("Def.a;\n"));
  EXPECT_EQ(first.text.text, "Def.a;\n");
  EXPECT_EQ(first.ca, "CA12");
  EXPECT_EQ(first.filter.text, "Def.a;Def.b;");
  EXPECT_EQ(first.updateResult, status::Result::done);
  sandbox_.writeInit("CA12", "Def.b;");
  const std::int64_t before = platform::wallClockNanoseconds();
  ASSERT_TRUE(updateLogLevels("CA12"));
  const qmrkctl::ClassStatus second = ownStatus().classes;
  EXPECT_EQ(second.generation, 2U);
  EXPECT_EQ(second.hash, status::hashOf("Def.b;"));
  EXPECT_GE(*second.appliedAt, before);
  EXPECT_GE(*second.updatedAt, before);
  EXPECT_EQ(ownStatus().setUp.call, status::Call::initDefaultLogs);
}

TEST_F(StatusPage, CutsALongClassListAndKeepsItsHash) {
  std::string list;
  // Longer than what is read at once.
  while (list.size() < 150'000)
    list += "Def.class." + std::to_string(list.size()) + ";";
  sandbox_.writeInit("CA12", list);
  ASSERT_TRUE(updateLogLevels("CA12"));
  const qmrkctl::ClassStatus classes = ownStatus().classes;
  EXPECT_TRUE(classes.text.isCut);
  EXPECT_EQ(classes.text.wholeSize, list.size());
  EXPECT_EQ(list.find(classes.text.text), 0U);
  EXPECT_EQ(classes.hash, status::hashOf(list));
}

TEST_F(StatusPage, JoinsTheBeginningOfAListFromItsPieces) {
  const platform::TextPieces pieces{"Def.", "a;", std::string(20'000, 'b'), "c;"};
  {
    const SetupStatus call(status::Call::updateLogLevels);
    SetupStatus::noteClasses(pieces);
  }
  const std::string list = platform::joined(pieces);
  const qmrkctl::ClassStatus classes = ownStatus().classes;
  EXPECT_GT(classes.text.text.size(), 10'000U);
  EXPECT_EQ(list.find(classes.text.text), 0U);
  EXPECT_EQ(classes.text.wholeSize, list.size());
  EXPECT_EQ(classes.hash, status::hashOf(list));
}

TEST_F(StatusPage, TellsOfAnUpdateThatFails) {
  ASSERT_TRUE(initDefaultLogs("App", "CA12", false));
  testsupport::removeAll(sandbox_.initPath("CA12"));
  ASSERT_FALSE(updateLogLevels("CA12"));
  const qmrkctl::ClassStatus classes = ownStatus().classes;
  EXPECT_EQ(classes.updateResult, status::Result::failed);
  EXPECT_EQ(classes.updateFailure, status::Failure::listUnreadable);
  EXPECT_EQ(classes.updateError.text, "the class list cannot be read for CA12");
  EXPECT_EQ(classes.generation, 1U);
  EXPECT_EQ(classes.text.text, "Def.a;\n") << "the one that is still applied";
}

TEST_F(StatusPage, ListsTheLogsThatExist) {
  const boost::logging::logger on("Def.a.info");
  const boost::logging::logger off("Other.info");
  ASSERT_TRUE(initDefaultLogs("App", "CA12", false));
  EXPECT_TRUE(isShownOn("Def.a.info"));
  EXPECT_FALSE(isShownOn("Other.info"));
}

TEST_F(StatusPage, CountsLogsForWhichThereIsNoRoom) {
  for (int i = 0; i < 3000; ++i)
    const boost::logging::logger log("Def.many." + std::to_string(i));
  ASSERT_TRUE(updateLogLevels("CA12"));
  const qmrkctl::ClassStatus classes = ownStatus().classes;
  EXPECT_GT(classes.logs.size(), 1000U);
  EXPECT_GT(classes.logsLeftOut, 100U);
}

TEST_F(StatusPage, TellsWhatTheApplicationSwitchesItself) {
  const boost::logging::logger log("Other.info");
  ASSERT_TRUE(initDefaultLogs("App", "CA12", false));
  EXPECT_EQ(ownStatus().classes.ownChange, status::Call::none);
  enableSpecifiedLogs("Other");
  EXPECT_EQ(ownStatus().classes.ownChange, status::Call::enableSpecifiedLogs);
  EXPECT_EQ(ownStatus().classes.ownPattern.text, "Other");
  EXPECT_TRUE(isShownOn("Other.info"));
  disableAllLogs();
  EXPECT_EQ(ownStatus().classes.ownChange, status::Call::disableAllLogs);
  EXPECT_TRUE(ownStatus().classes.ownChangeAt);
  EXPECT_FALSE(isShownOn("Other.info"));
  enableAllLogs();
  EXPECT_EQ(ownStatus().classes.ownChange, status::Call::enableAllLogs);
  ASSERT_TRUE(updateLogLevels("CA12"));
  EXPECT_EQ(ownStatus().classes.ownChange, status::Call::none);
  EXPECT_FALSE(ownStatus().classes.ownChangeAt);
}

// ---- When there is none ----

TEST_F(StatusPage, AppearsWithALaterCallWhenAnEarlierOneFails) {
  {
    const FaultPlan plan(platform::Call::createStatusPage, 1, platform::errorDiskFull, 1);
    EXPECT_TRUE(initDefaultLogs("App", "CA12", false));
    EXPECT_TRUE(testsupport::showsNothing());
  }
  EXPECT_TRUE(updateLogLevels("CA12"));
  EXPECT_EQ(ownStatus().caInEffect, "CA12");
}

TEST_F(StatusPage, LeavesNoTrace) {
  setFreeFunctionTrace(false);
  testing::internal::CaptureStderr();
  testing::internal::CaptureStdout();
  ASSERT_TRUE(initDefaultLogs("App", "CA12", false));
  EXPECT_EQ(testing::internal::GetCapturedStderr() + testing::internal::GetCapturedStdout(), "");
}

}  // namespace
