// SPDX-License-Identifier: MIT
#include "tools/status/status_page_parser.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/tools/status/page_image.h"

namespace {

using qmrkctl::parseStatusPage;
using testsupport::PageImage;
namespace status = Quillmark_logging::status;

constexpr std::size_t firstFile = status::files.offset;

bool isRefused(const PageImage& _page) { return !parseStatusPage(_page.bytes()); }

TEST(StatusPageParser, ReadsAnEmptyPage) {
  const auto process = parseStatusPage(PageImage().bytes());
  ASSERT_TRUE(process);
  EXPECT_EQ(0u, process->pid);
  EXPECT_FALSE(process->writtenAt);
  EXPECT_FALSE(process->setUp.at);
  EXPECT_TRUE(process->applications.empty());
  EXPECT_TRUE(process->classes.logs.empty());
  EXPECT_TRUE(process->files.empty());
}

TEST(StatusPageParser, ReadsTheProcess) {
  PageImage page;
  page.number(status::pid, 4711).number(status::startTime, 0x1122334455667788).number(status::userId, 1000);
  page.text(status::program, "\\usr\\bin\\demo").text(status::libraryVersion, "1.0.0.0").text(status::user, "ann");
  page.text(status::caAsked, "CA12").text(status::caInEffect, "CA30").number(status::caSource, 2);
  page.number(status::caChanges, status::fallenBack | status::redirected).number(status::modes, 3);
  page.text(status::cfgPath, "a").text(status::initPath, "b").text(status::commonLogPath, "c");
  page.listHead(status::applications, 2, 5, 10)
      .raw(status::applications.offset + 16, std::string("\2\0\0ab\2\0\1cd", 10));
  const auto process = parseStatusPage(page.bytes());
  ASSERT_TRUE(process);
  EXPECT_EQ(4711u, process->pid);
  EXPECT_EQ(0x1122334455667788u, process->startTime);
  EXPECT_EQ(1000u, process->userId);
  EXPECT_EQ("ann", process->user);
  EXPECT_EQ("\\usr\\bin\\demo", process->program.text);
  EXPECT_EQ("1.0.0.0", process->libraryVersion);
  EXPECT_EQ("CA12", process->caAsked);
  EXPECT_EQ("CA30", process->caInEffect);
  EXPECT_EQ(status::CaSource::environment, process->caSource);
  EXPECT_EQ(3u, process->caChanges);
  EXPECT_TRUE(process->isThreadSafe);
  EXPECT_TRUE(process->traces);
  EXPECT_EQ("a", process->cfgPath.text);
  EXPECT_EQ("b", process->initPath.text);
  EXPECT_EQ("c", process->commonLogPath.text);
  ASSERT_EQ(2u, process->applications.size());
  EXPECT_EQ("ab", process->applications[0].name);
  EXPECT_FALSE(process->applications[0].isUnregistered);
  EXPECT_EQ("cd", process->applications[1].name);
  EXPECT_TRUE(process->applications[1].isUnregistered);
  EXPECT_EQ(5u, process->applicationsLeftOut);
}

TEST(StatusPageParser, ReadsSetUpClassesListenerAndFiles) {
  PageImage page;
  page.number(status::setUpCall, 1).number(status::setUpAt, 17).number(status::setUpResult, 2);
  page.number(status::setUpFailure, 3).text(status::setUpError, "off");
  page.number(status::classGeneration, 9).number(status::classesAt, 18).number(status::classHash, 19);
  page.text(status::classText, "A;").text(status::filter, "B;").listHead(status::logs, 1, 4, 4);
  page.raw(status::logs.offset + 16, std::string("\1\0\1L", 4))
      .number(status::ownChange, 6)
      .number(status::ownChangeAt, 20);
  page.number(status::listenerState, 2).number(status::listenerThreads, 1).text(status::listenerEvent, "EVENT");
  page.number(status::listenerGeneration, 21).number(status::listenerWakes, 22).number(status::listenerError, 5);
  page.number(status::filesUsed, 1).number(status::fileKind, 3, firstFile).number(status::fileState, 3, firstFile);
  page.number(status::fileLost, 23, firstFile).number(status::fileDropped, 24, firstFile);
  page.number(status::fileHeld, 25, firstFile).number(status::fileError, 112, firstFile);
  page.text(status::filePath, "f", firstFile).number(status::fileFailedAt, 26, firstFile);
  const auto process = parseStatusPage(page.bytes());
  ASSERT_TRUE(process);
  EXPECT_EQ(status::Call::initDefaultLogs, process->setUp.call);
  EXPECT_EQ(17, process->setUp.at);
  EXPECT_EQ(status::Result::failed, process->setUp.result);
  EXPECT_EQ(status::Failure::switchedOff, process->setUp.failure);
  EXPECT_EQ("off", process->setUp.error.text);
  EXPECT_EQ(9u, process->classes.generation);
  EXPECT_EQ(18, process->classes.appliedAt);
  EXPECT_EQ(19u, process->classes.hash);
  EXPECT_EQ("A;", process->classes.text.text);
  EXPECT_EQ("B;", process->classes.filter.text);
  ASSERT_EQ(1u, process->classes.logs.size());
  EXPECT_EQ("L", process->classes.logs[0].name);
  EXPECT_TRUE(process->classes.logs[0].isOn);
  EXPECT_EQ(4u, process->classes.logsLeftOut);
  EXPECT_EQ(status::Call::enableSpecifiedLogs, process->classes.ownChange);
  EXPECT_EQ(status::ListenerState::updating, process->listener.state);
  EXPECT_EQ("EVENT", process->listener.event);
  EXPECT_EQ(21u, process->listener.generation);
  EXPECT_EQ(22u, process->listener.wakes);
  EXPECT_EQ(5u, process->listener.error);
  ASSERT_EQ(1u, process->files.size());
  EXPECT_EQ("f", process->files[0].path.text);
  EXPECT_EQ(status::FileKind::rolling, process->files[0].kind);
  EXPECT_TRUE(process->files[0].isFailing);
  EXPECT_TRUE(process->files[0].hasOwnThread);
  EXPECT_EQ(23u, process->files[0].lost);
  EXPECT_EQ(24u, process->files[0].dropped);
  EXPECT_EQ(25u, process->files[0].held);
  EXPECT_EQ(26, process->files[0].failedAt);
  EXPECT_EQ(112u, process->files[0].error);
}

TEST(StatusPageParser, RefusesPagesOfAnotherLayout) {
  EXPECT_TRUE(isRefused(PageImage().raw(0, "qmrkstat")));
  EXPECT_TRUE(isRefused(PageImage().number(status::version, 2)));
  EXPECT_TRUE(isRefused(PageImage().number(status::size, 4096)));
  EXPECT_FALSE(parseStatusPage(""));
  EXPECT_FALSE(parseStatusPage(PageImage().bytes().substr(1)));
  EXPECT_FALSE(parseStatusPage(PageImage().bytes() + "x"));
}

TEST(StatusPageParser, RefusesAnUnfinishedPage) {
  EXPECT_TRUE(isRefused(PageImage().number(status::sequence, 7)));
  EXPECT_TRUE(isRefused(PageImage().number(status::sequence, 0)));
}

TEST(StatusPageParser, MarksATruncatedText) {
  const auto process = parseStatusPage(PageImage().text(status::filter, "abc", 3, 100).bytes());
  ASSERT_TRUE(process);
  EXPECT_EQ("abc", process->classes.filter.text);
  EXPECT_TRUE(process->classes.filter.isCut);
  EXPECT_EQ(100u, process->classes.filter.wholeSize);
}

TEST(StatusPageParser, KeepsSizesWithinTheirFields) {
  PageImage page;
  page.text(status::caAsked, "CA", 0xFFFFFFFF, 0).listHead(status::logs, 0xFFFFFFFF, 1, 0xFFFFFFFF);
  page.number(status::filesUsed, 0xFFFFFFFF).text(status::caInEffect, "next");
  const auto process = parseStatusPage(page.bytes());
  ASSERT_TRUE(process);
  EXPECT_EQ("CA" + std::string(status::caAsked.size - 10, '\0'), process->caAsked);
  EXPECT_LE(process->classes.logs.size(), status::logs.size / status::entryHead);
  EXPECT_EQ(status::fileCount, process->files.size());
}

TEST(StatusPageParser, StopsAtAnEntryBeyondItsList) {
  PageImage page;
  page.listHead(status::logs, 2, 0, 8).raw(status::logs.offset + 16, std::string("\1\0\0a\xFF\xFF\0b", 8));
  const auto process = parseStatusPage(page.bytes());
  ASSERT_TRUE(process);
  ASSERT_EQ(1u, process->classes.logs.size());
  EXPECT_EQ("a", process->classes.logs[0].name);
}

TEST(StatusPageParser, ReadsUnknownNumbersAsNothing) {
  PageImage page;
  page.number(status::caSource, 77).number(status::setUpFailure, 0xFFFFFFFF).number(status::listenerState, 9);
  page.number(status::writtenAt, 0xFFFFFFFFFFFFFFFF);
  const auto process = parseStatusPage(page.bytes());
  ASSERT_TRUE(process);
  EXPECT_EQ(status::CaSource::unknown, process->caSource);
  EXPECT_EQ(status::Failure::none, process->setUp.failure);
  EXPECT_EQ(status::ListenerState::none, process->listener.state);
  EXPECT_FALSE(process->writtenAt);
}

TEST(StatusPageParser, ReplacesInvalidUtf8ButKeepsTheBytes) {
  const auto process = parseStatusPage(PageImage().text(status::cfgPath, "a\xFF\xC3\xA4").bytes());
  ASSERT_TRUE(process);
  EXPECT_EQ("a\xEF\xBF\xBD\xC3\xA4", process->cfgPath.text);
  EXPECT_EQ("a\xFF\xC3\xA4", process->cfgPath.bytes);
}

TEST(StatusPageParser, SurvivesRandomBytes) {
  std::mt19937 random(1);
  for (int round = 0; round < 300; ++round) {
    PageImage page;
    for (std::size_t place = status::pid.offset; place < status::pageSize; place += 1 + random() % 64) {
      page.raw(place, std::string(1, static_cast<char>(random())));
    }
    const auto process = parseStatusPage(page.bytes());
    ASSERT_TRUE(process);
    ASSERT_LE(process->files.size(), status::fileCount);
  }
}

}  // namespace
