// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <string>

#include "logmanager/appenders/batch_writer.h"
#include "logmanager/early_messages.h"
#include "logmanager/log.h"
#include "tests/logmanager/counted_memory.h"
#include "tests/logmanager/quiet_appender.h"

// What a forked child does first, without the fork. What throws there ends the child.

namespace {

using boost::logging::detail::BatchWriter;
using boost::logging::detail::EarlyMessages;
using boost::logging::detail::Log;

/// Whether the function allocates; its first allocation fails.
template <class Function>
bool needsMemory(Function _function) {
  testsupport::failAllocation(0);
  try {
    _function();
  } catch (const std::bad_alloc&) {
  }
  return testsupport::failAllocation(-1);
}

TEST(ForkMemory, IsNotNeededByAChildThatForgetsTheCache) {
  const Log log("App");
  EarlyMessages early;
  ASSERT_TRUE(early.keep(log, "of the parent"));
  early.lockForFork();
  ASSERT_FALSE(needsMemory([&early] { early.restartInChild(); }));
  EXPECT_TRUE(early.keep(log, "of the child"));
}

TEST(ForkMemory, IsNotNeededByAChildWhoseParentHasAWriter) {
  BatchWriter writer(&testsupport::quietAppender, 0);
  ASSERT_TRUE(writer.noteThread());
  writer.queue().push("of the parent\n");
  writer.lockForFork();
  ASSERT_FALSE(needsMemory([&writer] { writer.restartInChild(); }));
  EXPECT_EQ(writer.queue().heldBytes(), 0U);
  EXPECT_TRUE(writer.noteThread());
}

TEST(ForkMemory, MayLackForTheWriterOfAChildWhichThenDeliversWithoutAThread) {
  std::string delivered;
  BatchWriter writer([&delivered](const std::string&, const std::string& _message) { delivered += _message; }, 0);
  writer.lockForFork();
  writer.restartInChild();
  writer.queue().push("1\n");
  EXPECT_TRUE(needsMemory([&writer] { EXPECT_FALSE(writer.noteThread()); }));
  EXPECT_EQ(delivered, "1\n");
  writer.queue().push("2\n");
  EXPECT_FALSE(writer.attend());
  EXPECT_EQ(delivered, "1\n2\n");
}

}  // namespace
