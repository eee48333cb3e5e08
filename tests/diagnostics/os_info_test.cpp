// SPDX-License-Identifier: MIT
#include "diagnostics/os_info.h"

#include <gtest/gtest.h>

#include "tests/diagnostics/fake_system.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/fault_plan.h"
#include "tests/trace/named_lines.h"
#include "tests/trace/traced_console.h"

namespace {

using Quillmark_logging::writeOSInfo;
using testsupport::ConfigSandbox;
using testsupport::FakeSystem;
using testsupport::makeFolders;
using testsupport::nativeLineEnds;
using testsupport::readFile;
using testsupport::TracedConsole;
using testsupport::writeFile;

platform::VersionBlock windowsXp() {
  platform::VersionBlock block;
  block.platformId = 2;
  block.major = 5;
  block.minor = 1;
  block.build = 2600;
  block.servicePack = "Service Pack 2";
  block.productType = 1;
  return block;
}

constexpr char windowsXpText[] = "Microsoft Windows XP Professional Service Pack 2 (Build 2600)\r";

class OsInfo : public testing::Test {
 protected:
  OsInfo() {
    sandbox_.writeCfg("CA12", "COMMON_LOG_FILE_NAME=common.log\nCOMMON_LOG_FILE_ROOT=Logs\n");
    makeFolders(folder());
  }

  std::string folder() const { return sandbox_.appData() + "\\Logs"; }
  std::string logFile() const { return folder() + "\\common.log"; }

  static std::string ownLines(const std::string& _trace) {
    return testsupport::linesOf("Quillmark_logging::writeOSInfo()", _trace);
  }

  ConfigSandbox sandbox_;
  FakeSystem system_ = FakeSystem(windowsXp());
};

TEST_F(OsInfo, AppendsALineAndAnEmptyOneToTheCommonLog) {
  writeFile(logFile(), "first line\n");
  const TracedConsole console;
  EXPECT_TRUE(writeOSInfo("CA12", system_));
  EXPECT_EQ(readFile(logFile()), "first line\n" + nativeLineEnds(std::string(windowsXpText) + "\n\n"));
  EXPECT_EQ(sandbox_.masked(ownLines(console.text())),
            "==> Quillmark_logging::writeOSInfo() _ca=CA12\r\n"
            "<== Quillmark_logging::writeOSInfo() OS information is written to file <APPDATA>\\Logs\\common.log\r\n");
}

TEST_F(OsInfo, BeginsOnALineOfItsOwnBehindOneThatWasLeftUnfinished) {
  writeFile(logFile(), "unfini");
  EXPECT_TRUE(writeOSInfo("CA12", system_));
  EXPECT_EQ(readFile(logFile()), "unfini" + nativeLineEnds("\n" + std::string(windowsXpText) + "\n\n"));
}

TEST_F(OsInfo, CreatesTheCommonLog) {
  EXPECT_TRUE(writeOSInfo("CA12", system_));
  EXPECT_TRUE(writeOSInfo("CA12", system_));
  const std::string once = std::string(windowsXpText) + "\n\n";
  EXPECT_EQ(readFile(logFile()), nativeLineEnds(once + once));
}

TEST_F(OsInfo, WritesNothingWithoutTheKeyOfTheFileName) {
  sandbox_.writeCfg("CA12", "COMMON_LOG_FILE_ROOT=Logs\n");
  const TracedConsole console;
  EXPECT_FALSE(writeOSInfo("CA12", system_));
  EXPECT_EQ(ownLines(console.text()), "==> Quillmark_logging::writeOSInfo() _ca=CA12\r\n");
  EXPECT_TRUE(testsupport::namesIn(folder()).empty());
}

TEST_F(OsInfo, WritesNothingForAnEmptyCa) {
  const TracedConsole console;
  EXPECT_FALSE(writeOSInfo("", system_));
  EXPECT_EQ(ownLines(console.text()), "==> Quillmark_logging::writeOSInfo() _ca=\r\n");
}

TEST_F(OsInfo, FailsInAMissingFolder) {
  testsupport::removeAll(folder());
  const TracedConsole console;
  EXPECT_FALSE(writeOSInfo("CA12", system_));
  EXPECT_EQ(sandbox_.masked(ownLines(console.text())),
            "==> Quillmark_logging::writeOSInfo() _ca=CA12\r\n"
            "<!= Quillmark_logging::writeOSInfo() ERROR: Failed to open file <APPDATA>\\Logs\\common.log\r\n");
  EXPECT_TRUE(system_.asked().empty());
}

TEST_F(OsInfo, FailsOnAReadOnlyFile) {
  writeFile(logFile(), "kept\n");
  testsupport::denyWriting(logFile());
  const TracedConsole console;
  {
    const testsupport::AsUnprivilegedUser user;
    EXPECT_FALSE(writeOSInfo("CA12", system_));
  }
  EXPECT_EQ(readFile(logFile()), "kept\n");
  EXPECT_EQ(sandbox_.masked(ownLines(console.text())),
            "==> Quillmark_logging::writeOSInfo() _ca=CA12\r\n"
            "<!= Quillmark_logging::writeOSInfo() ERROR: Failed to open file <APPDATA>\\Logs\\common.log\r\n");
}

TEST_F(OsInfo, DiscardsAnIncompleteDescription) {
  system_.withoutExtendedQuery();
  const TracedConsole console;
  EXPECT_FALSE(writeOSInfo("CA12", system_));
  EXPECT_EQ(readFile(logFile()), "");
  EXPECT_EQ(ownLines(console.text()),
            "==> Quillmark_logging::writeOSInfo() _ca=CA12\r\n"
            "<!= Quillmark_logging::writeOSInfo() ERROR: Failed to get OS information.\r\n");
}

TEST_F(OsInfo, FailsOnAFullDisk) {
  const testsupport::FaultPlan fullDisk(platform::Call::write, 1, platform::errorDiskFull);
  const TracedConsole console;
  EXPECT_FALSE(writeOSInfo("CA12", system_));
  EXPECT_EQ(ownLines(sandbox_.masked(console.text())),
            "==> Quillmark_logging::writeOSInfo() _ca=CA12\r\n"
            "<!= Quillmark_logging::writeOSInfo() ERROR: Failed to open file <APPDATA>\\Logs\\common.log\r\n");
}

TEST_F(OsInfo, DescribesTheRunningSystemIfThePlatformCan) {
  std::string text;
  platform::VersionBlock block;
  const bool known = platform::queryVersion(platform::VersionQuery::extended, block) ||
                     platform::queryVersion(platform::VersionQuery::basic, block);
  EXPECT_EQ(Quillmark_logging::getOSDescription(text), known);
  EXPECT_EQ(text.empty(), !known);
  EXPECT_EQ(writeOSInfo("CA12"), known);
  EXPECT_EQ(readFile(logFile()), known ? nativeLineEnds(text + "\n\n") : "");
}

}  // namespace
