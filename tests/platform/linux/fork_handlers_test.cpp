// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdint>

#include "platform/named_event.h"
#include "platform/thread.h"
#include "tests/config/scarce_memory.h"
#include "tests/support/linux/forked_child.h"
#include "tests/support/private_events.h"

namespace {

// fork() has no way to say that memory is lacking: where the handlers of the library need it, the process ends.
int inChildForkedWithoutMemory(int (*_function)()) noexcept {
  pid_t child = -1;
  {
    const testsupport::ScarceMemory memory(1);
    child = ::fork();
  }
  if (child == 0) ::_exit(_function());
  return testsupport::exitCodeOf(child);
}

// Comes first, as the process has used nothing of the library yet.
TEST(ForkHandlers, NeedNoMemoryBeforeTheLibraryIsUsed) {
  EXPECT_EQ(inChildForkedWithoutMemory([] { return 0; }), 0);
}

TEST(ForkHandlers, NeedNoMemoryWhileEventsAndThreadsAreOpen) {
  testsupport::usePrivateEvents();
  const platform::Handle event = platform::createEvent("QMRK_FORK_TEST");
  std::uint32_t id = 0;
  const platform::Handle thread = platform::createThread(
      [](void*) { return platform::waitForEvent(platform::createEvent("QMRK_FORK_TEST.kept"), platform::waitForever); },
      nullptr, id);
  ASSERT_TRUE(platform::terminateThread(thread, 1));
  EXPECT_EQ(inChildForkedWithoutMemory([] { return platform::createEvent("QMRK_FORK_TEST.child") != nullptr ? 0 : 1; }),
            0);
  EXPECT_TRUE(platform::closeHandle(thread));
  EXPECT_TRUE(platform::closeHandle(event));
}

}  // namespace
