// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <random>
#include <string>
#include <vector>

#include "platform/named_event.h"
#include "tests/support/companion_process.h"
#include "tests/support/private_events.h"
#include "tests/support/running_system.h"

namespace {

using namespace platform;
using testsupport::CompanionProcess;
using testsupport::rounds;

constexpr char sharedEvent[] = "QMRK_EVENT_TEST";
const std::string createIt = std::string("create ") + sharedEvent;

class EventBetweenProcesses : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { testsupport::usePrivateEvents(); }

  static std::vector<CompanionProcess> actors(int _number) {
    std::vector<CompanionProcess> started;
    for (int actor = 0; actor < _number; ++actor) {
      started.emplace_back(std::vector<std::string>{QMRK_EVENT_ACTOR});
    }
    return started;
  }

  static CompanionProcess actor() { return CompanionProcess({QMRK_EVENT_ACTOR}); }
};

TEST_F(EventBetweenProcesses, LetsTheFirstCreateAndTheSecondOpen) {
  CompanionProcess first = actor();
  CompanionProcess second = actor();
  EXPECT_EQ(first.ask(createIt), "created");
  EXPECT_EQ(second.ask(createIt), "existing");
}

TEST_F(EventBetweenProcesses, WakesAWaiterInAnotherProcess) {
  CompanionProcess waiter = actor();
  ASSERT_EQ(waiter.ask(createIt), "created");
  waiter.send("wait 30000");
  ASSERT_TRUE(waiter.waitUntilAsleep());
  const Handle event = openEvent(sharedEvent);
  EXPECT_TRUE(setEvent(event));
  EXPECT_EQ(waiter.readLine(), "0");
  EXPECT_EQ(waiter.ask("reset"), "true");
  EXPECT_EQ(waitForEvent(event, 0), waitTimeout);
  EXPECT_TRUE(closeHandle(event));
}

TEST_F(EventBetweenProcesses, KeepsItsStateWhileAnyProcessHoldsIt) {
  CompanionProcess first = actor();
  ASSERT_EQ(first.ask(createIt), "created");
  ASSERT_EQ(first.ask("set"), "true");
  CompanionProcess second = actor();
  ASSERT_EQ(second.ask(createIt), "existing");
  first.kill();
  CompanionProcess third = actor();
  EXPECT_EQ(third.ask(createIt), "existing");
  EXPECT_EQ(third.ask("wait 0"), "0");
}

TEST_F(EventBetweenProcesses, DisappearsWhenAllItsUsersAreKilled) {
  auto users = actors(4);
  for (CompanionProcess& user : users) {
    const std::string origin = user.ask(createIt);
    ASSERT_TRUE(origin == "created" || origin == "existing") << origin;
    ASSERT_EQ(user.ask("set"), "true");
  }
  for (CompanionProcess& user : users) {
    user.kill();
  }
  const Handle event = createEvent(sharedEvent);
  EXPECT_EQ(lastError(), noError);
  EXPECT_EQ(waitForEvent(event, 0), waitTimeout);
  EXPECT_TRUE(closeHandle(event));
}

TEST_F(EventBetweenProcesses, CannotBeOpenedAfterItsOnlyUserIsKilled) {
  CompanionProcess user = actor();
  ASSERT_EQ(user.ask(createIt), "created");
  user.kill();
  EXPECT_EQ(openEvent(sharedEvent), nullptr);
  EXPECT_EQ(lastError(), errorFileNotFound);
}

// Each round, all of them create it at one moment. A round tells nothing in which one of them got no processor for so
// long that the others need not have waited for it.
TEST_F(EventBetweenProcesses, LetsExactlyOneOfEightCreateItInTwoThousandRaces) {
  auto racers = actors(8);
  int lateRounds = 0;
  for (int round = 0; round < rounds(2000); ++round) {
    const auto moment = std::chrono::steady_clock::now() + std::chrono::microseconds(300);
    const std::string command = std::string("createAt ") + sharedEvent + " " +
                                std::to_string(std::chrono::nanoseconds(moment.time_since_epoch()).count());
    std::vector<std::string> answers;
    for (CompanionProcess& racer : racers) {
      racer.send(command);
    }
    for (CompanionProcess& racer : racers) {
      answers.push_back(racer.readLine());
    }
    if (std::any_of(answers.begin(), answers.end(), [](const auto& _answer) { return _answer.ends_with(" late"); })) {
      ++lateRounds;
    } else {
      ASSERT_EQ(std::count(answers.begin(), answers.end(), "created"), 1) << "round " << round;
      ASSERT_EQ(std::count(answers.begin(), answers.end(), "existing"), 7) << "round " << round;
    }
    for (CompanionProcess& racer : racers) {
      ASSERT_EQ(racer.ask("close"), "true");
    }
  }
  EXPECT_LT(lateRounds, rounds(2000));
}

// The waiters sleep when the event is set, so each setting must let all of them through, though it is reset before any
// of them can look. A busy machine takes long for a round: then fewer are enough.
TEST_F(EventBetweenProcesses, WakesAllOfFourWaitersEvenIfResetAtOnce) {
  if (testsupport::cannotRunUnderWine("Wine does not tell whether a thread of another process waits")) return;
  const Handle event = createEvent(sharedEvent);
  auto waiters = actors(4);
  for (CompanionProcess& waiter : waiters) {
    ASSERT_EQ(waiter.ask(createIt), "existing");
    waiter.send("waitLoop");
  }
  const auto enough = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  for (int round = 0; round < 100 || (round < rounds(20'000) && std::chrono::steady_clock::now() < enough); ++round) {
    for (CompanionProcess& waiter : waiters) {
      ASSERT_TRUE(waiter.waitUntilAsleep());
      // One that was woken before the reset has found the event set a second time.
      while (waiter.readLine(0) == "woken") {
      }
    }
    setEvent(event);
    resetEvent(event);
    for (CompanionProcess& waiter : waiters) {
      ASSERT_EQ(waiter.readLine(), "woken") << "round " << round;
    }
  }
  EXPECT_TRUE(closeHandle(event));
}

// Processes open, set and close the event without a pause and are killed at any moment, and replaced.
TEST_F(EventBetweenProcesses, LeavesNoStaleStateAfterAHundredThousandOpensUnderKills) {
  auto users = actors(8);
  for (CompanionProcess& user : users) {
    user.send(std::string("churn ") + sharedEvent);
  }
  std::mt19937 random(20261121);
  long opens = 0;
  long kills = 0;
  while (opens < rounds(100'000) || kills < rounds(300)) {
    CompanionProcess& user = users[random() % users.size()];
    for (std::string line = user.readLine(1); line != "<nothing>"; line = user.readLine(0)) {
      ASSERT_EQ(line, "50");
      opens += 50;
    }
    user.kill();
    ++kills;
    user = actor();
    user.send(std::string("churn ") + sharedEvent);
  }
  users.clear();
  const Handle event = createEvent(sharedEvent);
  EXPECT_EQ(lastError(), noError);
  EXPECT_EQ(waitForEvent(event, 0), waitTimeout);
  EXPECT_TRUE(closeHandle(event));
}

}  // namespace
