// SPDX-License-Identifier: MIT
#include "platform/linux/time_zone.h"

#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/syscall.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>

#include "platform/clock.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/linux/system_calls.h"
#include "tests/support/private_events.h"
#include "tests/support/temporary_folder.h"

namespace {

constexpr std::int64_t moment = 1167984187123;  // 2007-01-05 08:03:07.123 UTC
constexpr std::int64_t farAhead = std::int64_t{1} << 40;

// The zone of the system, over which a test can put another one. The mounts are the test's own.
class TimeZone : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { testsupport::usePrivateEvents(); }

  TimeZone() {
    testsupport::setEnvironment("TZ", "");
    replaceZone(0);
    ::tzset();
  }
  ~TimeZone() override {
    while (mounts_-- > 0) {
      ::umount2("/etc/localtime", MNT_DETACH);
    }
    ::tzset();
  }

  void replaceZone(int _hoursEast) {
    const std::string path = folder_.path() + "/zone" + std::to_string(++mounts_);
    testsupport::writeFile(path, zoneFile(_hoursEast));
    ASSERT_EQ(::mount(path.c_str(), "/etc/localtime", nullptr, MS_BIND, nullptr), 0);
  }

  // A file of one type of time, without a transition: its head, twice, and the rule for the times to come.
  static std::string zoneFile(int _hoursEast) {
    const int seconds = _hoursEast * 3600;
    std::string block = "TZif2" + std::string(34, '\0') + '\1' + std::string(3, '\0') + '\4';
    block += {'\0', '\0', static_cast<char>(seconds >> 8), static_cast<char>(seconds), '\0', '\0', 'X', 'X', 'X', '\0'};
    return block + block + "\nXXX-" + std::to_string(_hoursEast) + "\n";
  }

  static int hourOfTheMoment() { return platform::toLocalTime(moment).hour; }

  const testsupport::TemporaryFolder folder_;
  int mounts_ = 0;
};

TEST_F(TimeZone, FollowsTheSystemWithinAMinute) {
  platform::followTimeZone(farAhead);
  EXPECT_EQ(hourOfTheMoment(), 8);
  replaceZone(9);
  platform::followTimeZone(farAhead + 60);
  EXPECT_EQ(hourOfTheMoment(), 17);
}

/// Puts another file in the place of the one that TZ names.
void rename(const std::string& _from, const std::string& _to) { ASSERT_EQ(std::rename(_from.c_str(), _to.c_str()), 0); }

TEST_F(TimeZone, FollowsAFileThatTzNamesWithinAMinute) {
  const std::string path = folder_.path() + "/named";
  for (const std::string& zone : {path, ":" + path}) {
    testsupport::writeFile(path, zoneFile(0));
    testsupport::setEnvironment("TZ", zone);
    platform::followTimeZone(3 * farAhead);
    EXPECT_EQ(hourOfTheMoment(), 8);
    testsupport::writeFile(path + ".new", zoneFile(9));
    rename(path + ".new", path);
    platform::followTimeZone(3 * farAhead + 60);
    EXPECT_EQ(hourOfTheMoment(), 17);
    EXPECT_EQ(std::getenv("TZ"), zone);
    // Another value of the variable counts at once, as ever.
    testsupport::setEnvironment("TZ", "XXX-3");
    ::tzset();
    EXPECT_EQ(hourOfTheMoment(), 11);
  }
}

TEST_F(TimeZone, FollowsAFileOfTheSystemThatTzNames) {
  testsupport::writeFile(folder_.path() + "/Zone", zoneFile(0));
  testsupport::setEnvironment("TZDIR", folder_.path());
  testsupport::setEnvironment("TZ", "Zone");
  platform::followTimeZone(5 * farAhead);
  EXPECT_EQ(hourOfTheMoment(), 8);
  testsupport::writeFile(folder_.path() + "/Zone.new", zoneFile(2));
  rename(folder_.path() + "/Zone.new", folder_.path() + "/Zone");
  platform::followTimeZone(5 * farAhead + 60);
  EXPECT_EQ(hourOfTheMoment(), 10);
  testsupport::setEnvironment("TZDIR", "");
}

TEST_F(TimeZone, ReachesTheLocalTime) {
  platform::followTimeZone(farAhead);
  replaceZone(9);
  // The latest look is not one of this clock, so that the next one is due.
  EXPECT_EQ(hourOfTheMoment(), 17);
}

TEST_F(TimeZone, CostsNoLookAtEveryMessage) {
  const auto look = [](std::int64_t _now) { platform::followTimeZone(_now); };
  const auto callsOf = [](const auto& _function) { return testsupport::systemCallsOf(_function).size(); };
  const std::size_t one = callsOf([&look] { look(2 * farAhead); });
  EXPECT_GT(one, 0U);
  EXPECT_EQ(callsOf([&look] {
              for (std::int64_t second = 0; second < 30; ++second) {
                look(2 * farAhead + second);
              }
            }),
            one);
  EXPECT_GT(callsOf([&look] {
              look(2 * farAhead);
              look(2 * farAhead + 30);
            }),
            one);
}

}  // namespace
