// SPDX-License-Identifier: MIT
#include "tools/system/replaced_file.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/temporary_folder.h"

namespace {

using testsupport::namesIn;
using testsupport::readFile;
using testsupport::writeFile;
using toolsystem::replaceFile;
using Names = std::vector<std::string>;

TEST(ReplacedFile, TakesTheNameOfTheFormerOneOrOfNone) {
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.path() + "\\list";
  EXPECT_FALSE(replaceFile(path, "Demo.A;\n"));
  EXPECT_EQ(readFile(path), "Demo.A;\n");
  EXPECT_FALSE(replaceFile(path, "Demo.B;\r\n"));
  EXPECT_EQ(readFile(path), "Demo.B;\r\n");
  EXPECT_EQ(namesIn(folder.path()), Names{"list"});
}

TEST(ReplacedFile, RemovesWhatAKilledWriterHasLeftAndNothingElse) {
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.path() + "\\list";
  writeFile(path + ".1234.new", "half");
  writeFile(path + ".new", "another's");
  writeFile(folder.path() + "\\list2.1234.new", "half");
  EXPECT_FALSE(replaceFile(path, "x"));
  EXPECT_EQ(namesIn(folder.path()), (Names{"list", "list.new", "list2.1234.new"}));
}

}  // namespace
