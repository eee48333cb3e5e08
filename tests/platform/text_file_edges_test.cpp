// SPDX-License-Identifier: MIT
// How a text file ends, and where one must not be yet.
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

TEST_F(TextFileEdges, AreThoseOfANewFileOnly) {
  {
    TextWriter writer(path_, TextWriter::Mode::create);
    EXPECT_TRUE(writer.write("mine"));
  }
  EXPECT_FALSE(TextWriter(path_, TextWriter::Mode::create).isOpen());
  EXPECT_EQ(testsupport::readFile(path_), "mine");
}

}  // namespace
