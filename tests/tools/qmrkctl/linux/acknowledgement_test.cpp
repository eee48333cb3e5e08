// SPDX-License-Identifier: MIT
#include "tools/qmrkctl/acknowledgement.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <fstream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "diagnostics/status_page_layout.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/linux/shared_memory_mount.h"
#include "tests/support/private_events.h"
#include "tests/tools/qmrkctl/linux/sleeping_listener.h"

namespace {

using namespace qmrkctl;
using std::chrono::milliseconds;
using testsupport::SleepingListener;

constexpr char eventName[] = "QMRK_LOG_EVENT";

// What this process has read so far, in bytes.
std::uint64_t bytesRead() {
  std::ifstream file("/proc/self/io");
  std::string name;
  std::uint64_t bytes = 0;
  file >> name >> bytes;
  EXPECT_EQ(name, "rchar:");
  return bytes;
}

class WaitForAnswers : public ::testing::Test {
 protected:
  void SetUp() override {
    testsupport::usePrivateProcesses();
    testsupport::mountSharedMemory("");
  }
  void TearDown() override { testsupport::unmountSharedMemory(); }

  // They show a page, and never answer.
  static std::vector<std::unique_ptr<SleepingListener>> silentListeners(int _number) {
    SleepingListener::Settings settings;
    settings.applications = {"Silent"};
    std::vector<std::unique_ptr<SleepingListener>> listeners;
    for (int i = 0; i < _number; ++i)
      listeners.push_back(std::make_unique<SleepingListener>(settings));
    return listeners;
  }

  static Acknowledgement signalAll(std::optional<std::uint64_t> _hash, milliseconds _wait) {
    std::vector<Addressee> addressees;
    std::vector<toolsystem::ProcessFacts> facts;
    for (const RunningProcess& process : runningProcesses({}).found) {
      addressees.push_back({process, _hash});
      facts.push_back(process.facts);
    }
    return signalAndAwait(toolsystem::eventPlaces(facts, {}), eventName, addressees, _wait);
  }
};

// Who reads whole pages while nothing happens takes the processor from those who are to answer.
TEST_F(WaitForAnswers, ReadsHardlyAnythingWhileNobodyAnswers) {
  constexpr int number = 10;
  constexpr milliseconds wait(300);
  constexpr milliseconds betweenWholeLooks(30);
  const auto listeners = silentListeners(number);
  const std::uint64_t before = bytesRead();
  const Acknowledgement result = signalAll(1, wait);
  const std::uint64_t read = bytesRead() - before;
  ASSERT_EQ(result.answers.size(), static_cast<std::size_t>(number));
  for (const Answer& answer : result.answers)
    EXPECT_EQ(answer.outcome, Outcome::silent);
  constexpr std::uint64_t wholeLooks = wait / betweenWholeLooks + 2;
  constexpr std::uint64_t factsOfAProcess = 64 * 1024;
  EXPECT_LT(read, number * (wholeLooks + 1) * (Quillmark_logging::status::pageSize + factsOfAProcess));
}

// The folder of pages can be removed; the next writing makes it again.
TEST_F(WaitForAnswers, SeesTheAnswerOnAPageThatWasMadeAgain) {
  const testsupport::ConfigSandbox sandbox;
  SleepingListener::Settings settings;
  settings.applications = {"Pump"};
  settings.listPath = sandbox.initPath("CA12");
  settings.replacesPage = true;
  sandbox.writeInit("CA12", "Demo.App;\n");
  const SleepingListener listener(settings);
  const Acknowledgement result = signalAll(std::nullopt, milliseconds(60'000));
  ASSERT_EQ(result.answers.size(), 1U);
  EXPECT_EQ(result.answers[0].outcome, Outcome::applied);
}

}  // namespace
