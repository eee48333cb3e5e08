// SPDX-License-Identifier: MIT
#include "trace/folder_step.h"

#include <gtest/gtest.h>

#include "tests/trace/traced_console.h"

namespace {

using Quillmark_logging::folderStepResult;

constexpr bool created = true;
constexpr bool refused = false;

TEST(FolderStep, SucceedsWhenItCreatesTheFolderWhateverCameBefore) {
  for (const bool before : {false, true}) {
    const testsupport::TracedConsole console;
    EXPECT_TRUE(folderStepResult("C:\\a", created, platform::noError, before));
    EXPECT_EQ(console.text(), "--- Quillmark_logging::createDirectory() Directory C:\\a succesfully created.\r\n");
  }
}

TEST(FolderStep, SucceedsWhenTheFolderAppearsMeanwhile) {
  const testsupport::TracedConsole console;
  EXPECT_TRUE(folderStepResult("C:\\a", refused, platform::errorAlreadyExists, false));
  EXPECT_EQ(console.text(),
            "-!- Quillmark_logging::createDirectory() ERROR: GetLastError() returned 183. Requested directory already "
            "exists.\r\n");
}

TEST(FolderStep, FailsWithTheReasonOfTheSystem) {
  const testsupport::TracedConsole console;
  EXPECT_FALSE(folderStepResult("C:\\a", refused, platform::errorDiskFull, true));
  EXPECT_EQ(console.text(),
            "-!- Quillmark_logging::createDirectory() ERROR: GetLastError() returned 112. Failed to create requested "
            "directory.\r\n");
}

TEST(FolderStep, KeepsTheResultSilentlyWhenTheSystemGivesNoReason) {
  const testsupport::TracedConsole console;
  EXPECT_TRUE(folderStepResult("C:\\a", refused, platform::noError, true));
  EXPECT_FALSE(folderStepResult("C:\\a", refused, platform::noError, false));
  EXPECT_EQ(console.text(), "");
}

}  // namespace
