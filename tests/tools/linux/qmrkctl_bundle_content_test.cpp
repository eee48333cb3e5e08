// SPDX-License-Identifier: MIT
// What a bundle holds, as tar of the system reads it; its rights; a full disk.
#include <gmock/gmock.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <utility>

#include "tests/support/as_unprivileged_user.h"
#include "tests/support/linux/forked_child.h"
#include "tests/support/linux/shared_memory_mount.h"
#include "tests/support/private_events.h"
#include "tests/tools/qmrkctl_run.h"

namespace {

using testing::HasSubstr;
using testing::Not;
using testsupport::ChildResult;

// From now on this system call fails with that error in the calling process and its children.
void refuse(long _call, int _error) {
  std::array<sock_filter, 4> filter = {{
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
      BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(_call), 0, 1),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | static_cast<std::uint32_t>(_error)),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
  }};
  const sock_fprog program = {static_cast<unsigned short>(filter.size()), filter.data()};
  if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 || ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0) {
    std::abort();
  }
}

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

// As on a file system that has no links, such as that of a USB stick, or on one that can only replace by a rename.
TEST_F(QmrkctlBundleContent, NeedsEitherLinksOrARenameThatReplacesNothing) {
  for (const auto& [call, error] : {std::pair(SYS_linkat, EPERM), std::pair(SYS_renameat2, EINVAL)}) {
    const int code = testsupport::inForkedChild([this, number = call, failure = error] {
      refuse(number, failure);
      return qmrkctl({"bundle", "--out", file()}).exitCode;
    });
    EXPECT_EQ(code, 0) << call;
    EXPECT_EQ(testsupport::namesIn(folder_.path()), std::vector<std::string>{"bundle.tar.gz"});
    testsupport::removeAll(file());
  }
}

TEST_F(QmrkctlBundleContent, NamesTheCommandThatMayWrite) {
  ASSERT_EQ(::chmod(folder_.path().c_str(), 0755), 0);
  const testsupport::AsUnprivilegedUser unprivileged;
  const ChildResult result = qmrkctl({"bundle", "--out", file()});
  EXPECT_EQ(result.exitCode, 4);
  EXPECT_THAT(result.errors, HasSubstr("sudo qmrkctl bundle"));
}

}  // namespace
