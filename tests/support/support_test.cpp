// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <fstream>

#include "platform/console.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/support/captured_console.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/temporary_folder.h"

namespace {

using testsupport::AsUnprivilegedUser;
using testsupport::CapturedConsole;
using testsupport::ConfigSandbox;
using testsupport::TemporaryFolder;

TEST(TemporaryFolder, DisappearsWithItsContent) {
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

TEST(CapturedConsole, KeepsTextOfTheConsole) {
  const CapturedConsole console;
  platform::writeConsole("one\r\n");
  platform::writeConsole("two\n\n\t ");
  EXPECT_EQ(console.text(), "one\r\ntwo\n\n\t ");
}

TEST(CapturedConsole, KeepsALongText) {
  const CapturedConsole console;
  std::string text;
  while (text.size() < 100000) {
    const std::string line = std::to_string(text.size()) + std::string(2000, '.') + "\r\n";
    platform::writeConsole(line);
    text += line;
  }
  EXPECT_EQ(console.text(), text);
}

TEST(AsUnprivilegedUser, CannotReadADeniedFile) {
  const TemporaryFolder folder;
  testsupport::writeFile(folder.file("secret"), "x");
  testsupport::denyAccess(folder.file("secret"));
  const AsUnprivilegedUser user;
  EXPECT_FALSE(std::ifstream(folder.path() + "/secret").is_open());
}

}  // namespace
