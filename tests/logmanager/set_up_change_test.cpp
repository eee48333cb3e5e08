// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <thread>
#include <vector>

#include "boost/logging/logging.hpp"
#include "logmanager/default_log_manager.h"
#include "tests/logmanager/recorder.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace bl = boost::logging;
using bl::set_up_change;
using testing::ElementsAre;
using testing::IsEmpty;
using testsupport::Recorder;
using testsupport::suffix;

class SetUpChange : public testing::Test {
 protected:
  SetUpChange() { bl::flush_log_cache(); }
  ~SetUpChange() override {
    bl::del_appender(manager_, "*", "A");
    bl::del_modifier(manager_, "*", "M");
    bl::enable_logs(manager_, "*", bl::level_on);
  }

  static void inAnotherThread(const std::function<void()>& _function) { std::thread(_function).join(); }

  bl::default_log_manager& manager_ = bl::get_default_log_manager();
  Recorder recorder_;
};

TEST_F(SetUpChange, HoldsItsCallsBackUntilApply) {
  const bl::logger log("H1.log");
  set_up_change change(manager_);
  bl::add_appender(manager_, "H1", recorder_.appender(), "A", 100);
  bl::add_modifier(manager_, "H1", suffix("!"), "M", 100);
  log.write("before");
  bl::enable_logs(manager_, "H1.off", bl::level_off);
  EXPECT_TRUE(bl::logger("H1.off").is_enabled());
  change.apply();
  log.write("after");
  EXPECT_THAT(recorder_.messages(), ElementsAre("H1.log|after!"));
  EXPECT_FALSE(bl::logger("H1.off").is_enabled());
}

TEST_F(SetUpChange, ForgetsCallsThatWereNotApplied) {
  const bl::logger log("H2.log");
  {
    const set_up_change change(manager_);
    bl::add_appender(manager_, "H2", recorder_.appender(), "A", 100);
    bl::enable_logs(manager_, "H2", bl::level_off);
  }
  EXPECT_TRUE(log.is_enabled());
  log.write("m");
  EXPECT_THAT(recorder_.messages(), IsEmpty());
}

TEST_F(SetUpChange, NotesCallsAgainAfterApply) {
  const bl::logger log("H3.log");
  set_up_change change(manager_);
  bl::enable_logs(manager_, "H3", bl::level_off);
  change.apply();
  bl::enable_logs(manager_, "H3", bl::level_on);
  EXPECT_FALSE(log.is_enabled());
  change.apply();
  EXPECT_TRUE(log.is_enabled());
}

TEST_F(SetUpChange, LeavesTheCallsOfAnInnerChangeToTheOuterOne) {
  const bl::logger applied("H4.applied");
  const bl::logger forgotten("H4.forgotten");
  set_up_change outer(manager_);
  {
    set_up_change inner(manager_);
    bl::enable_logs(manager_, "H4.applied", bl::level_off);
    inner.apply();
    bl::enable_logs(manager_, "H4.forgotten", bl::level_off);
  }
  EXPECT_TRUE(applied.is_enabled());
  outer.apply();
  EXPECT_FALSE(applied.is_enabled());
  EXPECT_TRUE(forgotten.is_enabled());
}

TEST_F(SetUpChange, LeavesTheCallsOfOtherThreadsAndOtherManagersAlone) {
  bl::default_log_manager other;
  const set_up_change change(manager_);
  inAnotherThread([this] { bl::enable_logs(manager_, "H5.thread", bl::level_off); });
  EXPECT_FALSE(bl::logger("H5.thread").is_enabled());
  bl::enable_logs(other, "H5", bl::level_off);
  EXPECT_FALSE(other.log("H5").enabled);
  set_up_change changeOfOther(other);
  bl::enable_logs(other, "H5", bl::level_on);
  bl::enable_logs(manager_, "H5", bl::level_off);
  changeOfOther.apply();
  EXPECT_TRUE(other.log("H5").enabled);
  EXPECT_TRUE(bl::logger("H5").is_enabled());
}

TEST_F(SetUpChange, TakesEffectAsAWholeBesideThatOfAnotherThread) {
  const bl::logger log("H6.log");
  bl::add_appender(manager_, "H6", recorder_.appender(), "A", 100);
  const auto note = [this](const std::string& _mark, bool _isOn) {
    bl::enable_logs(manager_, "H6.log", _isOn ? bl::level_on : bl::level_off);
    bl::add_modifier(manager_, "H6", suffix(_mark), "M", 100);
  };
  {
    set_up_change change(manager_);
    note("1", true);
    inAnotherThread([this, &note] {
      set_up_change other(manager_);
      note("2", false);
      other.apply();
    });
    EXPECT_FALSE(log.is_enabled());
    change.apply();
  }
  log.write("");
  EXPECT_THAT(recorder_.messages(), ElementsAre("H6.log|21"));
}

TEST_F(SetUpChange, DoesNotTouchWhatEndsUpTheSame) {
  bl::add_appender(manager_, "H7", recorder_.appender(), "A", 100);
  const bl::detail::Log& log = manager_.log("H7.log");
  const auto* const callables = log.callables.load();
  set_up_change change(manager_);
  bl::enable_logs(manager_, "*", bl::level_off);
  bl::add_appender(manager_, "H7", recorder_.appender(), "B", 100);
  bl::del_appender(manager_, "*", "B");
  bl::del_modifier(manager_, "*", "M");
  bl::enable_logs(manager_, "H7", bl::level_on);
  change.apply();
  EXPECT_EQ(log.callables.load(), callables);
  EXPECT_TRUE(log.enabled);
}

/// A value whose insertion does something.
struct Trigger {
  const std::function<void()>& action;
};

std::ostream& operator<<(std::ostream& _out, const Trigger& _trigger) {
  _trigger.action();
  return _out;
}

// The statement began when the log was on and ends when it has new callables: they are not for it.
TEST_F(SetUpChange, GivesNoMessageToTheNewCallablesOfALogThatGoesOff) {
  const bl::logger log("H8.log");
  const Recorder former;
  bl::add_appender(manager_, "H8", former.appender(), "A", 100);
  const std::function<void()> switchOff = [this] {
    set_up_change change(manager_);
    bl::del_appender(manager_, "H8", "A");
    bl::add_appender(manager_, "H8", recorder_.appender(), "A", 100);
    bl::enable_logs(manager_, "H8", bl::level_off);
    change.apply();
  };
  QMRK_LOG(log) << "m" << Trigger{switchOff};
  EXPECT_THAT(recorder_.messages(), IsEmpty());
}

/// Finds the log on, as a statement does, and then replaces its appender and switches it off, before the statement
/// looks at what is connected.
void logWhileItGoesOff(const bl::logger& _log, const bl::appender& _next) {
  bl::default_log_manager& manager = bl::get_default_log_manager();
  ASSERT_TRUE(_log.is_enabled());
  {
    set_up_change change(manager);
    bl::add_appender(manager, _log.name(), _next, "A", 100);
    bl::enable_logs(manager, _log.name(), bl::level_off);
    change.apply();
  }
  bl::detail::finish_statement() & bl::detail::statement(_log).stream() << "off";
  bl::enable_logs(manager, _log.name(), bl::level_on);
  QMRK_LOG(_log) << "on";
}

TEST_F(SetUpChange, GivesNoLateStatementToTheCallablesOfALogThatWentOff) {
  const testsupport::TemporaryFolder folder;
  const std::string paths[] = {folder.file("plain.log"), folder.file("thread_safe.log")};
  logWhileItGoesOff(bl::logger("H11"), recorder_.appender());
  logWhileItGoesOff(bl::logger("H12"), bl::write_to_file(paths[0], false));
  logWhileItGoesOff(bl::logger("H13"), bl::ts_appender(bl::write_to_file(paths[1], false), 0));
  EXPECT_THAT(recorder_.messages(), ElementsAre("H11|on"));
  EXPECT_EQ(testsupport::readFile(paths[0]), "on");
  while (!testsupport::exists(paths[1]) || testsupport::readFile(paths[1]).size() < 2)
    std::this_thread::yield();
  EXPECT_EQ(testsupport::readFile(paths[1]), "on");
}

TEST_F(SetUpChange, SetsUpLogsCreatedMeanwhile) {
  set_up_change change(manager_);
  bl::add_appender(manager_, "H9", recorder_.appender(), "A", 100);
  bl::enable_logs(manager_, "H9.off", bl::level_off);
  const bl::logger log("H9.log");
  const bl::logger off("H9.off");
  change.apply();
  log.write("m");
  EXPECT_THAT(recorder_.messages(), ElementsAre("H9.log|m"));
  EXPECT_FALSE(off.is_enabled());
}

/// Adds an appender where it is destroyed.
class AddsAtItsEnd {
 public:
  AddsAtItsEnd(bl::default_log_manager& _manager, const Recorder& _recorder)
      : manager_(_manager), recorder_(_recorder) {}
  ~AddsAtItsEnd() { bl::add_appender(manager_, "H10", recorder_.appender(), "A", 100); }
  AddsAtItsEnd(const AddsAtItsEnd&) = delete;
  AddsAtItsEnd& operator=(const AddsAtItsEnd&) = delete;

 private:
  bl::default_log_manager& manager_;
  const Recorder& recorder_;
};

TEST_F(SetUpChange, AcceptsCallablesWhoseDestructorsMakeSetUpCalls) {
  const bl::logger log("H10.log");
  const auto addWithEnd = [this] {
    const auto end = std::make_shared<AddsAtItsEnd>(manager_, recorder_);
    bl::add_appender(
        manager_, "H10", [end](const std::string&, const std::string&) {}, "end", 100);
  };
  set_up_change outer(manager_);
  {
    const set_up_change inner(manager_);
    addWithEnd();
  }
  outer.apply();
  log.write("forgotten with the inner one");
  addWithEnd();
  bl::del_appender(manager_, "H10", "end");
  outer.apply();
  log.write("noted by the change");
  outer.apply();
  log.write("m");
  EXPECT_THAT(recorder_.messages(), ElementsAre("H10.log|m"));
}

}  // namespace
