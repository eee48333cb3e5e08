// SPDX-License-Identifier: MIT
#include "platform/text_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <sstream>
#include <string>
#include <thread>

#include "platform/append_file.h"
#include "tests/support/as_unprivileged_user.h"
#include "tests/support/fault_plan.h"
#include "tests/support/temporary_folder.h"

namespace {

using platform::Call;
using platform::TextReader;
using platform::TextWriter;
using testsupport::FaultPlan;
using testsupport::TemporaryFolder;
using testsupport::writeFile;
using namespace std::string_literals;

class TextFile : public ::testing::Test {
 protected:
  // What a reader makes of the bytes.
  std::string readBack(const std::string& _bytes) const {
    writeFile(path_, _bytes);
    return read(path_);
  }

  static std::string read(const std::string& _path) {
    TextReader reader(_path);
    std::string text;
    EXPECT_TRUE(reader.isOpen());
    EXPECT_TRUE(reader.readAll(text));
    platform::TextPieces pieces;
    EXPECT_TRUE(TextReader(_path).readAll(pieces));
    EXPECT_EQ(platform::joined(pieces), text);
    EXPECT_TRUE(std::ranges::none_of(pieces, &std::string::empty));
    return text;
  }

  static bool write(const std::string& _path, TextWriter::Mode _mode, const std::string& _text) {
    TextWriter writer(_path, _mode);
    return writer.isOpen() && writer.write(_text);
  }

  TemporaryFolder folder_;
  std::string path_ = folder_.file("text");
};

using TextReaderTest = TextFile;
using TextWriterTest = TextFile;

TEST_F(TextReaderTest, ReadsAnEmptyFile) { EXPECT_EQ(readBack(""), ""); }

TEST_F(TextReaderTest, ReadsCrLfAsLf) { EXPECT_EQ(readBack("one\r\ntwo\r\n"), "one\ntwo\n"); }

TEST_F(TextReaderTest, KeepsLineFeedsAndLoneCarriageReturns) {
  EXPECT_EQ(readBack("a\nb\rc\r\rd\n\re\r"), "a\nb\rc\r\rd\n\re\r");
}

TEST_F(TextReaderTest, DropsOnlyTheLastOfSeveralCarriageReturns) { EXPECT_EQ(readBack("a\r\r\nb"), "a\r\nb"); }

TEST_F(TextReaderTest, KeepsNulsAndBytesOutsideAscii) {
  EXPECT_EQ(readBack("a\0b\xC3\xA6\xFF\0"s), "a\0b\xC3\xA6\xFF\0"s);
}

TEST_F(TextReaderTest, FindsACrLfWhereverABufferEnds) {
  for (const std::size_t size : {512U, 4096U, 8192U, 16384U, 32768U, 65536U}) {
    for (std::size_t before = size - 2; before <= size + 1; ++before) {
      const std::string text(before, 'x');
      std::string bytes = text;
      std::string expected = text;
      bytes.append("\r\n").append(text);
      expected.append("\n").append(text);
      EXPECT_EQ(readBack(bytes), expected) << before;
      EXPECT_EQ(readBack(text + "\r\n"), text + "\n") << before;
    }
  }
}

TEST_F(TextReaderTest, KeepsALoneCarriageReturnWhereverABufferEnds) {
  for (const std::size_t size : {4096U, 16384U, 65536U}) {
    const std::string text = std::string(size - 1, 'x') + "\r";
    EXPECT_EQ(readBack(text + "y"), text + "y");
    EXPECT_EQ(readBack(text), text);
  }
}

TEST_F(TextReaderTest, AppendsToTheText) {
  writeFile(path_, "new");
  TextReader reader(path_);
  std::string text = "old\r";
  EXPECT_TRUE(reader.readAll(text));
  EXPECT_EQ(text, "old\rnew");
}

TEST_F(TextReaderTest, ReadsCrLfAsLfAcrossTheChunksOfItsReads) {
  std::string bytes;
  std::string text;
  while (bytes.size() < 200'000) {
    bytes += "line\r\n";
    text += "line\n";
  }
  EXPECT_EQ(readBack(bytes), text);
  EXPECT_EQ(readBack("x" + bytes), "x" + text);
}

TEST_F(TextReaderTest, ReadsNothingMoreAtTheEnd) {
  writeFile(path_, "text");
  TextReader reader(path_);
  std::string text;
  EXPECT_TRUE(reader.readAll(text));
  EXPECT_TRUE(reader.readAll(text));
  EXPECT_EQ(text, "text");
}

TEST_F(TextReaderTest, DoesNotOpenAMissingFile) {
  TextReader reader(folder_.file("missing"));
  EXPECT_FALSE(reader.isOpen());
  std::string text = "untouched";
  EXPECT_FALSE(reader.readAll(text));
  EXPECT_EQ(text, "untouched");
}

TEST_F(TextReaderTest, DoesNotOpenAFileOfAMissingFolder) {
  EXPECT_FALSE(TextReader(folder_.file("missing\\text")).isOpen());
}

TEST_F(TextReaderTest, DoesNotOpenAFolder) { EXPECT_FALSE(TextReader(folder_.path()).isOpen()); }

TEST_F(TextReaderTest, DoesNotOpenAnEmptyOrTooLongName) {
  EXPECT_FALSE(TextReader("").isOpen());
  EXPECT_FALSE(TextReader(folder_.file(std::string(300, 'n'))).isOpen());
}

TEST_F(TextReaderTest, OpensANameOutsideAscii) {
  writeFile(folder_.file("\xC3\xA6.cfg"), "CA_NR=GE\n");
  EXPECT_EQ(read(folder_.file("\xC3\xA6.cfg")), "CA_NR=GE\n");
}

TEST_F(TextReaderTest, ReadsAFileOpenForWriting) {
  TextWriter writer(path_, TextWriter::Mode::truncate);
  EXPECT_TRUE(writer.write("shared"));
  EXPECT_EQ(read(path_), "shared");
}

TEST_F(TextReaderTest, FailsToOpenAsPlanned) {
  writeFile(path_, "text");
  const FaultPlan plan(Call::openForReading, 2, platform::errorAccessDenied);
  EXPECT_TRUE(TextReader(path_).isOpen());
  EXPECT_FALSE(TextReader(path_).isOpen());
  EXPECT_TRUE(TextReader(path_).isOpen());
}

TEST_F(TextReaderTest, EndsTheTextAtAFailedRead) {
  const std::string bytes(1 << 20, 'x');
  writeFile(path_, bytes);
  TextReader reader(path_);
  const FaultPlan plan(Call::read, 2, platform::errorAccessDenied);
  std::string text;
  EXPECT_FALSE(reader.readAll(text));
  EXPECT_FALSE(text.empty());
  EXPECT_LT(text.size(), bytes.size());
}

TEST_F(TextWriterTest, CreatesAMissingFile) {
  EXPECT_TRUE(write(path_, TextWriter::Mode::truncate, "text"));
  EXPECT_EQ(testsupport::readFile(path_), "text");
  EXPECT_TRUE(write(folder_.file("other"), TextWriter::Mode::append, "text"));
  EXPECT_EQ(testsupport::readFile(folder_.file("other")), "text");
}

TEST_F(TextWriterTest, EmptiesTheFileWhenItIsOpened) {
  writeFile(path_, "former content");
  const TextWriter writer(path_, TextWriter::Mode::truncate);
  EXPECT_EQ(testsupport::readFile(path_), "");
}

TEST_F(TextWriterTest, AppendsAtTheCurrentEnd) {
  writeFile(path_, "one ");
  TextWriter writer(path_, TextWriter::Mode::append);
  EXPECT_TRUE(write(path_, TextWriter::Mode::append, "two "));
  EXPECT_TRUE(writer.write("three"));
  EXPECT_EQ(testsupport::readFile(path_), "one two three");
}

TEST_F(TextWriterTest, WritesWhatAReaderReadsBack) {
  const std::string text = "one\n\ntwo\0\xFFthree\n"s;
  EXPECT_TRUE(write(path_, TextWriter::Mode::truncate, text));
  EXPECT_EQ(read(path_), text);
}

TEST_F(TextWriterTest, WritesALargeTextWhole) {
  const std::string text = std::string(3 << 20, 'x') + "\nend\n";
  EXPECT_TRUE(write(path_, TextWriter::Mode::truncate, text));
  EXPECT_EQ(read(path_), text);
}

TEST_F(TextWriterTest, MakesNoCallForAnEmptyText) {
  TextWriter writer(path_, TextWriter::Mode::truncate);
  const FaultPlan plan(Call::write, 1, platform::errorDiskFull);
  EXPECT_TRUE(writer.write(""));
  EXPECT_EQ(plan.calls(), 0);
}

TEST_F(TextWriterTest, MakesOneCallPerText) {
  TextWriter writer(path_, TextWriter::Mode::append);
  const FaultPlan plan(Call::write, 100, platform::errorDiskFull);
  EXPECT_TRUE(writer.write("one record\n"));
  EXPECT_EQ(plan.calls(), 1);
}

TEST_F(TextWriterTest, NeverCreatesAFolder) {
  TextWriter writer(folder_.file("missing\\text"), TextWriter::Mode::append);
  EXPECT_FALSE(writer.isOpen());
  EXPECT_FALSE(writer.write("text"));
  EXPECT_FALSE(testsupport::exists(folder_.file("missing")));
}

TEST_F(TextWriterTest, DoesNotOpenAFolder) {
  EXPECT_FALSE(TextWriter(folder_.path(), TextWriter::Mode::append).isOpen());
  EXPECT_FALSE(TextWriter(folder_.path(), TextWriter::Mode::truncate).isOpen());
}

TEST_F(TextWriterTest, DoesNotOpenATooLongName) {
  EXPECT_FALSE(TextWriter(folder_.file(std::string(300, 'n')), TextWriter::Mode::truncate).isOpen());
}

TEST_F(TextWriterTest, OpensANameOutsideAscii) {
  EXPECT_TRUE(write(folder_.file("\xC3\xB8.init"), TextWriter::Mode::truncate, "App;"));
  EXPECT_EQ(testsupport::readFile(folder_.file("\xC3\xB8.init")), "App;");
}

TEST_F(TextWriterTest, DoesNotOpenAReadOnlyFileAndKeepsItsContent) {
  writeFile(path_, "kept");
  testsupport::denyWriting(path_);
  const testsupport::AsUnprivilegedUser user;
  EXPECT_FALSE(TextWriter(path_, TextWriter::Mode::truncate).isOpen());
  EXPECT_FALSE(TextWriter(path_, TextWriter::Mode::append).isOpen());
  EXPECT_EQ(read(path_), "kept");
}

TEST_F(TextWriterTest, FailsToOpenAsPlannedAndLeavesTheFile) {
  writeFile(path_, "kept");
  const FaultPlan plan(Call::openForWriting, 1, platform::errorAccessDenied);
  EXPECT_FALSE(TextWriter(path_, TextWriter::Mode::truncate).isOpen());
  EXPECT_EQ(read(path_), "kept");
  EXPECT_TRUE(TextWriter(path_, TextWriter::Mode::truncate).isOpen());
}

TEST_F(TextWriterTest, FailsAWriteAsPlannedAndMakesTheNext) {
  TextWriter writer(path_, TextWriter::Mode::append);
  const FaultPlan plan(Call::write, 2, platform::errorDiskFull);
  EXPECT_TRUE(writer.write("one "));
  EXPECT_FALSE(writer.write("two "));
  EXPECT_TRUE(writer.write("three"));
  EXPECT_EQ(read(path_), "one three");
}

TEST_F(TextWriterTest, AppendsBesideAnAppendFileWithoutOverwriting) {
  constexpr int lines = 2000;
  platform::ErrorCode error = platform::noError;
  const auto appendFile = platform::AppendFile::open(path_, false, error);
  ASSERT_NE(appendFile, nullptr);
  std::thread other([&appendFile] {
    for (int i = 0; i < lines; ++i)
      appendFile->append("appended\n", 9);
  });
  TextWriter writer(path_, TextWriter::Mode::append);
  for (int i = 0; i < lines; ++i)
    EXPECT_TRUE(writer.write("written\n"));
  other.join();
  std::istringstream text(read(path_));
  int appended = 0;
  int written = 0;
  for (std::string line; std::getline(text, line);) {
    appended += line == "appended" ? 1 : 0;
    written += line == "written" ? 1 : 0;
  }
  EXPECT_EQ(appended, lines);
  EXPECT_EQ(written, lines);
}

TEST_F(TextFile, ClosesEveryFile) {
  writeFile(path_, "text");
  const FaultPlan plan(Call::closeFile, 100, platform::errorInvalidHandle);
  { const TextReader reader(path_); }
  { const TextWriter writer(path_, TextWriter::Mode::append); }
  EXPECT_EQ(plan.calls(), 2);
  { const TextReader reader(folder_.file("missing")); }
  EXPECT_EQ(plan.calls(), 2);
}

}  // namespace
