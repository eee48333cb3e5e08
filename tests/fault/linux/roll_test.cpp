// SPDX-License-Identifier: MIT
// Each system call of a roll is refused, and the process is killed before and after each.
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <sys/wait.h>

#include <cerrno>
#include <csignal>
#include <set>
#include <string>

#include "logsetup/rolling_file_appender.h"
#include "tests/stress/linux/oracle.h"
#include "tests/stress/linux/scale.h"
#include "tests/support/linux/traced_child.h"
#include "tests/support/temporary_folder.h"

namespace {

using boost::logging::rolling_file_appender;
using stress::Oracle;
using stress::Tally;
using testsupport::CallFate;
using Kind = CallFate::Kind;

constexpr int maxSize = 300;
constexpr int backupCount = 6;

class Roll : public testing::Test {
 protected:
  static void logLines(rolling_file_appender& _appender, Oracle& _oracle, int _count) {
    for (int i = 0; i < _count; ++i) {
      _appender.write(_oracle.next(0, 80) + "\n");
      _oracle.acknowledge(0);
    }
  }

  /// Rolls with three backups in place; the last of the messages is the one whose calls are judged.
  static int rollAndGoOn(const std::string& _path, Oracle& _oracle) {
    rolling_file_appender appender(_path, maxSize, backupCount, nullptr, true);
    logLines(appender, _oracle, 11);
    const std::string last = _oracle.next(0, 80) + "\n";
    testsupport::markCalls();
    try {
      appender.write(last);
    } catch (const std::exception&) {
      // The line had been written before the file was to be moved.
    }
    testsupport::markCalls();
    _oracle.acknowledge(0);
    return 0;
  }

  /// The text of all files, the oldest first.
  static std::string allOf(const std::string& _path) {
    std::string text;
    for (int backup = backupCount; backup > 0; --backup) {
      const std::string name = _path + "." + std::to_string(backup);
      if (testsupport::exists(name)) text += testsupport::readFile(name);
    }
    return text + (testsupport::exists(_path) ? testsupport::readFile(_path) : "");
  }

  /// Lets fate strike the _nth call, and looks that nothing is lost that was acknowledged, nor when the next process
  /// goes on with the file.
  /// @return whether there was such a call; _fate is what happens to it.
  bool strike(int _nth, const CallFate& _fate) {
    const testsupport::TemporaryFolder folder;
    const std::string path = folder.file("log");
    Oracle oracle(1);
    int calls = 0;
    const int status = testsupport::runTraced([&path, &oracle] { return rollAndGoOn(path, oracle); },
                                              [&](long _call) {
                                                if (++calls == _nth) struck_.insert(_call);
                                                return calls == _nth ? _fate : CallFate();
                                              });
    const bool isKilled = _fate.kind == Kind::killsBefore || _fate.kind == Kind::killsAfter;
    const bool hasStruck = calls >= _nth;
    EXPECT_EQ(WIFSIGNALED(status) ? WTERMSIG(status) : 0, hasStruck && isKilled ? SIGKILL : 0) << _nth;
    rolling_file_appender next(path, maxSize, backupCount, nullptr, true);
    logLines(next, oracle, 6);
    const Tally tally = oracle.check(allOf(path));
    const bool mayLoseTheLast = hasStruck && _nth == 1;
    EXPECT_LE(tally.lost, mayLoseTheLast ? 1 : 0) << _nth << " " << tally;
    EXPECT_EQ(tally.torn + tally.duplicated + tally.glued + tally.disordered, 0) << _nth << " " << tally;
    return hasStruck;
  }

  int strikeAll(const CallFate& _fate) {
    int nth = 1;
    while (strike(nth, _fate))
      ++nth;
    return nth - 1;
  }

  std::set<long> struck_;
};

TEST_F(Roll, LosesNothingWhereverTheProcessIsKilled) {
  const int before = strikeAll({Kind::killsBefore, 0});
  const int after = strikeAll({Kind::killsAfter, 0});
  EXPECT_EQ(before, after);
  EXPECT_TRUE(struck_.contains(SYS_rename));
  stress::report(before + after, " kills, nothing acknowledged lost");
}

TEST_F(Roll, LosesNothingWrittenWhicheverCallFails) {
  int refused = 0;
  for (const int error : {EACCES, EROFS, ENOSPC, EIO})
    refused += strikeAll({Kind::fails, error});
  EXPECT_TRUE(struck_.contains(SYS_rename));
  stress::report(refused, " refused calls, nothing acknowledged lost");
}

}  // namespace
