// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/check/misplaced_file.h"

#include <gtest/gtest.h>

#include "tests/support/config_sandbox.h"

namespace qmrkctl {
namespace {

class MisplacedFile : public ::testing::Test {
 protected:
  // What is found for the missing class list of CA12 when there is another file.
  std::string forClassList(const std::string& _other) const {
    testsupport::writeFile(_other, "A;\n");
    const Viewpoint own = ownViewpoint();
    return misplacedFile(own, readConfiguration(own, ""), sandbox_.initPath("CA12"));
  }

  testsupport::ConfigSandbox sandbox_;
};

TEST_F(MisplacedFile, IsFoundInTheOtherFolder) {
  const std::string cfg = sandbox_.cfgPath("CA12");
  const std::string inCfgFolder = cfg.substr(0, cfg.rfind('\\')) + "\\QMRK_logging_CA12.init";
  EXPECT_EQ(forClassList(inCfgFolder), inCfgFolder);
}

TEST_F(MisplacedFile, IsFoundWithAnotherEnding) {
  for (const std::string ending : {".init.txt", ".INI", "", ".init.bak"}) {
    const testsupport::ConfigSandbox alone;
    const std::string path = alone.initPath("CA12");
    const std::string other = path.substr(0, path.rfind('.')) + ending;
    testsupport::writeFile(other, "A;\n");
    const Viewpoint own = ownViewpoint();
    EXPECT_EQ(misplacedFile(own, readConfiguration(own, ""), path), other);
  }
}

TEST_F(MisplacedFile, IsNoFileOfAnotherCaOrKind) {
  const std::string init = sandbox_.initPath("CA12");
  const std::string stem = init.substr(0, init.rfind('.'));
  for (const std::string ending : {"3.init", ".cfg", ".cfg.bak", "~"})
    EXPECT_EQ(forClassList(stem + ending), "") << ending;
}

}  // namespace
}  // namespace qmrkctl
