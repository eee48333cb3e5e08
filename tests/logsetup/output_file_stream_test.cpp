// SPDX-License-Identifier: MIT
#include "logsetup/output_file_stream.h"

#include <gtest/gtest.h>

#include "tests/support/temporary_folder.h"

namespace {

using Quillmark_logging::OutputFileStream;
using testsupport::nativeLineEnds;
using testsupport::readFile;

class OutputFileStreamTest : public testing::Test {
 protected:
  const testsupport::TemporaryFolder folder_;
  const std::string path_ = folder_.file("file");
  OutputFileStream stream_;
};

TEST_F(OutputFileStreamTest, WritesInsertedTextAtOnce) {
  stream_.open(path_, OutputFileStream::Mode::append);
  stream_ << "text " << 42;
  EXPECT_EQ(readFile(path_), "text 42");
  stream_.put('!');
  EXPECT_EQ(readFile(path_), "text 42!");
  EXPECT_TRUE(stream_.good());
}

TEST_F(OutputFileStreamTest, CountsTheBytesOfTheFile) {
  stream_.open(path_, OutputFileStream::Mode::truncate);
  stream_ << "two\nlines\n";
  EXPECT_EQ(readFile(path_), nativeLineEnds("two\nlines\n"));
  EXPECT_EQ(stream_.tellp(), static_cast<std::streamoff>(nativeLineEnds("two\nlines\n").size()));
}

TEST_F(OutputFileStreamTest, FailsToCloseAFileThatIsNotOpen) {
  EXPECT_FALSE(stream_.is_open());
  stream_.close();
  EXPECT_TRUE(stream_.fail());
  EXPECT_EQ(stream_.tellp(), -1);
}

TEST_F(OutputFileStreamTest, FailsToWriteWhenItIsClosed) {
  stream_ << "lost";
  EXPECT_TRUE(stream_.bad());
}

TEST_F(OutputFileStreamTest, FailsToOpenAFolderAndAnOpenStream) {
  stream_.open(folder_.path(), OutputFileStream::Mode::append);
  EXPECT_TRUE(stream_.fail());
  stream_.clear();
  stream_.open(path_, OutputFileStream::Mode::append);
  EXPECT_TRUE(stream_.good());
  stream_.open(folder_.file("other"), OutputFileStream::Mode::append);
  EXPECT_TRUE(stream_.fail());
  EXPECT_FALSE(testsupport::exists(folder_.file("other")));
}

TEST_F(OutputFileStreamTest, RefusesToChangeItsPosition) {
  stream_.open(path_, OutputFileStream::Mode::truncate);
  stream_ << "text";
  stream_.seekp(0);
  EXPECT_TRUE(stream_.fail());
}

TEST_F(OutputFileStreamTest, WritesSingleCharactersOnceItIsOpen) {
  stream_.put('x');
  EXPECT_TRUE(stream_.bad());
  stream_.clear();
  stream_.open(path_, OutputFileStream::Mode::truncate);
  stream_.put('a').put('b');
  EXPECT_TRUE(stream_.good());
  EXPECT_EQ(testsupport::readFile(path_), "ab");
}

TEST_F(OutputFileStreamTest, KnowsItsCurrentPositionOnly) {
  stream_.open(path_, OutputFileStream::Mode::truncate);
  stream_ << "text";
  EXPECT_EQ(stream_.rdbuf()->pubseekoff(0, std::ios::cur, std::ios::out), 4);
  EXPECT_EQ(stream_.rdbuf()->pubseekoff(1, std::ios::cur, std::ios::out), -1);
  EXPECT_EQ(stream_.rdbuf()->pubseekoff(0, std::ios::end, std::ios::out), -1);
}

TEST_F(OutputFileStreamTest, WritesNoEnd) {
  /// Gives access to what a buffer's own functions call.
  struct Buffer : std::streambuf {
    using std::streambuf::overflow;
  };
  stream_.open(path_, OutputFileStream::Mode::truncate);
  EXPECT_NE((stream_.rdbuf()->*(&Buffer::overflow))(Buffer::traits_type::eof()), Buffer::traits_type::eof());
  EXPECT_EQ(testsupport::readFile(path_), "");
}

}  // namespace
