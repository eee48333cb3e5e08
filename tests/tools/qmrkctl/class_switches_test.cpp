// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/class_switches.h"

#include <gtest/gtest.h>

namespace {

using namespace qmrkctl;

using Names = std::vector<std::string>;

ClassStatus applied(const std::string& _list, const std::vector<LogState>& _logs) {
  ClassStatus status;
  status.text.text = _list;
  status.logs = _logs;
  return status;
}

TEST(ClassSwitches, AreTheLogsWhoseStateDiffers) {
  const ClassSwitches switches = switchesBetween(applied("A;B;", {{"A", true}, {"B", true}, {"C", false}}),
                                                 applied("A;C;", {{"A", true}, {"B", false}, {"C", true}}));
  EXPECT_EQ(switches.on, Names{"C"});
  EXPECT_EQ(switches.off, Names{"B"});
}

// The page of a process that has just been set up knows none of its logs yet.
TEST(ClassSwitches, LeaveOutWhatTheFormerListGaveALogThatIsNew) {
  const ClassSwitches switches = switchesBetween(
      applied("App;Gone;", {}),
      applied("App;Net.info;", {{"App.info", true}, {"Gone.error", false}, {"Net.error", false}, {"Net.info", true}}));
  EXPECT_EQ(switches.on, Names{"Net.info"});
  EXPECT_EQ(switches.off, Names{"Gone.error"});
}

}  // namespace
