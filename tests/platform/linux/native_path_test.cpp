// SPDX-License-Identifier: MIT
#include "platform/native_path.h"

#include <gtest/gtest.h>

namespace {

using platform::nativePath;

TEST(NativePath, ReplacesEachBackslashByASlash) {
  EXPECT_EQ(nativePath("/home/u/.local/share\\Orvane\\\\qmrk\\"), "/home/u/.local/share/Orvane//qmrk/");
}

TEST(NativePath, KeepsEverythingElse) {
  EXPECT_EQ(nativePath(""), "");
  EXPECT_EQ(nativePath("/a/b.c:d e"), "/a/b.c:d e");
  EXPECT_EQ(nativePath("\xC3\xA6\\\xC3\xB8"), "\xC3\xA6/\xC3\xB8");
}

TEST(NativePath, LeavesTheArgumentUntouched) {
  const std::string path = "a\\b";
  EXPECT_EQ(nativePath(path), "a/b");
  EXPECT_EQ(path, "a\\b");
}

}  // namespace
