// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "boost/logging/logging.hpp"
#include "logmanager/default_log_manager.h"
#include "tests/logmanager/recorder.h"
#include "tests/support/matches_pattern.h"

namespace {

namespace bl = boost::logging;
using testing::ElementsAre;
using testing::IsEmpty;
using testsupport::Recorder;
using testsupport::suffix;

constexpr unsigned int levelOn = 0;
constexpr unsigned int levelOff = 4294967295U;
static_assert(bl::level_on == levelOn && bl::level_off == levelOff, "applications pass the names, or the numbers");

class SetUp : public testing::Test {
 protected:
  SetUp() { bl::flush_log_cache(); }

  std::vector<std::string> logged(const std::string& _log, const std::string& _message) {
    const std::size_t before = recorder_.messages().size();
    bl::logger(_log).write(_message);
    const std::vector<std::string> all = recorder_.messages();
    return {all.begin() + static_cast<std::ptrdiff_t>(before), all.end()};
  }

  bl::default_log_manager& manager_ = bl::get_default_log_manager();
  Recorder recorder_;
};

TEST_F(SetUp, ConnectsToTheSelectedLogsOnly) {
  bl::add_appender(manager_, "C1.App", recorder_.appender(), "A", 100);
  EXPECT_THAT(logged("C1.App", "m"), ElementsAre("C1.App|m"));
  EXPECT_THAT(logged("C1.App.error", "m"), ElementsAre("C1.App.error|m"));
  EXPECT_THAT(logged("C1.Apple", "m"), IsEmpty());
}

TEST_F(SetUp, RunsLowerIndexesFirstAndEqualOnesInTheOrderOfAdding) {
  bl::add_modifier(manager_, "C2", suffix("3"), "M", 100);
  bl::add_modifier(manager_, "C2", suffix("1"), "M", -5);
  bl::add_modifier(manager_, "C2", suffix("4"), "N", 100);
  bl::add_modifier(manager_, "C2", suffix("2"), "M", 7);
  bl::add_modifier(manager_, "C2", suffix("5"), "M", 100);
  bl::add_appender(manager_, "C2", recorder_.appender(), "A", 100);
  EXPECT_THAT(logged("C2", ""), ElementsAre("C2|12345"));
}

TEST_F(SetUp, BuildsTheDefaultLineFromThreeModifiersOfEqualIndex) {
  bl::add_modifier(manager_, "C3.error", bl::prepend_time_ms("$yyyy$MM$dd $hh:$mm:$ss.$mss "), "M", 100);
  bl::add_modifier(manager_, "C3.error", &bl::prepend_prefix, "M", 100);
  bl::add_modifier(manager_, "C3.error", &bl::append_enter, "M", 100);
  bl::add_appender(manager_, "C3.error", recorder_.appender(), "A", 100);
  const std::vector<std::string> lines = logged("C3.error", "text");
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_THAT(lines[0],
              testsupport::MatchesPattern("C3.error.\\[C3.error\\] "
                                          "[0-9]{8} [0-9][0-9]:[0-9][0-9]:[0-9][0-9].[0-9][0-9][0-9] text\n"));
}

TEST_F(SetUp, RemovesAllCallablesOfTheNameFromTheSelectedLogsOnly) {
  bl::add_appender(manager_, "C4", recorder_.appender(), "A", 100);
  bl::add_appender(manager_, "C4", recorder_.appender(), "A", 50);
  bl::add_appender(manager_, "C4", recorder_.appender(), "B", 100);
  bl::del_appender(manager_, "C4.x", "A");
  EXPECT_EQ(logged("C4", "m").size(), 3U);
  EXPECT_EQ(logged("C4.x", "m").size(), 1U);
  EXPECT_EQ(logged("C4.y", "m").size(), 3U);
  bl::del_appender(manager_, "*", "A");
  EXPECT_EQ(logged("C4.y", "m").size(), 1U);
}

TEST_F(SetUp, RemovesModifiersByName) {
  bl::add_appender(manager_, "C5", recorder_.appender(), "A", 100);
  bl::add_modifier(manager_, "C5", suffix("1"), "A", 100);
  bl::add_modifier(manager_, "C5", suffix("2"), "B", 100);
  bl::del_modifier(manager_, "C5", "A");
  EXPECT_THAT(logged("C5", ""), ElementsAre("C5|2"));
}

TEST_F(SetUp, IgnoresTheRemovalOfAnUnknownName) {
  bl::add_appender(manager_, "C6", recorder_.appender(), "A", 100);
  bl::del_appender(manager_, "*", "never");
  bl::del_modifier(manager_, "C6", "A");
  EXPECT_EQ(logged("C6", "m").size(), 1U);
}

TEST_F(SetUp, LeavesALogOnThatNoCallSelects) { EXPECT_TRUE(bl::logger("C7.never.selected").is_enabled()); }

TEST_F(SetUp, FollowsTheLatestEnableCall) {
  const bl::logger log("C8.a");
  bl::enable_logs(manager_, "C8", levelOff);
  EXPECT_FALSE(log.is_enabled());
  EXPECT_FALSE(bl::logger("C8.later").is_enabled());
  bl::enable_logs(manager_, "C8.a", levelOn);
  EXPECT_TRUE(log.is_enabled());
  bl::enable_logs(manager_, "C8.*", levelOff);
  EXPECT_FALSE(log.is_enabled());
  bl::enable_logs(manager_, "C8.a", 4294967294U);
  EXPECT_TRUE(log.is_enabled());
}

TEST_F(SetUp, DropsMessagesOfALogThatIsOff) {
  bl::add_appender(manager_, "C9", recorder_.appender(), "A", 100);
  bl::enable_logs(manager_, "C9", levelOff);
  EXPECT_THAT(logged("C9", "m"), IsEmpty());
  bl::enable_logs(manager_, "C9", levelOn);
  EXPECT_THAT(logged("C9", "m"), ElementsAre("C9|m"));
}

TEST_F(SetUp, IgnoresAnEmptyFunction) {
  bl::add_appender(manager_, "C10", bl::appender(), "A", 100);
  bl::add_modifier(manager_, "C10", bl::modifier(), "A", 100);
  bl::add_appender(manager_, "C10", recorder_.appender(), "A", 100);
  EXPECT_THAT(logged("C10", "m"), ElementsAre("C10|m"));
}

TEST_F(SetUp, SelectsTheEmptyNameByTheEmptyPatternAndByAStar) {
  bl::add_appender(manager_, "", recorder_.appender(), "A", 100);
  EXPECT_THAT(logged("", "m"), ElementsAre("|m"));
  EXPECT_THAT(logged("C11", "m"), IsEmpty());
  bl::del_appender(manager_, "*", "A");
  EXPECT_THAT(logged("", "m"), IsEmpty());
}

TEST_F(SetUp, CopiesAHandleThatKnowsItsName) {
  const bl::logger log("C12.copy");
  const bl::logger copy = log;  // NOLINT(performance-unnecessary-copy-initialization): its subject
  bl::enable_logs(manager_, "C12", levelOff);
  EXPECT_FALSE(copy.is_enabled());
  EXPECT_EQ(copy.name(), "C12.copy");
}

TEST_F(SetUp, DestroysARemovedCallable) {
  const auto used = std::make_shared<int>(1);
  bl::logger("C13");
  bl::add_appender(
      manager_, "C13", [used](const std::string&, const std::string&) {}, "A", 100);
  EXPECT_GT(used.use_count(), 1);
  bl::del_appender(manager_, "*", "A");
  EXPECT_EQ(used.use_count(), 1);
}

TEST_F(SetUp, LetsACallableMakeSetUpCalls) {
  const auto removeItself = [this](const std::string&, const std::string&) {
    bl::del_appender(manager_, "C14", "once");
    bl::add_appender(manager_, "C14", recorder_.appender(), "A", 100);
    bl::enable_logs(manager_, "C14.other", levelOff);
  };
  bl::add_appender(manager_, "C14", removeItself, "once", 100);
  EXPECT_THAT(logged("C14", "first"), IsEmpty());
  EXPECT_THAT(logged("C14", "second"), ElementsAre("C14|second"));
}

}  // namespace
