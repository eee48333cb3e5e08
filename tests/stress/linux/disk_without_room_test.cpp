// SPDX-License-Identifier: MIT
// The file system of the logs gets full while processes write, and has room again.
#include <boost/logging/file_states.hpp>
#include <regex>

#include "platform/native_path.h"
#include "tests/stress/linux/scale.h"
#include "tests/stress/linux/scarce_space.h"
#include "tests/stress/linux/writers.h"

namespace {

using stress::Oracle;
using stress::Tally;
using stress::Way;

/// How many messages the text says were lost.
std::int64_t reportedLost(const std::string& _text) {
  static const std::regex report("\n(\\d+) messages? w(?:as|ere) lost");
  std::int64_t lost = 0;
  const std::sregex_iterator end;
  for (auto match = std::sregex_iterator(_text.begin(), _text.end(), report); match != end; ++match)
    lost += std::stoll((*match)[1]);
  return lost;
}

/// Whether this process has lost messages, by its own count.
bool hasLostMessages() {
  bool isAny = false;
  boost::logging::list_files([&isAny](const boost::logging::file_state& _file) { isAny = isAny || _file.lost > 0; });
  return isAny;
}

class DiskWithoutRoom : public stress::Writers {
 protected:
  /// A process writes until the space is gone and longer, then there is room, and it writes until the file tells how
  /// many messages were lost.
  void writeThroughADiskWithoutRoom(Way _way) const {
    const stress::ScarceSpace space(platform::nativePath(sandbox_.logFolder()));
    std::int64_t written = 0;
    std::int64_t lost = 0;
    for (int round = 0; round < stress::scaled(6); ++round) {
      space.fill();
      Oracle oracle(1);
      stress::expectNormalEnds({start(_way, [&] {
        logLines(oracle, 0, 700 + round * 13, 1500);
        // The writer thread may be far behind. A file that is nearly full says nothing of a message that met its end.
        if (_way == Way::threadSafe && !stress::comesTrue(hasLostMessages)) std::abort();
        space.makeRoom();
        const bool isReported = stress::comesTrue([&] {
          logLines(oracle, 0, 1, 20);
          return reportedLost(text(_way)) > 0;
        });
        if (!isReported) std::abort();
      })});
      const std::string text = this->text(_way);
      const Tally tally = oracle.check(text);
      EXPECT_GT(reportedLost(text), 0);
      EXPECT_EQ(tally.found + reportedLost(text), tally.written) << tally << ", reported lost " << reportedLost(text);
      EXPECT_EQ(tally.duplicated + tally.glued + tally.disordered, 0) << tally;
      EXPECT_LE(tally.torn, 1);
      written += tally.written;
      lost += reportedLost(text);
      testsupport::removeAll(path(_way));
    }
    stress::report(written, " written, ", lost, " lost, each of them counted in the file, on a ", space.kind());
  }
};

TEST_F(DiskWithoutRoom, CostsOnlyWhatTheFileReports) { writeThroughADiskWithoutRoom(Way::commonLog); }

TEST_F(DiskWithoutRoom, CostsOnlyWhatTheFileReportsInThreadSafeMode) { writeThroughADiskWithoutRoom(Way::threadSafe); }

TEST_F(DiskWithoutRoom, CostsOnlyWhatTheApplicationFileReports) { writeThroughADiskWithoutRoom(Way::applicationFile); }

// The stream of the rolling file stays failed, silently, until the next set-up.
TEST_F(DiskWithoutRoom, EndsTheRollingFileUntilTheNextSetUp) {
  const stress::ScarceSpace space(platform::nativePath(sandbox_.logFolder()));
  Oracle oracle(2);
  stress::expectNormalEnds({start(Way::rollingFile, [&] {
    logLines(oracle, 0, 1000, 1500);
    space.makeRoom();
    if (!setUp(Way::rollingFile)) std::abort();
    logLines(oracle, 1, 100, 1500);
  })});
  const Tally tally = oracle.check(text(Way::rollingFile));
  EXPECT_LT(stress::countLinesOf(0, text(Way::rollingFile)), 1000);
  EXPECT_EQ(stress::countLinesOf(1, text(Way::rollingFile)), 100);
  EXPECT_EQ(tally.duplicated + tally.disordered, 0) << tally;
  EXPECT_LE(tally.torn, 1);
  EXPECT_LE(tally.glued, 1);
  stress::report(tally, ", on a ", space.kind());
}

}  // namespace
