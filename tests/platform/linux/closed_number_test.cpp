// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <string>

#include "platform/append_file.h"
#include "platform/linux/event_folder.h"
#include "platform/named_event.h"
#include "tests/support/linux/forked_child.h"
#include "tests/support/linux/open_number.h"
#include "tests/support/private_events.h"
#include "tests/support/temporary_folder.h"

// Applications close numbers that are not their own, above all daemons, which close all of them.

namespace {

using namespace platform;
using testsupport::ForeignFile;
using testsupport::numberOf;
using testsupport::readFile;

constexpr char closedEvent[] = "QMRK_CLOSED_TEST";

class ClosedLog : public ::testing::Test {
 protected:
  bool append(const std::string& _text) { return file_->append(_text.data(), _text.size()).error == noError; }

  testsupport::TemporaryFolder folder_;
  const std::string path_ = folder_.file("app.log");
  const std::string foreignPath_ = folder_.file("foreign");
  ErrorCode error_ = noError;
  std::unique_ptr<AppendFile> file_ = AppendFile::open(path_, false, error_);
};

TEST_F(ClosedLog, IsFoundAndOpenedAnew) {
  EXPECT_TRUE(append("1\n"));
  ASSERT_TRUE(file_->isStillAt(path_));
  ASSERT_EQ(::close(numberOf(path_)), 0);
  EXPECT_FALSE(append("lost\n"));
  ASSERT_FALSE(file_->isStillAt(path_));
  EXPECT_EQ(file_->reopen(path_, false), noError);
  EXPECT_TRUE(file_->isStillAt(path_));
  EXPECT_TRUE(append("2\n"));
  EXPECT_EQ(readFile(path_), "1\n2\n");
}

TEST_F(ClosedLog, LeavesItsNumberToAFileOfTheApplication) {
  const ForeignFile foreign(numberOf(path_), foreignPath_);
  ASSERT_FALSE(file_->isStillAt(path_));
  EXPECT_EQ(file_->reopen(path_, false), noError);
  EXPECT_TRUE(append("1\n"));
  EXPECT_EQ(readFile(path_), "1\n");
  file_.reset();
  EXPECT_TRUE(foreign.isOpen());
  EXPECT_EQ(readFile(foreignPath_), "");
}

// The first one has not looked yet, and what it remembers is the number that the second one has by then.
TEST_F(ClosedLog, IsNotClosedByTheEndOfAnotherOneThatHadTheNumber) {
  const int number = numberOf(path_);
  const std::unique_ptr<AppendFile> second = AppendFile::open(path_, false, error_);
  ASSERT_EQ(::close(number), 0);
  ASSERT_EQ(::close(numberOf(path_)), 0);
  EXPECT_EQ(second->reopen(path_, false), noError);
  ASSERT_EQ(numberOf(path_), number);
  EXPECT_FALSE(file_->isStillAt(path_));
  file_.reset();
  EXPECT_EQ(numberOf(path_), number);
  EXPECT_TRUE(second->isStillAt(path_));
  EXPECT_EQ(second->append("1\n", 2).error, noError);
}

TEST_F(ClosedLog, ClosesNoFileOfTheApplicationAtItsEnd) {
  const ForeignFile foreign(numberOf(path_), foreignPath_);
  file_.reset();
  EXPECT_TRUE(foreign.isOpen());
}

class ClosedEvent : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { testsupport::usePrivateEvents(); }

  static bool isUsed() {
    const Handle event = createEvent(closedEvent);
    const bool existed = lastError() == errorAlreadyExists;
    closeHandle(event);
    return existed;
  }

  const Handle event_ = createEvent(closedEvent);
  const std::string path_ = eventFolderPath() + "/" + closedEvent;
};

TEST_F(ClosedEvent, IsJoinedAnew) {
  ASSERT_EQ(::close(numberOf(path_)), 0);
  EXPECT_TRUE(setEvent(event_));
  EXPECT_TRUE(isUsed());
  EXPECT_EQ(waitForEvent(event_, 0), waitObject);
  // The last user removes the file, for which it needs a number.
  EXPECT_TRUE(closeHandle(event_));
  EXPECT_FALSE(std::filesystem::exists(path_));
}

TEST_F(ClosedEvent, LeavesItsNumberToAFileOfTheApplication) {
  const testsupport::TemporaryFolder folder;
  const ForeignFile foreign(numberOf(path_), folder.file("foreign"));
  EXPECT_TRUE(setEvent(event_));
  EXPECT_TRUE(isUsed());
  EXPECT_TRUE(foreign.isOpen());
  EXPECT_TRUE(closeHandle(event_));
  EXPECT_TRUE(foreign.isOpen());
}

// The first one has not looked yet, and what it remembers is the number that the second one has by then.
TEST_F(ClosedEvent, IsNotLeftByTheEndOfAnotherHandleThatHadTheNumber) {
  const Handle second = createEvent(closedEvent);
  const int number = numberOf(path_);
  ASSERT_EQ(::close(number), 0);
  ASSERT_EQ(::close(numberOf(path_)), 0);
  EXPECT_TRUE(setEvent(second));
  ASSERT_EQ(numberOf(path_), number);
  EXPECT_TRUE(closeHandle(event_));
  EXPECT_EQ(numberOf(path_), number);
  EXPECT_TRUE(std::filesystem::exists(path_));
  EXPECT_TRUE(closeHandle(second));
  EXPECT_FALSE(std::filesystem::exists(path_));
}

TEST_F(ClosedEvent, ClosesNoFileOfTheApplicationAtItsEnd) {
  const testsupport::TemporaryFolder folder;
  const ForeignFile foreign(numberOf(path_), folder.file("foreign"));
  EXPECT_TRUE(closeHandle(event_));
  EXPECT_TRUE(foreign.isOpen());
}

TEST_F(ClosedEvent, ClosesNoFileOfTheApplicationInAForkedChild) {
  const testsupport::TemporaryFolder folder;
  const ForeignFile foreign(numberOf(path_), folder.file("foreign"));
  EXPECT_EQ(testsupport::inForkedChild([&foreign] { return foreign.isOpen() ? 0 : 1; }), 0);
  EXPECT_TRUE(closeHandle(event_));
}

}  // namespace
