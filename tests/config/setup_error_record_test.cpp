// SPDX-License-Identifier: MIT
#include "config/setup_error_record.h"

#include <gtest/gtest.h>

#include "tests/config/records.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/fault_plan.h"
#include "tests/support/golden.h"
#include "tests/trace/masked_object_bytes.h"
#include "tests/trace/traced_console.h"

namespace {

using platform::Call;
using Quillmark_logging::errorInfoText;
using Quillmark_logging::writeQmrkErrorInfo;
using testsupport::AsUnprivilegedUser;
using testsupport::FaultPlan;
using testsupport::makeFolders;
using testsupport::matchesGolden;
using testsupport::recordsIn;
using Records = std::vector<std::string>;

TEST(ErrorInfoText, NamesTheCaOfAnInvalidConfiguration) {
  EXPECT_EQ(errorInfoText(1, "ca12", "App", " Message."),
            "Invalid of missing configuration file for ca12. Message. [Called by App]");
  EXPECT_EQ(errorInfoText(1, "CA12", "App", "Message."),
            "Invalid of missing configuration file for CA12.Message. [Called by App]");
}

TEST(ErrorInfoText, MentionsTheRedirectionForTheGenericCa) {
  EXPECT_EQ(errorInfoText(1, "GE", "App", "Message."),
            "Invalid of missing configuration file for GE. (could also be the REDIRECT_CA_NR variable that's pointing "
            "at an invalid or missing configuration file). Message. [Called by App]");
  EXPECT_EQ(errorInfoText(1, "ge", "App", ""), "Invalid of missing configuration file for ge. [Called by App]");
}

TEST(ErrorInfoText, NamesNoCaForFaultyPermissions) {
  EXPECT_EQ(errorInfoText(2, "CA12", "App", "Message."), "Faulty file permissions. Message. [Called by App]");
}

TEST(ErrorInfoText, CallsEveryOtherKindUnspecified) {
  for (const int kind : {0, 3, -1, 4711}) {
    EXPECT_EQ(errorInfoText(kind, "GE", "App", "Message."), "Unspecified error. Message. [Called by App]");
  }
}

TEST(ErrorInfoText, CallsAnEmptyCallerInternal) {
  EXPECT_EQ(errorInfoText(2, "CA12", "", ""), "Faulty file permissions.  [Called by <Internal>]");
}

class ErrorInfo : public testing::Test {
 protected:
  bool write() { return writeQmrkErrorInfo(3, "CA12", "App", "Message."); }

  testing::AssertionResult traceMatches(const std::string& _golden) {
    return matchesGolden(testsupport::maskedObjectBytes(sandbox_.masked(trace_)), _golden);
  }

  bool writeTraced() {
    const testsupport::TracedConsole console;
    const bool written = write();
    trace_ = console.text();
    return written;
  }

  void expectFailedOpening() const {
    const std::string trace = sandbox_.masked(trace_);
    EXPECT_TRUE(
        trace.ends_with("<!= Quillmark_logging::writeQmrkErrorInfo() ERROR: Failed to open file "
                        "<APPDATA>\\Orvane\\Quillmark\\Logging\\qmrk.info\r\n"))
        << trace;
  }

  testsupport::ConfigSandbox sandbox_;
  std::string infoFile_ = sandbox_.logFolder() + "\\qmrk.info";
  std::string trace_;
};

TEST_F(ErrorInfo, CreatesItsFolderAndAppends) {
  EXPECT_TRUE(write());
  EXPECT_TRUE(writeQmrkErrorInfo(2, "CA12", "", "x"));
  EXPECT_EQ(recordsIn(infoFile_), (Records{"Unspecified error. Message. [Called by App]",
                                           "Faulty file permissions. x [Called by <Internal>]"}));
}

TEST_F(ErrorInfo, GoesToTheLogFolderOfTheGenericCaWhateverTheCa) {
  sandbox_.writeCfg("GE", "COMMON_LOG_FILE_ROOT=Generic\n");
  sandbox_.writeCfg("CA12", "COMMON_LOG_FILE_ROOT=Own\n");
  EXPECT_TRUE(write());
  EXPECT_EQ(sandbox_.newInAppData(), std::vector<std::string>{"Generic"});
  EXPECT_EQ(recordsIn(sandbox_.appData() + "\\Generic\\qmrk.info").size(), 1U);
}

TEST_F(ErrorInfo, FailsWhenTheSystemNamesNoFolder) {
  const FaultPlan failure(Call::shellFolder, 1, platform::errorPathNotFound);
  EXPECT_FALSE(write());
}

TEST_F(ErrorInfo, TracesTheFirstRecord) {
  sandbox_.writeCfg("GE", "COMMON_LOG_FILE_ROOT=.\n");
  EXPECT_TRUE(writeTraced());
  EXPECT_TRUE(traceMatches("config_error_info.txt"));
}

TEST_F(ErrorInfo, TracesAFolderThatItCannotCreate) {
  makeFolders(sandbox_.appData() + "\\closed");
  testsupport::denyWriting(sandbox_.appData() + "\\closed");
  sandbox_.writeCfg("GE", "COMMON_LOG_FILE_ROOT=closed\\a\n");
  {
    const AsUnprivilegedUser user;
    EXPECT_FALSE(writeTraced());
  }
  const std::string trace = sandbox_.masked(trace_);
  EXPECT_TRUE(
      trace.ends_with("<== Quillmark_logging::createDirectory() retValue=false.\r\n"
                      "<!= Quillmark_logging::writeQmrkErrorInfo() ERROR: Failed to create "
                      "<APPDATA>\\closed\\a\r\n"))
      << trace;
}

TEST_F(ErrorInfo, TracesAReadOnlyFile) {
  makeFolders(sandbox_.logFolder());
  testsupport::writeFile(infoFile_, "");
  testsupport::denyWriting(infoFile_);
  {
    const AsUnprivilegedUser user;
    EXPECT_FALSE(writeTraced());
  }
  expectFailedOpening();
}

TEST_F(ErrorInfo, FailsWhenTheDiskIsFull) {
  const FaultPlan failure(Call::write, 1, platform::errorDiskFull);
  EXPECT_FALSE(writeTraced());
  expectFailedOpening();
}

}  // namespace
