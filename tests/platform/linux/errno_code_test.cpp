// SPDX-License-Identifier: MIT
#include "platform/linux/errno_code.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace {

using platform::errnoCode;

TEST(ErrnoCode, TranslatesTheErrorsThatTracesShow) {
  EXPECT_EQ(errnoCode(EEXIST), 183U);
  EXPECT_EQ(errnoCode(ENOENT), 3U);
  EXPECT_EQ(errnoCode(EACCES), 5U);
  EXPECT_EQ(errnoCode(EPERM), 5U);
  EXPECT_EQ(errnoCode(EROFS), 5U);
  EXPECT_EQ(errnoCode(ENOSPC), 112U);
  EXPECT_EQ(errnoCode(ENAMETOOLONG), 206U);
}

TEST(ErrnoCode, KeepsAnyOtherError) {
  for (int error = 0; error < 134; ++error) {
    switch (error) {
      case EEXIST:
      case ENOENT:
      case EACCES:
      case EPERM:
      case EROFS:
      case ENOSPC:
      case ENAMETOOLONG:
        break;
      default:
        EXPECT_EQ(errnoCode(error), static_cast<platform::ErrorCode>(error));
    }
  }
}

}  // namespace
