// SPDX-License-Identifier: MIT
#include "platform/text_pieces.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/text_file.h"
#include "tests/support/fault_plan.h"
#include "tests/support/temporary_folder.h"

namespace {

using platform::TextPieces;
using platform::TextReader;
using testsupport::writeFile;

TEST(JoinedPieces, AreTheWholeText) {
  EXPECT_EQ(platform::joined({}), "");
  EXPECT_EQ(platform::joined({"a", "b\n", "c"}), "ab\nc");
}

class TextPiecesTest : public testing::Test {
 protected:
  testsupport::TemporaryFolder folder_;
  std::string path_ = folder_.file("text");
};

TEST_F(TextPiecesTest, ReportsAFailedReadOfPieces) {
  writeFile(path_, std::string(1 << 20, 'x'));
  TextReader reader(path_);
  const testsupport::FaultPlan plan(platform::Call::read, 2, platform::errorAccessDenied);
  TextPieces pieces;
  EXPECT_FALSE(reader.readAll(pieces));
  EXPECT_FALSE(TextReader(folder_.file("missing")).readAll(pieces));
}

TEST_F(TextPiecesTest, ReadsALongFileInSmallPieces) {
  writeFile(path_, std::string(1 << 20, 'x'));
  TextPieces pieces;
  EXPECT_TRUE(TextReader(path_).readAll(pieces));
  for (const std::string& piece : pieces)
    EXPECT_LE(piece.size(), 65536U);
}

TEST_F(TextPiecesTest, AppendsPiecesToThoseOfTheCaller) {
  writeFile(path_, "\nnew");
  TextPieces pieces{"old\r"};
  EXPECT_TRUE(TextReader(path_).readAll(pieces));
  EXPECT_EQ(platform::joined(pieces), "old\r\nnew");
}

}  // namespace
