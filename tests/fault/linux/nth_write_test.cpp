// SPDX-License-Identifier: MIT
// Each write of a file fails, or is short, in turn.
#include <gtest/gtest.h>
#include <sys/syscall.h>

#include <boost/logging/logging.hpp>
#include <cerrno>
#include <string>

#include "logsetup/rolling_file_appender.h"
#include "platform/append_file.h"
#include "tests/stress/linux/oracle.h"
#include "tests/stress/linux/scale.h"
#include "tests/support/linux/traced_child.h"
#include "tests/support/temporary_folder.h"

namespace {

using stress::Oracle;
using stress::Tally;
using testsupport::CallFate;
using Kind = CallFate::Kind;

constexpr int lineCount = 5;
constexpr int fillerSize = 30;

class NthWrite : public testing::Test {
 protected:
  /// Writes lines with a new appender; fate strikes the _nth write.
  template <class MakeAppender>
  Tally tallyOf(MakeAppender _makeAppender, int _nth, const CallFate& _fate) {
    const testsupport::TemporaryFolder folder;
    const std::string path = folder.file("log");
    Oracle oracle(1);
    int writes = 0;
    const int status = testsupport::runTraced(
        [&] {
          auto appender = _makeAppender(path);
          testsupport::markCalls();
          for (int i = 0; i < lineCount; ++i) {
            appender("", oracle.next(0, fillerSize) + "\n");
            oracle.acknowledge(0);
          }
          testsupport::markCalls();
          return 0;
        },
        [&](long _call) { return _call == SYS_write && ++writes == _nth ? _fate : CallFate(); });
    EXPECT_EQ(status, 0);
    ++runs_;
    text_ = testsupport::readFile(path);
    return oracle.check(text_);
  }

  static boost::logging::write_to_file plain(const std::string& _path) { return {_path, false}; }
  static boost::logging::rolling_file_appender rolling(const std::string& _path) {
    return {_path, 1000000, 2, nullptr, true};
  }

  int runs_ = 0;
  std::string text_;
};

TEST_F(NthWrite, CostsThePlainFileOneMessageWhenItFails) {
  for (const int error : {ENOSPC, EIO, EDQUOT, EFBIG, EAGAIN}) {
    for (int nth = 1; nth < lineCount; ++nth) {
      const Tally tally = tallyOf(plain, nth, {Kind::fails, error});
      EXPECT_EQ(tally.lost, 1) << error << " " << nth;
      EXPECT_EQ(tally.torn + tally.duplicated + tally.glued + tally.disordered, 0) << error << " " << nth;
      EXPECT_NE(text_.find("1 message was lost"), std::string::npos) << text_;
    }
  }
  stress::report(runs_, " failed writes, of each one line lost and reported");
}

TEST_F(NthWrite, CostsNothingWhenASignalInterruptsIt) {
  for (int nth = 1; nth <= lineCount; ++nth) {
    EXPECT_EQ(tallyOf(plain, nth, {Kind::fails, EINTR}).lost, 0) << nth;
    EXPECT_EQ(tallyOf(rolling, nth, {Kind::fails, EINTR}).lost, 0) << nth;
  }
  stress::report(runs_, " interrupted writes, nothing lost");
}

TEST_F(NthWrite, LeavesOneFragmentInThePlainFileWhenItIsShort) {
  for (int size = 1; size < fillerSize + 10; ++size) {
    const Tally tally = tallyOf(plain, 2, {Kind::isShort, size});
    EXPECT_EQ(tally.lost, 1) << size;
    EXPECT_EQ(tally.torn, 1) << size;
    EXPECT_EQ(tally.duplicated + tally.glued + tally.disordered, 0) << size << " " << text_;
  }
  stress::report(runs_, " short writes, each with one fragment on a line of its own");
}

TEST_F(NthWrite, GoesOnInTheRollingFileWhenItIsShort) {
  for (int size = 1; size < fillerSize + 10; ++size) {
    const Tally tally = tallyOf(rolling, 2, {Kind::isShort, size});
    EXPECT_EQ(tally.lost + tally.torn + tally.duplicated + tally.glued + tally.disordered, 0) << size << " " << tally;
  }
  stress::report(runs_, " short writes, nothing lost");
}

TEST_F(NthWrite, EndsTheRollingFileWithoutAFragmentWhenItFails) {
  for (const int error : {ENOSPC, EIO, EFBIG}) {
    for (int nth = 1; nth <= lineCount; ++nth) {
      const Tally tally = tallyOf(rolling, nth, {Kind::fails, error});
      EXPECT_EQ(tally.found, nth - 1) << error;
      EXPECT_EQ(tally.torn + tally.duplicated + tally.glued + tally.disordered, 0) << error << " " << nth;
    }
  }
  stress::report(runs_, " failed writes, after which the stream stays silent");
}

}  // namespace
