// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <pthread.h>
#include <unistd.h>

#include <atomic>
#include <cstdint>
#include <thread>

#include "quillmark_logging.h"
#include "tests/logsetup/linux/page_in_its_folder.h"
#include "tests/support/linux/forked_child.h"

namespace {

using namespace Quillmark_logging;
using qmrkctl::PageState;
using testsupport::inForkedChild;
using testsupport::ownStatus;
using testsupport::pageOf;

using StatusPageThreads = testsupport::PageInItsFolder;

TEST_F(StatusPageThreads, LetsChildrenBeForkedWhileItIsWritten) {
  ASSERT_TRUE(setUp());
  std::atomic<bool> isOver{false};
  std::thread writer([&] {
    while (!isOver)
      updateLogLevels("CA12");
  });
  for (int i = 0; i < 50; ++i) {
    EXPECT_EQ(inForkedChild([] { return updateLogLevels("CA12") && pageOf(::getpid()).status ? 0 : 1; }), 0);
  }
  isOver = true;
  writer.join();
}

TEST_F(StatusPageThreads, SurvivesTheCancellationOfAThreadThatWritesIt) {
  ASSERT_TRUE(setUp());
  for (int i = 0; i < 20; ++i) {
    pthread_t thread{};
    const auto body = [](void* /*_unused*/) -> void* {
      for (;;) {
        updateLogLevels("CA12");
        ::pthread_testcancel();
      }
    };
    ASSERT_EQ(::pthread_create(&thread, nullptr, body, nullptr), 0);
    std::this_thread::yield();
    ::pthread_cancel(thread);
    ASSERT_EQ(::pthread_join(thread, nullptr), 0);
    EXPECT_EQ(pageOf(::getpid()).state, PageState::live);
  }
  const std::uint64_t generation = ownStatus().classes.generation;
  ASSERT_TRUE(updateLogLevels("CA12"));
  EXPECT_EQ(ownStatus().classes.generation, generation + 1);
}

}  // namespace
