// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "boost/logging/logging.hpp"
#include "logmanager/default_log_manager.h"
#include "logmanager/threads/process_lock.h"
#include "logmanager/threads/thread_state.h"
#include "tests/support/fault_plan.h"
#include "tests/support/linux/forked_child.h"
#include "tests/support/parked_thread.h"
#include "tests/support/temporary_folder.h"

// A child that is forked while another thread is in the middle of something. One that hangs is ended by its alarm.

namespace {

namespace bl = boost::logging;
using bl::detail::InsideMark;
using bl::detail::ProcessLock;
using testsupport::inTimedChild;
using testsupport::ParkedThread;

constexpr unsigned int longestChild = 60;

TEST(ProcessLock, IsFreeInTheChildOfAParentWhoseThreadHoldsIt) {
  ProcessLock lock;
  ParkedThread holder([&lock](ParkedThread& _thread) {
    lock.lock();
    _thread.park();
    lock.unlock();
  });
  holder.waitUntilParked();
  EXPECT_FALSE(lock.lockOrMark());
  EXPECT_EQ(inTimedChild([&lock] {
              const bool isWhole = lock.lock();
              if (isWhole || lock.lockOrMark()) return 1;
              lock.unlock();
              return lock.lock() ? 0 : 2;
            }),
            0);
  EXPECT_EQ(inTimedChild([&lock] { return lock.lockOrMark() && !lock.lockOrMark() ? 0 : 1; }), 0);
}

TEST(ProcessLock, StaysHeldInAGrandchildWhenTheForkingThreadHoldsItWithAMark) {
  ProcessLock lock;
  lock.lock();
  const InsideMark mark(bl::detail::threadState(), lock);
  EXPECT_EQ(inTimedChild([&lock] {
              if (lock.lockOrMark()) return 1;
              return inTimedChild([&lock] {
                if (lock.lockOrMark()) return 2;
                lock.unlock();
                return lock.lockOrMark() ? 0 : 3;
              });
            }),
            0);
}

class BusyFork : public testing::Test {
 protected:
  BusyFork() { bl::flush_log_cache(); }
  ~BusyFork() override {
    bl::del_appender(manager_, "*", "A");
    bl::del_modifier(manager_, "*", "M");
  }

  bl::default_log_manager& manager_ = bl::get_default_log_manager();
};

TEST_F(BusyFork, LetsAChildLogToAnAppenderThatTheParentIsInside) {
  int calls = 0;
  ParkedThread inside([&](ParkedThread& _thread) {
    bl::add_appender(
        manager_, "F.gate",
        [&](const std::string&, const std::string&) {
          ++calls;
          _thread.park();
        },
        "A", 100);
    bl::logger("F.gate").write("parent");
  });
  inside.waitUntilParked();
  EXPECT_EQ(inTimedChild([&] {
              bl::logger("F.gate").write("child");
              bl::del_appender(manager_, "F.gate", "A");
              return calls == 2 ? 0 : 1;
            }),
            0);
  inside.release();
  EXPECT_EQ(calls, 1);
}

/// Logs through an appender that forks; each process leaves the appender and logs once more.
TEST_F(BusyFork, LetsAnAppenderForkAndOnlyTheParentDeliverWhatWasHandedOver) {
  const bl::logger forking("F.forking");
  std::vector<std::string> got;
  int child = -1;
  bool isChild = false;
  bl::add_appender(
      manager_, "F.other", [&](const std::string&, const std::string& _message) { forking.write(_message); }, "A", 100);
  bl::add_appender(
      manager_, "F.forking",
      [&](const std::string&, const std::string& _message) {
        got.push_back(_message);
        if (_message != "fork") return;
        std::thread([] { bl::logger("F.other").write("handed over"); }).join();
        child = ::fork();
        isChild = child == 0;
        if (isChild) ::alarm(longestChild);
        forking.write("inner");
      },
      "A", 100);
  forking.write("fork");
  std::thread([&forking] { forking.write("after"); }).join();
  if (isChild) ::_exit(got == std::vector<std::string>{"fork", "inner", "after"} ? 0 : 1);
  EXPECT_EQ(testsupport::exitCodeOf(child), 0);
  EXPECT_EQ(got, (std::vector<std::string>{"fork", "inner", "handed over", "after"}));
}

TEST_F(BusyFork, LetsAChildWriteToAStandardOutputInUse) {
  struct ParkingBuffer : std::stringbuf {
    explicit ParkingBuffer(ParkedThread& _thread) : thread(_thread) {}
    int sync() override {
      thread.park();
      return 0;
    }
    ParkedThread& thread;
  };
  std::streambuf* const former = std::cout.rdbuf();
  ParkedThread writing([](ParkedThread& _thread) {
    ParkingBuffer buffer(_thread);
    std::cout.rdbuf(&buffer);
    bl::write_to_cout("App", "parent\n");
  });
  writing.waitUntilParked();
  EXPECT_EQ(inTimedChild([] {
              std::ostringstream text;
              std::cout.rdbuf(text.rdbuf());
              bl::write_to_cout("App", "child\n");
              return text.str() == "child\n" ? 0 : 1;
            }),
            0);
  writing.release();
  std::cout.rdbuf(former);
}

TEST_F(BusyFork, LetsAChildFreeWhatStatementsOfTheParentHold) {
  ParkedThread modifying([&](ParkedThread& _thread) {
    bl::add_modifier(
        manager_, "F.held", [&_thread](const std::string&, std::string&) { _thread.park(); }, "M", 100);
    bl::logger("F.held").write("parent");
  });
  modifying.waitUntilParked();
  EXPECT_EQ(inTimedChild([&] {
              bl::del_modifier(manager_, "F.held", "M");
              return static_cast<int>(manager_.size().retired);
            }),
            0);
}

TEST_F(BusyFork, LetsAChildAppendToAFileThatTheParentIsOpening) {
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.file("app.log");
  const bl::write_to_file appender(path, false);
  ParkedThread opening([&appender](ParkedThread& _thread) {
    const testsupport::CallHook hook(platform::Call::openForAppending, 1, [&_thread] { _thread.park(); });
    appender("App", "parent\n");
  });
  opening.waitUntilParked();
  EXPECT_EQ(inTimedChild([&appender] {
              appender("App", "child\n");
              return 0;
            }),
            0);
  EXPECT_EQ(testsupport::readFile(path), "child\n");
}

}  // namespace
