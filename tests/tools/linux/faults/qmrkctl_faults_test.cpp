// SPDX-License-Identifier: MIT
// Each fault of the page on faults is made for real, the library runs in it, and a command names it.
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#include <nlohmann/json.hpp>

#include "tests/support/private_events.h"
#include "tests/tools/linux/faults/fault_table.h"

namespace {

using nlohmann::json;
using testsupport::allFaults;
using testsupport::ChildResult;
using testsupport::Fault;
using testsupport::FaultInstallation;
using testsupport::NamedFault;

bool names(const json& _finding, const NamedFault& _named) {
  return _finding["code"] == _named.code && _finding.value("file", "").ends_with(_named.file) &&
         _finding.value("line", 0) == _named.line &&
         _finding["fix"].get<std::string>().find(_named.fix) != std::string::npos &&
         !_finding["effect"].get<std::string>().empty();
}

class QmrkctlFaults : public ::testing::TestWithParam<std::size_t> {
 protected:
  // A command that looks at running applications sees those of the test alone.
  static void SetUpTestSuite() {
    testsupport::usePrivateProcesses();
    testsupport::usePrivateEvents();
  }

  const Fault fault_ = allFaults().at(GetParam());
  FaultInstallation installation_;
};

TEST_P(QmrkctlFaults, HaveTheReportedPlaceFixAndEffect) {
  fault_.make(installation_);
  // First, since the library repairs some of them.
  std::vector<std::string> command = fault_.command;
  command.emplace_back("--json");
  const ChildResult told = installation_.qmrkctl(command);
  EXPECT_EQ(told.exitCode, 1) << fault_.what << "\n" << told.output << told.errors;
  const json findings = json::parse(told.output).at("findings");
  EXPECT_TRUE(std::any_of(findings.begin(), findings.end(),
                          [this](const json& _finding) { return names(_finding, fault_.named); }))
      << fault_.what << " (" << fault_.named.code << ")\n"
      << findings.dump(2);

  const ChildResult logged = installation_.logTest(fault_.arguments);
  EXPECT_EQ(logged.exitCode, fault_.effect.setsUp ? 0 : 1) << fault_.what << "\n" << logged.output << logged.errors;
  if (fault_.effect.setsUp || fault_.arguments.empty()) {
    EXPECT_EQ(FaultInstallation::classesIn(installation_.log()), fault_.effect.logged) << fault_.what;
  }
  if (fault_.proves) {
    EXPECT_TRUE(fault_.proves(installation_)) << fault_.what;
  }
}

INSTANTIATE_TEST_SUITE_P(OfTheTable, QmrkctlFaults, testing::Range(std::size_t{0}, allFaults().size()));

TEST(QmrkctlFaultsPage, HasTheTableOfTheTests) {
  std::vector<std::string> expected;
  for (const Fault& fault : allFaults()) {
    expected.push_back("| " + fault.what + " | " + fault.does + " | " + fault.named.code + " | `qmrkctl " +
                       fault.command.front() + "` |");
  }
  std::vector<std::string> rows;
  std::istringstream page(testsupport::readFile(QMRK_FAULTS_PAGE));
  for (std::string line; std::getline(page, line);) {
    const bool isRow = line.starts_with("| ") && line.find(" | Q") != std::string::npos;
    if (isRow) rows.push_back(line);
  }
  // For who renews the page.
  if (rows != expected) {
    std::ofstream received("faults.received");
    for (const std::string& row : expected)
      received << row << "\n";
  }
  EXPECT_EQ(rows, expected) << "the rows of the tests are in faults.received";
  EXPECT_GE(rows.size(), 40U);
}

// ---- Sound installations ----

void expectNoFinding(const FaultInstallation& _installation) {
  const ChildResult told = _installation.qmrkctl({"check", "--all"});
  EXPECT_EQ(told.exitCode, 0) << told.output << told.errors;
  EXPECT_EQ(_installation.logTest({}).exitCode, 0);
  const ChildResult again = _installation.qmrkctl({"check", "--all"});
  EXPECT_EQ(again.exitCode, 0) << again.output << again.errors;
}

TEST(QmrkctlSoundInstallation, HasNoFindingForOneCa) { expectNoFinding(FaultInstallation()); }

TEST(QmrkctlSoundInstallation, HasNoFindingForTheExamples) {
  const FaultInstallation installation;
  const std::string examples = QMRK_EXAMPLES;
  installation.cfg(testsupport::readFile(examples + "/qmrk_logging_CA12.cfg"));
  installation.generic(testsupport::readFile(examples + "/qmrk_logging_GE.cfg"));
  installation.init(testsupport::readFile(examples + "/qmrk_logging_CA12.init"));
  expectNoFinding(installation);
}

TEST(QmrkctlSoundInstallation, HasNoFindingForTwoCasWithCrLfCommentsAndAnotherUser) {
  FaultInstallation installation;
  installation.cfg(testsupport::replaced("# the plant = main hall\n\n" + installation.cfgText(), "\n", "\r\n"));
  installation.init("Demo.*;\r\n*.error;\r\n");
  installation.sandbox().writeCfg("CA13",
                                  "LOG_STATE=true   # on\nCOMMON_LOG_FILE_NAME:common.log\n"
                                  "COMMON_LOG_FILE_FILTER=*;\n// the end");
  installation.sandbox().writeInit("CA13", "*");
  installation.runAs(65534);
  expectNoFinding(installation);
}

}  // namespace
