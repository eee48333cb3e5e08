// SPDX-License-Identifier: MIT
#include "config/configuration_check.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "platform/text_file.h"
#include "quillmark_logging.h"
#include "tests/config/records.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/fault_plan.h"
#include "tests/support/golden.h"
#include "tests/support/system_path.h"
#include "tests/support/without_read_permission.h"
#include "tests/trace/masked_object_bytes.h"
#include "tests/trace/traced_console.h"

namespace {

using platform::Call;
using testsupport::AsUnprivilegedUser;
using testsupport::exists;
using testsupport::FaultPlan;
using testsupport::recordsIn;
using testsupport::TracedConsole;
using Records = std::vector<std::string>;

constexpr char redirecting[] =
    " Redirecting to configuration file appointed by qmrk_logging_GE.cfg instead. [Called by App]";

class ConfigurationCheck : public testing::Test {
 protected:
  bool check(const std::string& _ca, const std::string& _caller = "App") {
    ca_ = _ca;
    return Quillmark_logging::checkSpecifiedConfiguration(ca_, _caller);
  }

  bool checkTraced(const std::string& _ca) {
    const TracedConsole console;
    const bool ok = check(_ca);
    trace_ = sandbox_.masked(console.text());
    return ok;
  }

  testing::AssertionResult traceMatches(const std::string& _golden) const {
    return testsupport::matchesGolden(testsupport::maskedObjectBytes(withoutUpperFolders(trace_)), _golden);
  }

  // Without the lines about the folders above the application data, which depend on the machine.
  static std::string withoutUpperFolders(std::string _trace) {
    const std::string entry = "==> Quillmark_logging::createDirectory() _dir=<APPDATA>";
    const std::string firstKept = "==> Quillmark_logging::checkIfFileDirectoryExists() _fileWithPath=<APPDATA>\\\r\n";
    const std::size_t begin = _trace.find("\r\n", _trace.find(entry)) + 2;
    const std::size_t end = _trace.find(firstKept, begin);
    return end == std::string::npos ? _trace : _trace.erase(begin, end - begin);
  }

  Records records() const { return exists(infoFile_) ? recordsIn(infoFile_) : Records{}; }

  void expectUnreadable(const std::string& _ca) {
    EXPECT_FALSE(checkTraced(_ca));
    EXPECT_EQ(records(), Records{"Faulty file permissions. " + sandbox_.cfgPath(_ca) +
                                 " does not have read permission. [Called by App]"});
    EXPECT_TRUE(traceMatches("config_check_unreadable.txt"));
  }

  testsupport::ConfigSandbox sandbox_;
  std::string infoFile_ = sandbox_.logFolder() + "\\qmrk.info";
  std::string ca_;
  std::string trace_;
};

TEST_F(ConfigurationCheck, AcceptsAReadableFile) {
  sandbox_.writeCfg("CA12", "CA_NR=CA12\n");
  EXPECT_TRUE(checkTraced("CA12"));
  EXPECT_EQ(ca_, "CA12");
  EXPECT_EQ(records(), Records{});
  EXPECT_TRUE(traceMatches("config_check_fine.txt"));
}

TEST_F(ConfigurationCheck, FallsBackToTheGenericFileAndRecordsTheMissingOne) {
  sandbox_.writeCfg("GE", "CA_NR=GE\n");
  EXPECT_TRUE(checkTraced("CA12"));
  EXPECT_EQ(ca_, "GE");
  EXPECT_EQ(records(), Records{"Invalid of missing configuration file for CA12." + std::string(redirecting)});
  EXPECT_TRUE(traceMatches("config_check_generic.txt"));
}

TEST_F(ConfigurationCheck, RecordsTheCaInTheLetterCaseOfTheCaller) {
  sandbox_.writeCfg("GE", "CA_NR=GE\n");
  EXPECT_TRUE(check("ca12"));
  EXPECT_EQ(records(), Records{"Invalid of missing configuration file for ca12." + std::string(redirecting)});
}

TEST_F(ConfigurationCheck, CutsTheFolderOfTheGenericFileAtABackslashOnly) {
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=x/y\n");
  sandbox_.writeCfg("CA07", "CA_NR=CA07\n");
  EXPECT_TRUE(check("GE"));
  EXPECT_NE(testsupport::readFile(sandbox_.cfgPath("GE")).find("REDIRECT_CA_NR=CA07"), std::string::npos);
}

TEST_F(ConfigurationCheck, FallsBackToTheRedirectedCa) {
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA07\n");
  sandbox_.writeCfg("CA07", "CA_NR=CA07\n");
  EXPECT_TRUE(checkTraced("CA12"));
  EXPECT_EQ(ca_, "GE");
  EXPECT_TRUE(traceMatches("config_check_redirected.txt"));
}

TEST_F(ConfigurationCheck, GeneratesAMissingGenericFile) {
  sandbox_.writeCfg("CA07", "QMRK_TRACE=TRUE\n");
  EXPECT_TRUE(checkTraced("CA12"));
  EXPECT_EQ(ca_, "GE");
  EXPECT_EQ(records(), Records{"Invalid of missing configuration file for CA12." + std::string(redirecting)});
  EXPECT_TRUE(exists(sandbox_.cfgPath("GE")));
  EXPECT_TRUE(traceMatches("config_check_generated.txt"));
}

TEST_F(ConfigurationCheck, RegeneratesAGenericFileThatRedirectsNowhere) {
  sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA99\n");
  sandbox_.writeCfg("CA07", "CA_NR=CA07\n");
  EXPECT_TRUE(check("GE"));
  EXPECT_EQ(ca_, "GE");
  EXPECT_EQ(records(),
            Records{"Invalid of missing configuration file for GE. (could also be the REDIRECT_CA_NR variable that's "
                    "pointing at an invalid or missing configuration file). " +
                    std::string(redirecting)});
  EXPECT_NE(testsupport::readFile(sandbox_.cfgPath("GE")).find("REDIRECT_CA_NR=CA07"), std::string::npos);
  EXPECT_FALSE(exists(sandbox_.cfgPath("CA99")));
}

TEST_F(ConfigurationCheck, UpdatesTheTraceOfTheFreeFunctionsButNotTheLoadTimeValue) {
  sandbox_.writeCfg("CA07", "QMRK_TRACE=true\n");
  EXPECT_TRUE(check("CA12"));
  EXPECT_TRUE(Quillmark_logging::freeFunctionTrace());
  EXPECT_FALSE(Quillmark_logging::isTraceEnabled());
  Quillmark_logging::setFreeFunctionTrace(false);
}

TEST_F(ConfigurationCheck, EndsTheTraceOfTheFreeFunctionsWhenTheGeneratedFileLacksTheKey) {
  sandbox_.writeCfg("CA07", "CA_NR=CA07\n");
  const TracedConsole console;
  EXPECT_TRUE(check("CA12"));
  EXPECT_FALSE(Quillmark_logging::freeFunctionTrace());
  EXPECT_TRUE(Quillmark_logging::isTraceEnabled());
  const std::string before = console.text();
  std::string text = "x ";
  CfgDataManager::getInstance(false)->removeTrailingSpaces(text);
  EXPECT_EQ(console.text(), before);
}

TEST_F(ConfigurationCheck, TracesTheGenerationByTheLoadTimeValueAlone) {
  sandbox_.writeCfg("CA07", "QMRK_TRACE=TRUE\n");
  {
    const testsupport::CapturedConsole console;
    Quillmark_logging::setLoadTimeTrace(false);
    Quillmark_logging::setFreeFunctionTrace(true);
    EXPECT_TRUE(check("CA12"));
    EXPECT_EQ(console.text().find("AutoGenerateCfg::"), std::string::npos);
  }
  testsupport::removeAll(sandbox_.cfgPath("GE"));
  {
    const testsupport::CapturedConsole console;
    Quillmark_logging::setLoadTimeTrace(true);
    Quillmark_logging::setFreeFunctionTrace(false);
    EXPECT_TRUE(check("CA12"));
    EXPECT_NE(console.text().find("==> AutoGenerateCfg::getCA()"), std::string::npos);
    EXPECT_NE(console.text().find("<== AutoGenerateCfg::showDirContent()"), std::string::npos);
  }
  Quillmark_logging::setLoadTimeTrace(false);
  Quillmark_logging::setFreeFunctionTrace(false);
}

TEST_F(ConfigurationCheck, FailsWhenItFindsNoCaToRedirectTo) {
  EXPECT_FALSE(checkTraced("CA12"));
  EXPECT_EQ(ca_, "GE");
  EXPECT_FALSE(exists(sandbox_.cfgPath("GE")));
  EXPECT_TRUE(traceMatches("config_check_not_generated.txt"));
}

TEST_F(ConfigurationCheck, FailsWhenTheConfigurationFolderIsReadOnly) {
  sandbox_.writeCfg("CA07", "CA_NR=CA07\n");
  testsupport::denyWriting(sandbox_.cfgFolder());
  {
    const AsUnprivilegedUser user;
    EXPECT_FALSE(check("CA12"));
  }
  EXPECT_FALSE(exists(sandbox_.cfgPath("GE")));
  EXPECT_EQ(records().size(), 1U);
}

TEST_F(ConfigurationCheck, FailsWhenTheConfigurationFolderIsMissing) {
  testsupport::removeAll(sandbox_.cfgFolder());
  EXPECT_FALSE(check("CA12"));
  EXPECT_EQ(records().size(), 1U);
}

// Its size alone counts: nothing of it takes room on the disk.
TEST_F(ConfigurationCheck, TracesAndRecordsATooLargeFileLikeAnUnreadableOne) {
  sandbox_.writeCfg("CA12", "CA_NR=CA12\n");
  const auto file = testsupport::systemPath(sandbox_.cfgPath("CA12"));
  std::filesystem::resize_file(file, platform::largestTextFile);
  EXPECT_TRUE(check("CA12"));
  std::filesystem::resize_file(file, platform::largestTextFile + 1);
  expectUnreadable("CA12");
}

TEST_F(ConfigurationCheck, FailsAndRecordsWhenTheFileIsUnreadable) {
  sandbox_.writeCfg("CA12", "CA_NR=CA12\n");
  {
    const testsupport::WithoutReadPermission denied(sandbox_.cfgPath("CA12"));
    expectUnreadable("CA12");
  }
  EXPECT_EQ(ca_, "CA12");
}

TEST_F(ConfigurationCheck, FailsAndRecordsWhenTheGenericFileIsUnreadable) {
  sandbox_.writeCfg("GE", "CA_NR=GE\n");
  {
    const testsupport::WithoutReadPermission denied(sandbox_.cfgPath("GE"));
    EXPECT_FALSE(check("CA12"));
  }
  EXPECT_EQ(ca_, "GE");
  EXPECT_EQ(records(), (Records{"Invalid of missing configuration file for CA12." + std::string(redirecting),
                                "Faulty file permissions. " + sandbox_.cfgPath("GE") +
                                    " does not have read permission. [Called by App]"}));
}

TEST_F(ConfigurationCheck, RecordsAnEmptyCallerAsInternal) {
  sandbox_.writeCfg("GE", "CA_NR=GE\n");
  EXPECT_TRUE(check("CA12", ""));
  ASSERT_EQ(records().size(), 1U);
  EXPECT_TRUE(records()[0].ends_with("instead. [Called by <Internal>]"));
}

TEST_F(ConfigurationCheck, FailsWithoutARecordForAnEmptyCa) {
  EXPECT_FALSE(checkTraced(""));
  EXPECT_EQ(records(), Records{});
  EXPECT_TRUE(traceMatches("config_check_no_ca.txt"));
}

TEST_F(ConfigurationCheck, FailsAndKeepsTheCaWhenTheGenericPathIsUnknown) {
  // The record asks for the application data and for the program files, between the two questions of the check.
  const FaultPlan failure(Call::shellFolder, 4, platform::errorPathNotFound);
  EXPECT_FALSE(check("CA12"));
  EXPECT_EQ(ca_, "CA12");
  EXPECT_EQ(failure.calls(), 4);
}

TEST_F(ConfigurationCheck, SucceedsEvenIfItCannotWriteTheRecord) {
  sandbox_.writeCfg("GE", "COMMON_LOG_FILE_ROOT=closed\n");
  testsupport::makeFolders(sandbox_.appData() + "\\closed");
  testsupport::denyWriting(sandbox_.appData() + "\\closed");
  const AsUnprivilegedUser user;
  EXPECT_TRUE(check("CA12"));
  EXPECT_EQ(ca_, "GE");
}

}  // namespace
