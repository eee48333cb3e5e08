// SPDX-License-Identifier: MIT
#include "platform/linux/process_names.h"

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/support/linux/forked_child.h"

namespace {

using platform::numberOfName;
using platform::ProcessNames;

TEST(ProcessNames, AcceptsPlainNumbersOnly) {
  EXPECT_EQ(numberOfName("0"), 0U);
  EXPECT_EQ(numberOfName("4711"), 4711U);
  EXPECT_EQ(numberOfName("4294967295"), 4294967295U);
  for (const char* name : {"", "-1", "+1", "01", "4294967296", "1 ", " 1", "1x"})
    EXPECT_FALSE(numberOfName(name)) << name;
}

TEST(ProcessNames, KeepsNumbersOfTheCallersNamespace) {
  EXPECT_EQ(ProcessNames("").processId(17), 17U);
  EXPECT_EQ(ProcessNames("/proc/self/root").processId(17), 17U);
  EXPECT_EQ(ProcessNames("/somewhere").processId(17), 17U);
}

TEST(ProcessNames, TranslatesNumbersOfAnotherNamespace) {
  int grandchild[2];
  ASSERT_EQ(::pipe(grandchild), 0);
  // The child's children are in a namespace of their own, the first of them as number 1.
  const testsupport::SleepingChild child([&grandchild] {
    if (::unshare(CLONE_NEWPID) != 0) ::_exit(1);
    const pid_t first = ::fork();
    if (first == 0) {
      ::pause();
      ::_exit(0);
    }
    if (::write(grandchild[1], &first, sizeof first) != sizeof first) ::_exit(1);
  });
  pid_t first = 0;
  ASSERT_EQ(::read(grandchild[0], &first, sizeof first), static_cast<ssize_t>(sizeof first));
  const ProcessNames names("/proc/" + std::to_string(first) + "/root");
  EXPECT_EQ(names.processId(1), static_cast<std::uint32_t>(first));
  EXPECT_EQ(names.processId(2), 0U);
  ::kill(first, SIGKILL);
}

}  // namespace
