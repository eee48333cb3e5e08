// SPDX-License-Identifier: MIT
#include "tools/system/linux/unfinished_file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <vector>

#include "tests/support/temporary_folder.h"

namespace {

using testsupport::namesIn;
using testsupport::TemporaryFolder;
using testsupport::writeFile;
using Names = std::vector<std::string>;

TEST(UnfinishedFile, IsAbandonedOnceItsWriterHasClosedIt) {
  const TemporaryFolder folder;
  std::string path;
  {
    const platform::FileDescriptor file = toolsystem::makeUnfinishedFile(folder.path(), path);
    ASSERT_TRUE(file.isOpen());
    toolsystem::removeAbandonedFiles(folder.path());
    EXPECT_EQ(folder.path() + "/" + namesIn(folder.path()).at(0), path);
  }
  toolsystem::removeAbandonedFiles(folder.path());
  EXPECT_EQ(namesIn(folder.path()), Names{});
}

TEST(UnfinishedFile, IsNothingElseThatStandsInItsFolder) {
  const TemporaryFolder folder;
  const std::string unfinished = folder.path() + "/.qmrkctl-";
  writeFile(unfinished + "killed", "half");
  writeFile(unfinished + "longer-name", "another's");
  ASSERT_EQ(::mkfifo((unfinished + "afifo1").c_str(), 0600), 0);
  writeFile(folder.path() + "/somebody-else's", "his");
  ASSERT_EQ(::symlink(".qmrkctl-longer-name", (unfinished + "alink1").c_str()), 0);
  toolsystem::removeAbandonedFiles(folder.path());
  EXPECT_EQ(namesIn(folder.path()),
            (Names{".qmrkctl-afifo1", ".qmrkctl-alink1", ".qmrkctl-longer-name", "somebody-else's"}));
}

TEST(UnfinishedFile, CannotBeMadeInAFolderThatIsMissing) {
  const TemporaryFolder folder;
  std::string path;
  EXPECT_FALSE(toolsystem::makeUnfinishedFile(folder.path() + "/no", path).isOpen());
  EXPECT_EQ(errno, ENOENT);
}

}  // namespace
