// SPDX-License-Identifier: MIT
#include "platform/linux/mapped_file.h"

#include <gtest/gtest.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace {

using platform::isMappingOf;

TEST(MappedFile, HasANameOfDeviceAndInode) {
  const std::string line = "7f0c7a1e0000-7f0c7a1f0000 rw-s 00000000 00:1a 4711                   /dev/shm/a b";
  EXPECT_TRUE(isMappingOf(line, makedev(0, 0x1a), 4711));
  EXPECT_FALSE(isMappingOf(line, makedev(0, 0x1b), 4711));
  EXPECT_FALSE(isMappingOf(line, makedev(0, 0x1a), 4712));
  EXPECT_FALSE(isMappingOf("", makedev(0, 0), 0));
  EXPECT_FALSE(isMappingOf("7f0c7a1e0000-7f0c7a1f0000 rw-s", makedev(0, 0), 0));
}

TEST(MappedFile, StaysUnknownForAProcessThatDoesNotRun) {
  EXPECT_EQ(platform::mapsFile(0x7FFFFFFC, 0, 0), std::nullopt);
}

}  // namespace
