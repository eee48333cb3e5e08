// SPDX-License-Identifier: MIT
// What a bundle holds, as tar of the system reads it; its rights; a full disk.
#include <gmock/gmock.h>
#include <sys/stat.h>

#include <cstdint>

#include "tests/support/as_unprivileged_user.h"
#include "tests/support/linux/shared_memory_mount.h"
#include "tests/support/private_events.h"
#include "tests/tools/qmrkctl_run.h"

namespace {

using testing::HasSubstr;
using testing::Not;
using testsupport::ChildResult;

class QmrkctlBundleContent : public testsupport::QmrkctlRun {
 protected:
  static void SetUpTestSuite() {
    testsupport::usePrivateProcesses();
    testsupport::usePrivateEvents();
  }
  QmrkctlBundleContent() { writeCommonLog("[Demo.App.info] 20261121 10:00:00 last words\n"); }

  std::string file() const { return folder_.path() + "/bundle.tar.gz"; }

  std::string content(const std::string& _name) const {
    return testsupport::runProgram("/bin/tar", {"-xzOf", file(), "--wildcards", "*/" + _name}).output;
  }

  testsupport::TemporaryFolder folder_;
};

TEST_F(QmrkctlBundleContent, IsReadByTar) {
  ASSERT_EQ(qmrkctl({"bundle", "--out", file()}).exitCode, 0);
  const ChildResult listing = testsupport::runProgram("/bin/tar", {"-tvzf", file()});
  EXPECT_EQ(listing.exitCode, 0);
  EXPECT_EQ(listing.errors, "");
  EXPECT_THAT(listing.output, HasSubstr("-rw------- root/root"));
  EXPECT_THAT(content("common_log.txt"), HasSubstr("last words"));
  EXPECT_THAT(content("contents.txt"), HasSubstr("doctor.txt: what qmrkctl doctor says"));
  EXPECT_THAT(content("errors.txt"), HasSubstr("no error records"));
  EXPECT_THAT(content("show.txt"), HasSubstr("COMMON_LOG_FILE_FILTER"));
}

TEST_F(QmrkctlBundleContent, HasOnlyTheDocumentedVariables) {
  testsupport::setEnvironment("SECRET_TOKEN", "hidden-secret");
  ASSERT_EQ(qmrkctl({"bundle", "--out", file()}).exitCode, 0);
  testsupport::setEnvironment("SECRET_TOKEN", "");
  EXPECT_THAT(content("environment.txt"), HasSubstr("QMRK_APPDATA="));
  EXPECT_THAT(content("*"), Not(HasSubstr("hidden-secret")));
}

TEST_F(QmrkctlBundleContent, IsForTheUserAlone) {
  ASSERT_EQ(qmrkctl({"bundle", "--out", file()}).exitCode, 0);
  struct stat facts {};
  ASSERT_EQ(::stat(file().c_str(), &facts), 0);
  EXPECT_EQ(facts.st_mode & 07777U, 0600U);
}

TEST_F(QmrkctlBundleContent, LeavesNothingOnAFullDisk) {
  // A log that cannot be packed into so little room.
  std::string text;
  std::uint32_t number = 1;
  for (int i = 0; i < 4000; ++i)
    text += "[A] 20261121 10:00:00 " + std::to_string(number = number * 1664525 + 1013904223) + "\n";
  writeCommonLog(text);
  testsupport::mountSharedMemory("size=4k");
  const ChildResult result = qmrkctl({"bundle", "--out", "/dev/shm/bundle.tar.gz"});
  EXPECT_EQ(result.exitCode, 70);
  EXPECT_THAT(result.errors, HasSubstr("No space left"));
  for (const std::string& name : testsupport::namesIn("/dev/shm"))
    EXPECT_THAT(name, Not(HasSubstr("bundle")));
  testsupport::unmountSharedMemory();
}

TEST_F(QmrkctlBundleContent, NamesTheCommandThatMayWrite) {
  ASSERT_EQ(::chmod(folder_.path().c_str(), 0755), 0);
  const testsupport::AsUnprivilegedUser unprivileged;
  const ChildResult result = qmrkctl({"bundle", "--out", file()});
  EXPECT_EQ(result.exitCode, 4);
  EXPECT_THAT(result.errors, HasSubstr("sudo qmrkctl bundle"));
}

}  // namespace
