// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "boost/logging/logging.hpp"
#include "tests/logmanager/recorder.h"

namespace {

namespace bl = boost::logging;
using testing::ElementsAre;
using testing::IsEmpty;

// A flush of the log cache inside a change. Each test needs a process in which there was no flush yet.
class NotedFlush : public testing::Test {
 protected:
  NotedFlush() { bl::logger("Flush").write("kept"); }

  void connect() { bl::add_appender(manager_, "Flush", recorder_.appender(), "A", 100); }

  bl::default_log_manager& manager_ = bl::get_default_log_manager();
  testsupport::Recorder recorder_;
};

TEST_F(NotedFlush, FollowsTheCallsBeforeIt) {
  bl::set_up_change change(manager_);
  connect();
  bl::flush_log_cache();
  EXPECT_THAT(recorder_.messages(), IsEmpty());
  change.apply();
  EXPECT_THAT(recorder_.messages(), ElementsAre("Flush|kept"));
}

TEST_F(NotedFlush, ComesAtOnceWhenNoCallIsBeforeIt) {
  connect();
  const bl::set_up_change change(manager_);
  bl::flush_log_cache();
  EXPECT_THAT(recorder_.messages(), ElementsAre("Flush|kept"));
}

TEST_F(NotedFlush, DisappearsWithTheInnerChange) {
  bl::set_up_change change(manager_);
  connect();
  {
    const bl::set_up_change inner(manager_);
    bl::flush_log_cache();
  }
  change.apply();
  EXPECT_THAT(recorder_.messages(), IsEmpty());
  bl::flush_log_cache();
  EXPECT_THAT(recorder_.messages(), ElementsAre("Flush|kept"));
}

TEST_F(NotedFlush, StaysWhenALaterInnerChangeIsForgotten) {
  bl::set_up_change change(manager_);
  connect();
  bl::flush_log_cache();
  { const bl::set_up_change inner(manager_); }
  change.apply();
  EXPECT_THAT(recorder_.messages(), ElementsAre("Flush|kept"));
}

}  // namespace
