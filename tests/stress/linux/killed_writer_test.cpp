// SPDX-License-Identifier: MIT
// Writers are killed at any moment, alone or beside others that go on.
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <limits>

#include "tests/stress/linux/scale.h"
#include "tests/stress/linux/writers.h"

namespace {

using stress::Oracle;
using stress::Tally;
using stress::Way;

constexpr int endless = std::numeric_limits<int>::max();

class KilledWriter : public stress::Writers {
 protected:
  /// Starts a writer of its own number for each kill, lets it log some lines and kills it.
  void killWriters(Way _way, Oracle& _oracle, std::uint32_t _firstWriter, int _kills) const {
    for (int kill = 0; kill < _kills; ++kill) {
      const std::uint32_t writer = _firstWriter + static_cast<std::uint32_t>(kill);
      const pid_t process = start(_way, [&_oracle, writer] { logLines(_oracle, writer, endless, 64 * 1024); });
      // Some sooner, some later, and at any place in a line.
      const std::int64_t lines = 1 + kill * 37 % 400;
      EXPECT_TRUE(stress::comesTrue([&_oracle, writer, lines] { return _oracle.acknowledged(writer) >= lines; }));
      ::kill(process, SIGKILL);
      int status = 0;
      EXPECT_EQ(::waitpid(process, &status, 0), process);
      EXPECT_TRUE(WIFSIGNALED(status)) << "the writer had ended";
    }
  }
};

TEST_F(KilledWriter, LosesNoReturnedStatement) {
  const int kills = stress::scaled(30);
  Oracle oracle(static_cast<std::uint32_t>(kills) + 1);
  killWriters(Way::commonLog, oracle, 0, kills);
  // Who opens the file afterwards ends the fragment that the last one may have left.
  const auto last = static_cast<std::uint32_t>(kills);
  stress::expectNormalEnds({start(Way::commonLog, [&oracle, last] { logLines(oracle, last, 1, 10); })});
  const Tally tally = oracle.check(text(Way::commonLog));
  EXPECT_EQ(tally.lost + tally.duplicated + tally.glued + tally.disordered, 0) << tally;
  EXPECT_LE(tally.torn, kills);
  stress::report(kills, " kills: ", tally);
}

TEST_F(KilledWriter, LosesNoStatementOfItsOwnOrOfSurvivors) {
  constexpr std::uint32_t survivorCount = 2;
  const int kills = stress::scaled(30);
  Oracle oracle(static_cast<std::uint32_t>(kills) + survivorCount);
  std::vector<pid_t> survivors;
  for (std::uint32_t survivor = 0; survivor < survivorCount; ++survivor) {
    survivors.push_back(
        start(Way::commonLog, [&oracle, survivor] { logLines(oracle, survivor, stress::scaled(2500), 64 * 1024); }));
  }
  killWriters(Way::commonLog, oracle, survivorCount, kills);
  stress::expectNormalEnds(survivors);
  const Tally tally = oracle.check(text(Way::commonLog));
  EXPECT_EQ(tally.lost + tally.duplicated + tally.disordered, 0) << tally;
  // A survivor's line may stand behind the fragment of a killed process.
  EXPECT_LE(tally.torn, kills);
  EXPECT_LE(tally.glued, tally.torn);
  stress::report(kills, " kills beside ", survivorCount, " survivors: ", tally);
}

TEST_F(KilledWriter, LeavesNoMoreThanOneFragmentInThreadSafeMode) {
  const int kills = stress::scaled(20);
  Oracle oracle(static_cast<std::uint32_t>(kills));
  killWriters(Way::threadSafe, oracle, 0, kills);
  const Tally tally = oracle.check(text(Way::threadSafe));
  EXPECT_EQ(tally.duplicated + tally.glued + tally.disordered, 0) << tally;
  EXPECT_LE(tally.torn, kills);
  stress::report(kills, " kills (what was queued is lost with the process): ", tally);
}

TEST_F(KilledWriter, LosesNothingOfARollingFile) {
  // As many as the files hold that are kept, however late the writer is killed.
  constexpr int mostLines = 3000;
  const int kills = stress::scaled(30);
  Tally sum;
  for (int kill = 0; kill < kills; ++kill) {
    testsupport::removeAll(sandbox_.logFolder());
    Oracle oracle(1);
    const pid_t process = start(Way::rollingFile, [&oracle] {
      logLines(oracle, 0, mostLines, 1000);
      ::pause();
    });
    EXPECT_TRUE(stress::comesTrue([&oracle, kill] { return oracle.acknowledged(0) >= 20 + kill * 37 % 400; }));
    ::kill(process, SIGKILL);
    ::waitpid(process, nullptr, 0);
    const Tally tally = oracle.check(text(Way::rollingFile));
    EXPECT_EQ(tally.lost + tally.duplicated + tally.glued + tally.disordered, 0) << tally;
    EXPECT_LE(tally.torn, 1);
    sum.written += tally.written;
    sum.found += tally.found;
    sum.lost += tally.lost;
    sum.torn += tally.torn;
  }
  stress::report(kills, " kills: ", sum);
}

}  // namespace
