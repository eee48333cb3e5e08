// SPDX-License-Identifier: MIT
#include "tests/support/linux/troubled_output.h"

#include <fcntl.h>
#include <unistd.h>

#include "tests/support/linux/file_size_limit.h"
#include "tests/support/linux/replaced_stream.h"

namespace testsupport {
namespace {

void actWith(int _output, const std::function<void()>& _action) {
  {
    const ReplacedStream output(STDOUT_FILENO, _output);
    _action();
  }
  ::close(_output);
}

}  // namespace

void TroubledOutput::whileNobodyReads(const Action& _action) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  ::close(ends[0]);
  actWith(ends[1], _action);
}

void TroubledOutput::onAFullDisk(const Action& _action) { actWith(::open("/dev/full", O_WRONLY | O_CLOEXEC), _action); }

void TroubledOutput::underAFileSizeLimit(const Action& _action) const {
  const FileSizeLimit limit(4);
  actWith(openFile(), _action);
}

void TroubledOutput::expectLastLine(const std::string& _line, const Action& _action) const {
  actWith(openFile(), _action);
  const std::string text = readFile(folder_.file("output"));
  EXPECT_TRUE(text.ends_with(_line)) << text;
}

int TroubledOutput::openFile() const {
  return ::open((folder_.path() + "/output").c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
}

}  // namespace testsupport
