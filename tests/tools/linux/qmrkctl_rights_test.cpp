// SPDX-License-Identifier: MIT
// Who may change a class list, and what those are told who may not.
#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/support/linux/forked_child.h"
#include "tests/tools/linux/qmrkctl_on_sandbox.h"

namespace {

using testsupport::ChildResult;
using testsupport::Names;
using testsupport::other;

// "daemon", which every system has.
constexpr gid_t engineers = 1;

class QmrkctlRights : public testsupport::QmrkctlOnSandbox {
 protected:
  /// What the program answers a user of no name who has no group but those.
  static ChildResult answerTo(const std::vector<gid_t>& _groups, const Names& _arguments) {
    ChildResult result;
    const testsupport::TemporaryFolder folder;
    const std::string output = folder.file("output");
    const std::string errors = folder.file("errors");
    EXPECT_EQ(::chmod(folder.path().c_str(), 0777), 0);
    result.exitCode = testsupport::inForkedChild([&] {
      if (::setgroups(_groups.size(), _groups.data()) != 0 || ::setresgid(other, other, other) != 0 ||
          ::setresuid(other, other, other) != 0)
        return 100;
      const ChildResult answer = qmrkctl(_arguments);
      testsupport::writeFile(output, answer.output);
      testsupport::writeFile(errors, answer.errors);
      return answer.exitCode;
    });
    result.output = testsupport::readFile(output);
    result.errors = testsupport::readFile(errors);
    return result;
  }

  std::string folder() const { return testsupport::replaced(sandbox_.initFolder(), "\\", "/"); }

  void letEngineersWrite() const {
    ASSERT_EQ(::chown(folder().c_str(), 0, engineers), 0);
    ASSERT_EQ(::chmod(folder().c_str(), 02775), 0);
  }

  const Names enable_ = {"classes", "enable", "Demo.Net"};
};

TEST_F(QmrkctlRights, NameTheOwnerAndRoot) {
  const ChildResult result = answerTo({}, enable_);
  EXPECT_EQ(result.exitCode, 4);
  EXPECT_TRUE(contains(result.errors, "the owner of the file may do that, or root: run the same command by sudo\n"))
      << result.errors;
  EXPECT_EQ(list(), "Demo.App;\nDemo.Net.error;\n");
}

TEST_F(QmrkctlRights, NameTheGroupThatHasThem) {
  letEngineersWrite();
  const ChildResult result = answerTo({}, enable_);
  EXPECT_EQ(result.exitCode, 4);
  EXPECT_TRUE(contains(result.errors,
                       "the members of the group \"daemon\" may do that (sudo usermod -a -G daemon USER, then log in "
                       "again), or root"))
      << result.errors;
}

TEST_F(QmrkctlRights, NameTheCommandsThatGiveThemToAGroup) {
  letEngineersWrite();
  const ChildResult result = answerTo({engineers}, enable_);
  EXPECT_EQ(result.exitCode, 4);
  const std::string file = "\"" + folder() + "/qmrk_logging_CA12.init\"";
  EXPECT_TRUE(contains(
      result.errors, "; to let the group \"daemon\": sudo chgrp daemon " + file + " && sudo chmod g+w " + file + "\n"))
      << result.errors;
  EXPECT_FALSE(contains(result.output, "+Demo.Net")) << "nothing has changed: " << result.output;
  EXPECT_EQ(list(), "Demo.App;\nDemo.Net.error;\n");
}

TEST_F(QmrkctlRights, AreThoseOfTheFolderForTheListOfANewCa) {
  letEngineersWrite();
  EXPECT_EQ(qmrkctl({"init-config", "--ca", "CA13", "--install"}).exitCode, 0);
  EXPECT_EQ(answerTo({engineers}, {"--ca", "CA13", "classes", "enable", "Demo.Net"}).exitCode, 0);
  struct stat status {};
  ASSERT_EQ(::stat((folder() + "/qmrk_logging_CA13.init").c_str(), &status), 0);
  EXPECT_EQ(status.st_gid, engineers);
  EXPECT_EQ(status.st_mode & 07777U, 0664U);
  ASSERT_EQ(::stat(testsupport::replaced(sandbox_.cfgPath("CA13"), "\\", "/").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777U, 0644U);
}

}  // namespace
