// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <thread>

#include "platform/named_event.h"
#include "tests/support/linux/forked_child.h"
#include "tests/support/private_events.h"

namespace {

constinit std::atomic<bool> isHeldUp{false};
constinit std::atomic<bool> isAsking{false};

void* const programHandle = nullptr;

}  // namespace

// Where the fork handlers are registered, by the C library's own function, which this one hides.
extern "C" int __register_atfork(void (*)(), void (*)(), void (*)(), void*);  // NOLINT: the name is the C library's
extern "C" int pthread_atfork(void (*_before)(), void (*_inParent)(), void (*_inChild)()) noexcept {
  isAsking = isHeldUp.load();
  while (isHeldUp) {
    std::this_thread::yield();
  }
  return __register_atfork(_before, _inParent, _inChild, programHandle);
}

// The forked child has no thread that it could join; the parent's is none of its own.
extern "C" __attribute__((visibility("default"))) const char*
__tsan_default_options() {  // NOLINT: the sanitizer's name
  return "report_thread_leaks=0";
}

namespace {

TEST(FirstHandle, HangsNoChildThatIsForkedMeanwhile) {
  testsupport::usePrivateEvents();
  isHeldUp = true;
  std::atomic<bool> isMade{false};
  std::thread first([&isMade] {
    const platform::Handle event = platform::createEvent("QMRK_FIRST_TEST");
    EXPECT_NE(event, nullptr);
    isMade = true;
    EXPECT_TRUE(platform::closeHandle(event));
  });
  while (!isAsking && !isMade) {
    std::this_thread::yield();
  }
  EXPECT_EQ(testsupport::inForkedChild([] {
              // Ends the child when it hangs.
              ::alarm(30);
              isHeldUp = false;
              return platform::createEvent("QMRK_FIRST_TEST.child") != nullptr ? 0 : 1;
            }),
            0);
  isHeldUp = false;
  first.join();
}

}  // namespace
