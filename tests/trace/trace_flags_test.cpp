// SPDX-License-Identifier: MIT
#include "trace/trace_flags.h"

#include <gtest/gtest.h>

#include "quillmark_logging.h"

namespace {

using namespace Quillmark_logging;

class TraceFlags : public testing::Test {
 protected:
  ~TraceFlags() override {
    setLoadTimeTrace(false);
    setFreeFunctionTrace(false);
    setTsMode(false);
  }
};

TEST_F(TraceFlags, KeepTheirValuesApart) {
  setLoadTimeTrace(true);
  EXPECT_TRUE(loadTimeTrace());
  EXPECT_FALSE(freeFunctionTrace());
  EXPECT_FALSE(tsMode());
  setLoadTimeTrace(false);
  setTsMode(true);
  EXPECT_FALSE(loadTimeTrace());
  EXPECT_FALSE(freeFunctionTrace());
  EXPECT_TRUE(tsMode());
}

TEST_F(TraceFlags, AnswerIsTraceEnabledByTheLoadTimeValue) {
  setFreeFunctionTrace(true);
  EXPECT_FALSE(isTraceEnabled());
  setFreeFunctionTrace(false);
  setLoadTimeTrace(true);
  EXPECT_TRUE(isTraceEnabled());
}

}  // namespace
