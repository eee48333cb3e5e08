// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "tests/support/temporary_folder.h"
#include "trace/folder_creation.h"

namespace {

// Only here a name may hold a colon.
TEST(LastStep, CreatesAFolderAfterAColon) {
  const testsupport::TemporaryFolder folder;
  EXPECT_TRUE(Quillmark_logging::createDirectory(folder.file("x:y")));
  EXPECT_TRUE(testsupport::exists(folder.file("x:y")));
}

}  // namespace
