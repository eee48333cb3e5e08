// SPDX-License-Identifier: MIT
// Each request for memory, each descriptor and each call of the system fails in turn while an application sets up, logs
// and listens. It goes on, and all is well when nothing fails any more.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <iostream>
#include <iterator>
#include <string>

#include "platform/native_path.h"
#include "tests/config/scarce_memory.h"
#include "tests/fault/linux/whole_life.h"
#include "tests/stress/linux/scale.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/support/captured_stream.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/fault_plan.h"
#include "tests/support/linux/forked_child.h"

namespace {

/// While it lives, the numbers of descriptors are below the limit.
class DescriptorLimit {
 public:
  explicit DescriptorLimit(rlim_t _limit) {
    ::getrlimit(RLIMIT_NOFILE, &former_);
    const rlimit limited{_limit, former_.rlim_max};
    ::setrlimit(RLIMIT_NOFILE, &limited);
  }
  ~DescriptorLimit() { ::setrlimit(RLIMIT_NOFILE, &former_); }
  DescriptorLimit(const DescriptorLimit&) = delete;
  DescriptorLimit& operator=(const DescriptorLimit&) = delete;

  static bool isReached() { return true; }

 private:
  rlimit former_{};
};

class WholeLife : public testing::Test {
 protected:
  WholeLife() {
    const std::string keys =
        "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\nCOMMON_LOG_FILE_FILTER=Demo;\nSPEC_LOG_FILE_LIMIT=2000\n";
    sandbox_.writeCfg("CA12", keys + "SPEC_LOG_ROTATION=TRUE\n");
    sandbox_.writeCfg("CA13", keys);
    for (const char* ca : {"CA12", "CA13"})
      sandbox_.writeInit(ca, "Demo;");
  }

  /// How a life went in which something failed. No process ends with these codes by itself or by a sanitizer.
  enum Outcome { unharmed = 100, harmed, nothingFailed, notWellAfterwards };

  /// Lives in a process of its own, from its first call of the library on, while an object of the type is there.
  /// @param _hasFailed asks the object whether what it makes fail has come.
  template <class Fault, class... Arguments>
  Outcome liveWith(const std::function<bool(const Fault&)>& _hasFailed, const Arguments&... _arguments) const {
    const int outcome = testsupport::inForkedChild([&] {
      // Ends the process when it hangs.
      ::alarm(60);
      bool isHarmed = false;
      bool hasFailed = false;
      {
        const Fault fault(_arguments...);
        isHarmed = fault::liveOnce() > 0;
        hasFailed = _hasFailed(fault);
      }
      if (!fault::isWell(commonLog_)) return static_cast<int>(notWellAfterwards);
      return static_cast<int>(!hasFailed ? nothingFailed : isHarmed ? harmed : unharmed);
    });
    return outcome < unharmed ? notWellAfterwards : static_cast<Outcome>(outcome);
  }

  /// Lets the first, the second and so on fail, until there is none any more.
  /// @return how many have failed.
  template <class Live>
  int letEachFail(Live _live) {
    int count = 0;
    for (int nth = 1;; ++nth) {
      const Outcome outcome = _live(nth);
      EXPECT_NE(outcome, notWellAfterwards) << nth;
      if (outcome == nothingFailed) return count;
      harmed_ += outcome == harmed ? 1 : 0;
      ++count;
    }
  }

  static std::ptrdiff_t openFiles() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), std::filesystem::directory_iterator());
  }

  const testsupport::ConfigSandbox sandbox_;
  int harmed_ = 0;
  const std::string commonLog_ = sandbox_.logFolder() + "\\common.log";
  // What the listener says.
  const testsupport::CapturedStream cout_{std::cout};
  const testsupport::CapturedStream cerr_{std::cerr};
};

TEST_F(WholeLife, SurvivesAnyFailedAllocation) {
  using testsupport::ScarceMemory;
  const int requests = letEachFail([this](int _nth) {
    return liveWith<ScarceMemory>([](const ScarceMemory& _memory) { return _memory.hasFailed(); }, _nth);
  });
  EXPECT_GT(requests, 20);
  EXPECT_GT(harmed_, 0);
  stress::report(requests, " requests failed in turn, ", harmed_, " of them failed a call of the application");
}

TEST_F(WholeLife, SurvivesAnyFailedSystemCall) {
  using testsupport::FaultPlan;
  int calls = 0;
  for (int call = 0; call <= static_cast<int>(platform::Call::moduleVersion); ++call) {
    calls += letEachFail([this, call](int _nth) {
      return liveWith<FaultPlan>([_nth](const FaultPlan& _plan) { return _plan.calls() >= _nth; },
                                 static_cast<platform::Call>(call), _nth, platform::errorAccessDenied);
    });
  }
  EXPECT_GT(calls, 20);
  EXPECT_GT(harmed_, 0);
  stress::report(calls, " calls failed in turn, ", harmed_, " of them failed a call of the application");
}

TEST_F(WholeLife, SurvivesWithoutDescriptors) {
  // Below the limit there are no, one, two ... numbers that may be had.
  const auto limitOf = [](int _more) { return static_cast<rlim_t>(openFiles() - 3 + _more); };
  constexpr int most = 12;
  for (int more = 0; more <= most; ++more) {
    const Outcome outcome =
        liveWith<DescriptorLimit>([](const DescriptorLimit& _limit) { return _limit.isReached(); }, limitOf(more));
    EXPECT_NE(outcome, notWellAfterwards) << more;
    harmed_ += outcome == harmed ? 1 : 0;
  }
  EXPECT_GT(harmed_, 0);
  stress::report(most + 1, " limits, ", harmed_, " of them failed a call of the application");
}

TEST_F(WholeLife, SurvivesWithoutWritePermission) {
  EXPECT_EQ(fault::liveOnce(), 0);
  EXPECT_TRUE(fault::isWell(commonLog_));
  for (const std::string& folder : {sandbox_.logFolder(), sandbox_.logFolder() + "\\Application logs"})
    testsupport::denyWriting(folder);
  for (const std::string& folder : {sandbox_.logFolder(), sandbox_.logFolder() + "\\Application logs"}) {
    for (const std::string& name : testsupport::namesIn(folder))
      testsupport::denyWriting(folder + "\\" + name);
  }
  {
    const testsupport::AsUnprivilegedUser user;
    fault::liveOnce();
  }
  namespace fs = std::filesystem;
  for (const auto& entry : fs::recursive_directory_iterator(platform::nativePath(sandbox_.logFolder())))
    fs::permissions(entry.path(), fs::perms::all);
  fs::permissions(platform::nativePath(sandbox_.logFolder()), fs::perms::all);
  EXPECT_TRUE(fault::isWell(commonLog_));
  stress::report("a whole life without the right to write, and well afterwards");
}

}  // namespace
