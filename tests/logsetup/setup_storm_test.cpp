// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <functional>
#include <numeric>
#include <sstream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "logsetup/ts_mode.h"
#include "quillmark_logging.h"
#include "tests/logsetup/log_setup.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/text_pattern.h"

namespace {

using namespace Quillmark_logging;

/// Threads log to classes that stay on and connected, while set-ups and updates come one after the other. There are so
/// many other classes and logs that each of them takes its time.
class SetupStorm : public testsupport::LogSetup, public testing::WithParamInterface<bool> {
 protected:
  static constexpr int threadCount = 2;
  static constexpr int linesPerRound = 10000;
  static constexpr int linesBetweenRounds = 10;

  SetupStorm() {
    std::string others;
    for (int i = 0; i < 300; ++i) {
      const std::string name = "Other" + std::to_string(i);
      boost::logging::logger(name + ".info");
      others += name + (i % 2 == 0 ? ";" : ".*.info;");
    }
    sandbox_.writeCfg("CA12", "LOG_STATE=TRUE\nCOMMON_LOG_FILE_NAME=common.log\nCOMMON_LOG_FILE_FILTER=" + others +
                                  "Storm.plain;Storm.*.info;\n");
    sandbox_.writeInit("CA12", others + "Storm;Storm.*;");
    setTsMode(GetParam());
  }

  /// A thread that logs, and how far it may go.
  struct Writer {
    std::atomic<int> lines{0};
    std::atomic<int> mostLines{0};
    std::thread thread;
  };

  static void write(int _number, Writer& _writer, const std::atomic<bool>& _isOver) {
    const boost::logging::logger log(logName(_number));
    for (int line = 0; !_isOver; line = ++_writer.lines) {
      while (line >= _writer.mostLines && !_isOver)
        std::this_thread::yield();
      QMRK_LOG(log) << "thread " << _number << " line " << line;
      if (line % 16 == 0) std::this_thread::yield();
    }
  }

  /// Lets the threads log while the function is called so many times. After each call each of them gets some lines
  /// further; they pause when they have logged far more meanwhile than a writer thread that starves may hold.
  /// @return how many lines each of them has logged.
  static std::vector<int> logDuring(int _rounds, const std::function<void()>& _function) {
    std::atomic<bool> isOver{false};
    std::vector<Writer> writers(threadCount);
    for (int i = 0; i < threadCount; ++i) {
      Writer& writer = writers[static_cast<std::size_t>(i)];
      writer.thread = std::thread([i, &writer, &isOver] { write(i, writer, isOver); });
    }
    for (int round = 0; round < _rounds; ++round) {
      for (Writer& writer : writers)
        writer.mostLines = writer.lines + linesPerRound;
      _function();
      for (Writer& writer : writers)
        writer.mostLines = writer.lines + linesBetweenRounds;
      for (const Writer& writer : writers) {
        while (writer.lines < writer.mostLines)
          std::this_thread::yield();
      }
    }
    isOver = true;
    std::vector<int> counts;
    for (Writer& writer : writers) {
      writer.thread.join();
      counts.push_back(writer.lines);
    }
    return counts;
  }

  static std::string logName(int _thread) {
    return _thread == 0 ? "Storm.plain" : "Storm." + std::to_string(_thread) + ".info";
  }

  static int countLines(const std::string& _text) {
    int count = 0;
    for (std::size_t at = 0; (at = _text.find(" line ", at)) != std::string::npos; ++at)
      ++count;
    return count;
  }

  /// The file, once it has so many lines of the threads or has not grown for long. In thread-safe mode a disconnected
  /// writer delivers its last ones when it gets a processor.
  std::string fileWith(int _lines) const {
    const std::string path = sandbox_.logFolder() + "\\common.log";
    std::string text = testsupport::readFile(path);
    for (int still = 0; countLines(text) < _lines && still < 1000; ++still) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
      std::string later = testsupport::readFile(path);
      if (later.size() != text.size()) still = 0;
      text = std::move(later);
    }
    return text;
  }

  /// Disconnects everything, and compares the file with what was logged.
  void expectAllLines(const std::vector<int>& _counts) const {
    deleteAppender("*", APPENDER_WRITE2FILE_INIT);
    std::istringstream file(fileWith(std::accumulate(_counts.begin(), _counts.end(), 0)));
    const testsupport::TextPattern form(R"(\[(Storm\.\S+)\] \d{8} \d\d:\d\d:\d\d thread (\d) line (\d+)\r?)");
    std::vector<std::vector<int>> found(threadCount);
    int malformed = 0;
    std::vector<std::string> parts;
    for (std::string line; std::getline(file, line);) {
      if (line.find("thread") == std::string::npos && line.find("Storm") == std::string::npos) continue;
      if (form.matches(line, parts) && parts[0] == logName(std::stoi(parts[1]))) {
        found[std::stoul(parts[1])].push_back(std::stoi(parts[2]));
      } else {
        ++malformed;
      }
    }
    EXPECT_EQ(malformed, 0);
    for (int i = 0; i < threadCount; ++i) {
      std::vector<int>& lines = found[static_cast<std::size_t>(i)];
      // In thread-safe mode the last lines of a writer may come after the first ones of its successor.
      std::ranges::sort(lines);
      int expected = 0;
      for (const int line : lines)
        expected += line == expected ? 1 : 0;
      EXPECT_EQ(static_cast<int>(lines.size()), _counts[static_cast<std::size_t>(i)]);
      EXPECT_EQ(expected, _counts[static_cast<std::size_t>(i)]);
      EXPECT_GT(expected, 0);
    }
  }
};

TEST_P(SetupStorm, LosesNoLineOfAClassThatStaysOnDuringUpdates) {
  ASSERT_TRUE(initDefaultLogs("App", "CA12", false));
  expectAllLines(logDuring(30, [] { EXPECT_TRUE(updateLogLevels("CA12")); }));
}

TEST_P(SetupStorm, LosesNoLineDuringSecondSetUps) {
  ASSERT_TRUE(initDefaultLogs("App", "CA12", false));
  expectAllLines(logDuring(10, [] { EXPECT_TRUE(initDefaultLogs("App", "CA12", false)); }));
}

INSTANTIATE_TEST_SUITE_P(Modes, SetupStorm, testing::Bool(),
                         [](const auto& _info) { return _info.param ? "ThreadSafe" : "Plain"; });

}  // namespace
