// SPDX-License-Identifier: MIT
// A file that is to be emptied, and processes that are forked before its first message.
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <string>

#include "boost/logging/logging.hpp"
#include "tests/support/fault_plan.h"
#include "tests/support/linux/forked_child.h"
#include "tests/support/parked_thread.h"
#include "tests/support/temporary_folder.h"

namespace {

namespace bl = boost::logging;
using platform::Call;
using testsupport::CallHook;
using testsupport::FaultPlan;
using testsupport::inTimedChild;

/// One process tells another one, forked from it or the other way round, to go on.
class Signal {
 public:
  Signal() { EXPECT_EQ(::pipe(ends_.data()), 0); }
  ~Signal() {
    ::close(ends_[0]);
    ::close(ends_[1]);
  }
  Signal(const Signal&) = delete;
  Signal& operator=(const Signal&) = delete;

  void give() const { EXPECT_EQ(::write(ends_[1], "x", 1), 1); }
  void await() const {
    char byte = 0;
    EXPECT_EQ(::read(ends_[0], &byte, 1), 1);
  }

 private:
  std::array<int, 2> ends_{};
};

class OverwriteFork : public testing::Test {
 protected:
  OverwriteFork() { testsupport::writeFile(path_, "before\n"); }

  /// Writes in a forked child.
  int writeInChild(const bl::write_to_file& _appender, const std::string& _message) const {
    return inTimedChild([&] {
      _appender("App", _message);
      return 0;
    });
  }

  std::string text() const { return testsupport::readFile(path_); }

  const testsupport::TemporaryFolder folder_;
  const std::string path_ = folder_.file("own.log");
};

TEST_F(OverwriteFork, LosesNoLineOfChildrenAndGrandchildrenThatWriteBeforeTheParent) {
  const bl::write_to_file appender(path_, true);
  EXPECT_EQ(inTimedChild([&] {
              const int grandchild = writeInChild(appender, "grandchild\n");
              appender("App", "child\n");
              return grandchild;
            }),
            0);
  EXPECT_EQ(text(), "grandchild\nchild\n");
  appender("App", "parent\n");
  EXPECT_EQ(text(), "grandchild\nchild\nparent\n");
}

TEST_F(OverwriteFork, LosesNoLineOfAParentThatWritesBeforeTheChild) {
  const bl::write_to_file appender(path_, true);
  const Signal isWritten;
  const pid_t child = ::fork();
  if (child == 0) {
    isWritten.await();
    appender("App", "child\n");
    ::_exit(0);
  }
  appender("App", "parent\n");
  isWritten.give();
  EXPECT_EQ(testsupport::exitCodeOf(child), 0);
  EXPECT_EQ(text(), "parent\nchild\n");
}

TEST_F(OverwriteFork, EmptiesTheFileInTheParentWhenTheChildCouldNotOpenIt) {
  const bl::write_to_file appender(path_, true);
  EXPECT_EQ(inTimedChild([&] {
              const FaultPlan opening(Call::openForAppending, 1, platform::errorAccessDenied);
              appender("App", "lost\n");
              return 0;
            }),
            0);
  EXPECT_EQ(text(), "before\n");
  appender("App", "parent\n");
  EXPECT_EQ(text(), "parent\n");
}

TEST_F(OverwriteFork, LetsAChildWaitForAParentThatIsEmptyingTheFile) {
  const bl::write_to_file appender(path_, true);
  testsupport::ParkedThread opening([&appender](testsupport::ParkedThread& _thread) {
    const CallHook hook(Call::openForAppending, 1, [&_thread] { _thread.park(); });
    appender("App", "parent\n");
  });
  opening.waitUntilParked();
  const Signal isWaiting;
  const pid_t child = ::fork();
  if (child == 0) {
    ::alarm(60);
    {
      const CallHook hook(Call::awaitSharedWord, 1, [&isWaiting] { isWaiting.give(); });
      appender("App", "child\n");
    }
    isWaiting.give();
    ::_exit(0);
  }
  isWaiting.await();
  opening.release();
  EXPECT_EQ(testsupport::exitCodeOf(child), 0);
  const std::string all = text();
  EXPECT_TRUE(all == "parent\nchild\n" || all == "child\nparent\n") << all;
}

TEST_F(OverwriteFork, EmptiesTheFileInPlaceOfAChildThatEndedBeforeItDid) {
  const bl::write_to_file appender(path_, true);
  EXPECT_EQ(inTimedChild([&] {
              const CallHook hook(Call::openForAppending, 1, [] { ::_exit(3); });
              appender("App", "child\n");
              return 0;
            }),
            3);
  appender("App", "parent\n");
  EXPECT_EQ(text(), "parent\n");
  EXPECT_EQ(writeInChild(appender, "child\n"), 0);
  EXPECT_EQ(text(), "parent\nchild\n");
}

TEST_F(OverwriteFork, EmptiesTheFileInEachProcessWhereNoMemoryIsShared) {
  const FaultPlan memory(Call::shareWord, 1, platform::errorAccessDenied);
  const bl::write_to_file appender(path_, true);
  EXPECT_EQ(writeInChild(appender, "child\n"), 0);
  EXPECT_EQ(text(), "child\n");
  appender("App", "parent\n");
  EXPECT_EQ(text(), "parent\n");
}

TEST_F(OverwriteFork, LetsAChildKeepWhatAParentMayHaveEmptiedWhereNoMemoryIsShared) {
  const FaultPlan memory(Call::shareWord, 1, platform::errorAccessDenied);
  const bl::write_to_file appender(path_, true);
  testsupport::ParkedThread opening([&appender](testsupport::ParkedThread& _thread) {
    const CallHook hook(Call::openForAppending, 1, [&_thread] { _thread.park(); });
    appender("App", "parent\n");
  });
  opening.waitUntilParked();
  EXPECT_EQ(writeInChild(appender, "child\n"), 0);
  EXPECT_EQ(text(), "before\nchild\n");
}

TEST_F(OverwriteFork, NeverEmptiesAFileThatIsContinued) {
  const bl::write_to_file appender(path_, false);
  EXPECT_EQ(writeInChild(appender, "child\n"), 0);
  appender("App", "parent\n");
  EXPECT_EQ(text(), "before\nchild\nparent\n");
}

}  // namespace
