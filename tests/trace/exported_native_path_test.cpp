// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <fstream>

#include "quillmark_logging.h"
#include "tests/support/temporary_folder.h"
#include "tests/trace/traced_console.h"

namespace {

TEST(ExportedNativePath, LetsAnApplicationOpenAFileByAPathOfTheLibrary) {
  const testsupport::TemporaryFolder folder;
  testsupport::writeFile(folder.file("a.txt"), "content");
  std::ifstream file(Quillmark_logging::nativePath(folder.file("a.txt")));
  std::string content;
  EXPECT_TRUE(file >> content);
  EXPECT_EQ(content, "content");
}

TEST(ExportedNativePath, PrintsNoTrace) {
  const testsupport::TracedConsole console;
  EXPECT_EQ(Quillmark_logging::nativePath("name"), "name");
  EXPECT_EQ(console.text(), "");
}

}  // namespace
