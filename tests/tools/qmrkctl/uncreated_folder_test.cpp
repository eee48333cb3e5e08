// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/check/uncreated_folder.h"

#include <gtest/gtest.h>

namespace {

using qmrkctl::uncreatedFolder;

TEST(UncreatedFolder, IsMissingAndHasTheNameOfADriveAndOthersBelow) {
  EXPECT_EQ(uncreatedFolder("\\a\\C:\\Logs\\D:\\x", "\\a"), "\\a\\C:");
  EXPECT_EQ(uncreatedFolder("\\a\\b/C://Logs", "\\a"), "\\a\\b/C:");
  EXPECT_EQ(uncreatedFolder("\\a\\C:\\Logs\\D:\\x", "\\a\\C:"), "\\a\\C:\\Logs\\D:");
  for (const char* const folder : {"\\a\\C:", "\\a\\C:\\", "\\a\\C:x\\y", "\\a\\b"})
    EXPECT_EQ(uncreatedFolder(folder, "\\a"), "") << folder;
  EXPECT_EQ(uncreatedFolder("C:\\a", "C:"), "");
}

}  // namespace
