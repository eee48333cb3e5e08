// SPDX-License-Identifier: MIT
#include "control/wait_result_line.h"

#include <gtest/gtest.h>

namespace {

using Quillmark_logging::waitResultLine;

TEST(WaitResultLine, NamesTheKnownResults) {
  EXPECT_EQ(waitResultLine(0), "--- LogEventHandler::Listen4EventThread() WAIT_OBJECT_0 (0)");
  EXPECT_EQ(waitResultLine(128), "--- LogEventHandler::Listen4EventThread() WAIT_ABANDONED (128)");
  EXPECT_EQ(waitResultLine(258), "--- LogEventHandler::Listen4EventThread() WAIT_TIMEOUT (258)");
  EXPECT_EQ(waitResultLine(0xFFFFFFFF), "--- LogEventHandler::Listen4EventThread() WAIT_FAILED (4294967295)");
}

TEST(WaitResultLine, CallsAnyOtherResultDefault) {
  EXPECT_EQ(waitResultLine(1), "--- LogEventHandler::Listen4EventThread() default (1)");
  EXPECT_EQ(waitResultLine(192), "--- LogEventHandler::Listen4EventThread() default (192)");
}

}  // namespace
