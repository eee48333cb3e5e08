// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/check/write_obstacle.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

#include "tests/support/temporary_folder.h"

namespace {

using namespace qmrkctl;
namespace fs = std::filesystem;

constexpr unsigned int nobodyId = 65534;

Viewpoint nobodysView() { return viewpointOfUser("65534").value(); }

class WriteObstacleTest : public ::testing::Test {
 protected:
  WriteObstacleTest() {
    fs::create_directory(inner_);
    testsupport::writeFile(file_, "x");
  }

  static void giveToNobody(const std::string& _path, unsigned int _mode) {
    ASSERT_EQ(::chown(_path.c_str(), nobodyId, nobodyId), 0);
    fs::permissions(_path, fs::perms(_mode));
  }

  const testsupport::TemporaryFolder folder_;
  const std::string inner_ = folder_.path() + "/inner folder";
  const std::string file_ = inner_ + "/f";
};

TEST_F(WriteObstacleTest, IsTheOwnerWhereThatOneMayWrite) {
  EXPECT_EQ(writeObstacle(nobodysView(), file_).cause, "");
  EXPECT_EQ(writeObstacle(nobodysView(), file_).fix, "");
}

TEST_F(WriteObstacleTest, IsTheModeOfWhatTheUserOwns) {
  giveToNobody(file_, 0444);
  EXPECT_EQ(writeObstacle(nobodysView(), file_).fix, "chmod u+w \"" + file_ + "\"");
  giveToNobody(inner_, 0555);
  EXPECT_EQ(writeObstacle(nobodysView(), inner_).fix, "chmod u+wx \"" + inner_ + "\"");
}

TEST_F(WriteObstacleTest, IsTheModeTooOfWhatTheUserIsToOwn) {
  fs::permissions(file_, fs::perms(0444));
  EXPECT_EQ(writeObstacle(nobodysView(), file_).fix,
            "give it to the user who logs (chown), then chmod u+w \"" + file_ + "\"");
}

TEST_F(WriteObstacleTest, IsAFolderThatTheUserMayNotEnter) {
  fs::permissions(inner_, fs::perms(0700));
  EXPECT_EQ(writeObstacle(nobodysView(), file_).cause, ", nor enter " + inner_);
  EXPECT_EQ(writeObstacle(nobodysView(), file_).fix, "let the user enter \"" + inner_ + "\"");
  giveToNobody(inner_, 0600);
  EXPECT_EQ(writeObstacle(nobodysView(), file_).fix, "chmod u+x \"" + inner_ + "\"");
}

}  // namespace
