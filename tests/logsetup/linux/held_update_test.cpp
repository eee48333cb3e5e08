// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <functional>
#include <string>
#include <thread>

#include "quillmark_logging.h"
#include "tests/logsetup/log_setup.h"
#include "tests/support/temporary_folder.h"

namespace {

using namespace Quillmark_logging;

/// A console in which no more than some fifty lines fit: the one who traces waits for the one who reads.
class NarrowConsole {
 public:
  NarrowConsole() : former_(dup(STDERR_FILENO)) {
    int ends[2];
    EXPECT_EQ(pipe(ends), 0);
    EXPECT_GT(fcntl(ends[1], F_SETPIPE_SZ, 4096), 0);
    read_ = ends[0];
    dup2(ends[1], STDERR_FILENO);
    close(ends[1]);
  }
  ~NarrowConsole() {
    giveBack();
    close(read_);
  }
  NarrowConsole(const NarrowConsole&) = delete;
  NarrowConsole& operator=(const NarrowConsole&) = delete;

  /// Calls the function for each line until giveBack() was called and all is read.
  void forEachLine(const std::function<void(const std::string&)>& _lineFound) const {
    std::string line;
    for (char character = 0; ::read(read_, &character, 1) == 1;) {
      line += character;
      if (character != '\n') continue;
      _lineFound(line);
      line.clear();
    }
  }

  /// Closes the end that is written to.
  void giveBack() {
    if (former_ < 0) return;
    dup2(former_, STDERR_FILENO);
    close(former_);
    former_ = -1;
  }

 private:
  int former_;
  int read_ = -1;
};

class HeldUpdate : public testsupport::LogSetup {
 protected:
  static constexpr int classCount = 400;

  HeldUpdate() {
    std::string others;
    for (int i = 0; i < classCount; ++i)
      others += "Other.class.number." + std::to_string(i) + ";";
    sandbox_.writeCfg("CA12",
                      "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\nCOMMON_LOG_FILE_FILTER=" + others + "Held;\n");
    sandbox_.writeInit("CA12", others + "Held;");
  }

  /// Makes the call in another thread with its trace, and logs a line with every traced line that is read.
  /// @return how many there were.
  static int logWithEachLine(const std::function<bool()>& _call) {
    const boost::logging::logger log("Held.log");
    NarrowConsole console;
    setFreeFunctionTrace(true);
    std::thread caller([&] {
      EXPECT_TRUE(_call());
      setFreeFunctionTrace(false);
      console.giveBack();
    });
    int lines = 0;
    console.forEachLine([&](const std::string&) {
      EXPECT_TRUE(log.is_enabled());
      QMRK_LOG(log) << "line " << lines++;
    });
    caller.join();
    return lines;
  }

  void expectLinesInTheFile(int _count) const {
    const std::string text = testsupport::readFile(sandbox_.logFolder() + "\\common.log");
    std::string::size_type place = 0;
    for (int i = 0; i < _count; ++i) {
      place = text.find(" line " + std::to_string(i) + "\n", place);
      ASSERT_NE(place, std::string::npos) << i << " of " << _count;
    }
  }
};

TEST_F(HeldUpdate, KeepsAClassOnWhereverItStops) {
  ASSERT_TRUE(initDefaultLogs("App", "CA12", false));
  const int lines = logWithEachLine([] { return updateLogLevels("CA12"); });
  EXPECT_GT(lines, classCount);
  expectLinesInTheFile(lines);
}

TEST_F(HeldUpdate, KeepsAClassConnectedWhereverASecondSetUpStops) {
  ASSERT_TRUE(initDefaultLogs("App", "CA12", false));
  const int lines = logWithEachLine([] { return initDefaultLogs("App", "CA12", false); });
  EXPECT_GT(lines, 2 * classCount);
  expectLinesInTheFile(lines);
}

}  // namespace
