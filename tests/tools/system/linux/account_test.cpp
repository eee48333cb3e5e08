// SPDX-License-Identifier: MIT
#include "tools/system/account.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// A process that nobody has waited for yet is still listed, and has no environment.
TEST(Account, OfAProcessThatHasEndedIsToldFromOneThatIsHidden) {
  EXPECT_FALSE(toolsystem::hasEnded(::getpid()));
  const pid_t child = ::fork();
  if (child == 0) ::_exit(0);
  siginfo_t end{};
  ASSERT_EQ(::waitid(P_PID, static_cast<id_t>(child), &end, WEXITED | WNOWAIT), 0);
  EXPECT_TRUE(toolsystem::accountOfProcess(child));
  EXPECT_TRUE(toolsystem::hasEnded(child));
  ASSERT_EQ(::waitpid(child, nullptr, 0), child);
  EXPECT_TRUE(toolsystem::hasEnded(child));
}

}  // namespace
