// SPDX-License-Identifier: MIT
#include "tools/system/linux/process_maps.h"

#include <gtest/gtest.h>
#include <sys/sysmacros.h>

#include <string>
#include <vector>

namespace {

using toolsystem::countEventUsers;
using toolsystem::mappedEvents;
using toolsystem::mapsLibrary;

using Names = std::vector<std::string>;

std::string lineOf(const std::string& _path) {
  return "7f12a0000000-7f12a0001000 rw-s 00000000 00:19 42                         " + _path + "\n";
}

TEST(ProcessMaps, FindTheLibraryByTheNameOfItsFile) {
  EXPECT_TRUE(mapsLibrary(lineOf("/lib/libc.so.6") + lineOf("/opt/a b/libqmrk_log.so")));
  EXPECT_TRUE(mapsLibrary(lineOf("/usr/lib/libqmrk_log.so.1.0")));
  EXPECT_TRUE(mapsLibrary(lineOf("/usr/lib/libqmrk_log.so (deleted)")));
  EXPECT_FALSE(mapsLibrary(lineOf("/usr/lib/libqmrk_log.so/other")));
  EXPECT_FALSE(mapsLibrary(lineOf("/usr/lib/mylibqmrk_log.so")));
  EXPECT_FALSE(mapsLibrary(lineOf("[heap]")));
  EXPECT_FALSE(mapsLibrary(""));
}

TEST(ProcessMaps, NameEachEventOnce) {
  EXPECT_EQ(mappedEvents(lineOf("/dev/shm/qmrk-0/A") + lineOf("/dev/shm/qmrk-0/B") + lineOf("/dev/shm/qmrk-0/A")),
            (Names{"A", "B"}));
  EXPECT_EQ(mappedEvents(lineOf("/dev/shm/qmrk-12/A (deleted)")), Names{"A"});
}

TEST(ProcessMaps, TakeNoOtherFileForAnEvent) {
  for (const char* path : {"/dev/shm/qmrk-/A", "/dev/shm/qmrk-1x/A", "/dev/shm/qmrk-0", "/qmrk-0/", "/A", "/", ""}) {
    EXPECT_EQ(mappedEvents(lineOf(path)), Names()) << path;
  }
}

TEST(ProcessMaps, CountTheUsersOfEventsOfADevice) {
  const std::string locks =
      "1: OFDLCK ADVISORY  READ -1 00:19:42 0 0\n"
      "2: OFDLCK ADVISORY  READ -1 00:19:43 0 0\n"
      "3: OFDLCK ADVISORY  WRITE -1 00:19:42 1 1\n"
      "4: OFDLCK ADVISORY  READ -1 00:1a:42 0 0\n"
      "5: POSIX  ADVISORY  READ 77 00:19:42 0 0\n"
      "6: OFDLCK ADVISORY  READ -1 00:19:42 0 EOF\n"
      "6: -> OFDLCK ADVISORY  READ -1 00:19:42 0 0\n";
  const std::uint64_t device = makedev(0, 0x19);
  EXPECT_EQ(countEventUsers(locks, device, {}), 2U);
  EXPECT_EQ(countEventUsers(locks, device, {43}), 1U);
  EXPECT_EQ(countEventUsers(locks, makedev(0, 1), {}), 0U);
  EXPECT_EQ(countEventUsers("", device, {}), 0U);
  EXPECT_EQ(countEventUsers("nonsense", device, {}), 0U);
}

TEST(ProcessMaps, CountsWhatTwoLooksInARowAgreeOn) {
  std::vector<std::size_t> looks = {1, 0, 2, 1, 1, 5};
  std::size_t done = 0;
  EXPECT_EQ(toolsystem::settledCount([&] { return looks[done++]; }), 1U);
  EXPECT_EQ(done, 5U);
  done = 0;
  EXPECT_EQ(toolsystem::settledCount([&] { return done++; }), 9U) << "does not go on for ever";
}

}  // namespace
