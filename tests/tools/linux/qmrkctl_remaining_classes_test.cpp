// SPDX-License-Identifier: MIT
// What is said about classes that stay on, and about those that go off by themselves.
#include "tests/tools/linux/qmrkctl_on_sandbox.h"

namespace {

using testsupport::ChildResult;
using testsupport::Json;
using testsupport::SleepingListener;

class QmrkctlRemainingClasses : public testsupport::QmrkctlOnSandbox {
 protected:
  /// Lets the only lease end now.
  void endLease() const {
    Json leases = Json::parse(testsupport::readFile(beside("lease")));
    ASSERT_EQ(leases["leases"].size(), 1U);
    leases["leases"][0]["untilUptime"] = 1;
    testsupport::writeFile(beside("lease"), leases.dump());
  }
};

TEST_F(QmrkctlRemainingClasses, SaysWhatKeepsAClassOnThatIsSwitchedOff) {
  const ChildResult covered = qmrkctl({"classes", "disable", "Demo.App.info", "Demo.Net.error", "Nope"});
  EXPECT_EQ(covered.exitCode, 1) << covered.output;
  EXPECT_EQ(covered.errors,
            "qmrkctl: Demo.App.info stays on: Demo.App selects it\nqmrkctl: Nope is not in the class list\n");
  EXPECT_EQ(list(), "Demo.App;\n");
  const ChildResult missing = qmrkctl({"classes", "disable", "*"});
  EXPECT_EQ(missing.exitCode, 0) << missing.output;
  EXPECT_EQ(missing.errors, "qmrkctl: * is not in the class list\n");
  EXPECT_EQ(qmrkctl({"classes", "disable", "Demo.App"}).errors, "");
}

TEST_F(QmrkctlRemainingClasses, SaysWhatKeepsAClassOnAfterItsTime) {
  const std::string line = "but Demo.App.info stays on: Demo.App selects it\n";
  EXPECT_TRUE(contains(qmrkctl({"classes", "enable", "Demo.App.info", "--for", "1h"}).output, line));
  EXPECT_FALSE(contains(qmrkctl({"classes", "only", "Demo.Net", "Demo.Net.info", "--for", "1h"}).output, "stays on"))
      << "both end then";
  EXPECT_TRUE(contains(qmrkctl({"classes", "enable", "Demo.Net.extra", "--for", "1m"}).output,
                       "but Demo.Net.extra stays on: Demo.Net selects it\n"))
      << "a lease that lasts longer";
}

TEST_F(QmrkctlRemainingClasses, ReportsWhatASweepEndedAndWhoAppliedIt) {
  const SleepingListener pump(follower("Pump"));
  EXPECT_EQ(qmrkctl({"classes", "enable", "Demo.Net", "--for", "1h", "--wait", "60s"}).exitCode, 0);
  endLease();
  const Json swept = json({"leases", "sweep", "--wait", "60s"})["result"]["swept"];
  ASSERT_EQ(swept.size(), 1U);
  EXPECT_EQ(swept[0]["ended"], Json({"Demo.Net"}));
  EXPECT_EQ(swept[0]["answers"][0]["outcome"], "applied") << swept;
  const std::string history = qmrkctl({"history", "-n", "1"}).output;
  EXPECT_TRUE(contains(history, "sweep -Demo.Net, applied by 1 of 1: its time is over\n")) << history;
}

TEST_F(QmrkctlRemainingClasses, RecordsNoAnswersOfASweepInPassing) {
  const SleepingListener pump(follower("Pump"));
  EXPECT_EQ(qmrkctl({"classes", "enable", "Demo.Net", "--for", "1h", "--wait", "60s"}).exitCode, 0);
  endLease();
  const std::string history = qmrkctl({"history", "-n", "1"}).output;
  EXPECT_TRUE(contains(history, "sweep -Demo.Net: its time is over; nobody waited for answers\n")) << history;
}

}  // namespace
