// SPDX-License-Identifier: MIT
// How a text file ends, and where one must not be yet that is created.
#include <gtest/gtest.h>

#include "platform/text_file.h"
#include "tests/support/temporary_folder.h"

namespace {

using platform::endsInsideLine;
using platform::TextWriter;

class TextFileEdges : public testing::Test {
 protected:
  testsupport::TemporaryFolder folder_;
  std::string path_ = folder_.file("file");
};

TEST_F(TextFileEdges, ShowALineWithoutAnEnd) {
  for (const char* text : {"x", "one\nx", "one\n ", "\r"}) {
    testsupport::writeFile(path_, text);
    EXPECT_TRUE(endsInsideLine(path_)) << text;
  }
  for (const char* text : {"", "\n", "one\n", "one\r\n"}) {
    testsupport::writeFile(path_, text);
    EXPECT_FALSE(endsInsideLine(path_)) << text;
  }
  EXPECT_FALSE(endsInsideLine(folder_.path()));
  EXPECT_FALSE(endsInsideLine(folder_.file("missing")));
}

TEST(NewTextFile, TakesThePlaceOfNoOther) {
  const testsupport::TemporaryFolder folder;
  const std::string path = folder.file("file");
  {
    TextWriter writer(path, TextWriter::Mode::create);
    EXPECT_TRUE(writer.write("mine"));
  }
  EXPECT_FALSE(TextWriter(path, TextWriter::Mode::create).isOpen());
  EXPECT_EQ(testsupport::readFile(path), "mine");
}

}  // namespace
