// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <fstream>
#include <iostream>

#include "tests/support/as_unprivileged_user.h"
#include "tests/support/captured_console.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/temporary_folder.h"

namespace {

using testsupport::AsUnprivilegedUser;
using testsupport::CapturedConsole;
using testsupport::ConfigSandbox;
using testsupport::TemporaryFolder;

TEST(TemporaryFolder, IsRemovedWithItsContent) {
  std::string path;
  {
    const TemporaryFolder folder;
    path = folder.path();
    testsupport::writeFile(folder.file("a.txt"), "a\r\n");
    EXPECT_EQ(testsupport::readFile(folder.file("a.txt")), "a\r\n");
    EXPECT_EQ(testsupport::namesIn(path), std::vector<std::string>{"a.txt"});
  }
  EXPECT_FALSE(testsupport::exists(path));
}

TEST(ConfigSandbox, NamesTheFilesOfACaAndMasksTheFolders) {
  const ConfigSandbox sandbox;
  sandbox.writeCfg("GE", "CA_NR=GE\n");
  EXPECT_EQ(testsupport::readFile(sandbox.cfgPath("GE")), "CA_NR=GE\n");
  EXPECT_EQ(sandbox.masked(sandbox.cfgPath("GE")), "<CFGBASE>\\Orvane Shared\\qmrk\\logging\\cfg\\qmrk_logging_GE.cfg");
  EXPECT_FALSE(testsupport::exists(sandbox.logFolder()));
}

TEST(CapturedConsole, KeepsWhatIsWrittenToStandardError) {
  const CapturedConsole console;
  std::cerr << "one\r\n"
            << "two" << std::flush;
  EXPECT_EQ(console.text(), "one\r\ntwo");
}

TEST(AsUnprivilegedUser, CannotReadWhatIsDenied) {
  const TemporaryFolder folder;
  testsupport::writeFile(folder.file("secret"), "x");
  testsupport::denyAccess(folder.file("secret"));
  const AsUnprivilegedUser user;
  EXPECT_FALSE(std::ifstream(folder.path() + "/secret").is_open());
}

}  // namespace
