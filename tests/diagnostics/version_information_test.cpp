// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <iomanip>
#include <iostream>
#include <sstream>

#include "quillmark_logging.h"
#include "tests/support/captured_console.h"
#include "tests/support/module_folder.h"
#include "tests/support/stamped_module.h"
#include "tests/support/temporary_folder.h"
#include "trace/trace_flags.h"

namespace {

using Quillmark_logging::getLogTestVersion;
using Quillmark_logging::getQuillmarkLoggingVersion;
using Quillmark_logging::printVersionInfo;

class VersionInformation : public testing::Test {
 protected:
  VersionInformation() : search_(folder_.path()) {}
  ~VersionInformation() override { Quillmark_logging::setFreeFunctionTrace(false); }

  void writeLibrary() const {
    testsupport::writeStampedModule(folder_.path(), "qmrk_log.dll", {2U << 16 | 1, 7, 0, 0});
  }
  void writeLogTest() const { testsupport::writeStampedModule(folder_.path(), "LogTest.exe", {1U << 16, 3, 0, 0}); }

  // What a call writes to the standard output stream.
  static std::string printed() {
    const std::ostringstream text;
    std::streambuf* const before = std::cout.rdbuf(text.rdbuf());
    printVersionInfo();
    std::cout.rdbuf(before);
    return text.str();
  }

 private:
  testsupport::TemporaryFolder folder_;
  testsupport::ModuleFolder search_;
};

TEST_F(VersionInformation, GivesTheFileVersions) {
  writeLibrary();
  writeLogTest();
  EXPECT_EQ(getQuillmarkLoggingVersion(), "2.1.0.7");
  EXPECT_EQ(getLogTestVersion(), "1.0.0.3");
}

TEST_F(VersionInformation, PrintsBothModulesAndTheirVersions) {
  writeLibrary();
  writeLogTest();
  EXPECT_EQ(printed(),
            "\nVersion info:\n"
            "=============\n"
            "qmrk_log.dll        2.1.0.7\n"
            "LogTest.exe         1.0.0.3\n"
            "\n");
}

TEST_F(VersionInformation, PrintsNothingWithoutLogTest) {
  writeLibrary();
  EXPECT_EQ(getLogTestVersion(), "N/A");
  EXPECT_EQ(getQuillmarkLoggingVersion(), "2.1.0.7");
  EXPECT_EQ(printed(), "");
}

TEST_F(VersionInformation, PrintsNothingWithoutAVersionOfTheLibrary) {
  writeLogTest();
  EXPECT_EQ(getQuillmarkLoggingVersion(), "N/A");
  EXPECT_EQ(getLogTestVersion(), "1.0.0.3");
  EXPECT_EQ(printed(), "");
}

TEST_F(VersionInformation, LeavesBlankFillAndLeftAdjustmentOnTheStream) {
  writeLibrary();
  writeLogTest();
  const char fill = std::cout.fill('*');
  const auto flags = std::cout.setf(std::ios::right, std::ios::adjustfield);
  printed();
  EXPECT_EQ(std::cout.fill(), ' ');
  EXPECT_EQ(std::cout.flags() & std::ios::adjustfield, std::ios::left);
  EXPECT_EQ(std::cout.width(), 0);
  std::cout.flags(flags);
  std::cout.fill(fill);
}

TEST_F(VersionInformation, LeavesTheStreamAloneWhenItPrintsNothing) {
  const char fill = std::cout.fill('*');
  printed();
  EXPECT_EQ(std::cout.fill(), '*');
  std::cout.fill(fill);
}

TEST_F(VersionInformation, TracesTheVersionsThatItFinds) {
  writeLibrary();
  writeLogTest();
  const testsupport::CapturedConsole console;
  Quillmark_logging::setFreeFunctionTrace(true);
  getQuillmarkLoggingVersion();
  getLogTestVersion();
  printed();
  EXPECT_EQ(console.text(),
            "==> Quillmark_logging::getQuillmarkLoggingVersion()\r\n"
            "<== Quillmark_logging::getQuillmarkLoggingVersion() Fetched version:2.1.0.7\r\n"
            "==> Quillmark_logging::getLogTestVersion()\r\n"
            "<== Quillmark_logging::getLogTestVersion() Fetched version:1.0.0.3\r\n");
}

TEST_F(VersionInformation, TracesItsFailures) {
  const testsupport::CapturedConsole console;
  Quillmark_logging::setFreeFunctionTrace(true);
  getQuillmarkLoggingVersion();
  getLogTestVersion();
  EXPECT_EQ(console.text(),
            "==> Quillmark_logging::getQuillmarkLoggingVersion()\r\n"
            "<!= Quillmark_logging::getQuillmarkLoggingVersion() Unable to fetch quillmark logging version.\r\n"
            "==> Quillmark_logging::getLogTestVersion()\r\n"
            "<!= Quillmark_logging::getLogTestVersion() Unable to fetch LogTest version.\r\n");
}

}  // namespace
