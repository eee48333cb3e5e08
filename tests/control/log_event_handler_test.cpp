// SPDX-License-Identifier: MIT
#include <chrono>
#include <cstring>

#include "tests/control/listener_fixture.h"
#include "tests/support/virtual_slot.h"

namespace {

using namespace platform;
using testsupport::exitCodeOfThread;
using testsupport::FaultPlan;

class LogEventHandlerTest : public testsupport::Listener {};

// What the fields look like to a program that was compiled with another header.
struct Fields {
  void* virtualTable;
  Quillmark_logging::handle threadHandle;
  Quillmark_logging::dword threadId;
  Quillmark_logging::dword timeout;
  const char* logEventName;
  bool listenForEventState;
};
static_assert(sizeof(Fields) == sizeof(LogEventHandler));

Fields fieldsOf(const LogEventHandler& _handler) {
  Fields fields{};
  std::memcpy(&fields, static_cast<const void*>(&_handler), sizeof fields);
  return fields;
}

TEST_F(LogEventHandlerTest, StartsAThreadAndUsesTheDefaultName) {
  LogEventHandler handler;
  EXPECT_NE(handler.getThreadId(), 0U);
  EXPECT_NE(handler.getThreadHandle(), nullptr);
  EXPECT_EQ(handler.isCreated(), 1);
  EXPECT_TRUE(handler.getListenForEventState());
  EXPECT_STREQ(handler.getLogEventName(), "QMRK_LOG_EVENT");
  ASSERT_TRUE(waitUntilListening(handler));
  stop(handler);
}

TEST_F(LogEventHandlerTest, KeepsItsFieldsInTheirOrder) {
  const auto handler = withoutThread();
  handler->setListenForEventState(false);
  Fields fields = fieldsOf(*handler);
  EXPECT_EQ(fields.threadHandle, nullptr);
  EXPECT_EQ(fields.threadId, 0U);
  EXPECT_EQ(fields.timeout, 1000U);
  EXPECT_STREQ(fields.logEventName, "QMRK_LOG_EVENT");
  EXPECT_FALSE(fields.listenForEventState);
  handler->setListenForEventState(true);
  ASSERT_TRUE(handler->createWorkerThread());
  fields = fieldsOf(*handler);
  EXPECT_EQ(fields.threadHandle, handler->getThreadHandle());
  EXPECT_EQ(fields.threadId, handler->getThreadId());
  EXPECT_TRUE(fields.listenForEventState);
  ASSERT_TRUE(waitUntilListening(*handler));
  stop(*handler);
}

TEST_F(LogEventHandlerTest, StartsNoSecondThread) {
  LogEventHandler handler;
  ASSERT_TRUE(waitUntilListening(handler));
  const auto thread = handler.getThreadHandle();
  const auto id = handler.getThreadId();
  const FaultPlan counter(Call::createThread, 1000, errorAccessDenied);
  EXPECT_FALSE(handler.createWorkerThread());
  EXPECT_EQ(counter.calls(), 0);
  EXPECT_EQ(handler.getThreadHandle(), thread);
  EXPECT_EQ(handler.getThreadId(), id);
  stop(handler);
  EXPECT_FALSE(handler.createWorkerThread());
  EXPECT_EQ(counter.calls(), 0);
}

TEST_F(LogEventHandlerTest, CanStartItsThreadLaterWhenTheSystemRefused) {
  const auto handler = withoutThread();
  EXPECT_EQ(handler->isCreated(), 0);
  EXPECT_EQ(handler->getThreadHandle(), nullptr);
  EXPECT_EQ(handler->getThreadId(), 0U);
  EXPECT_EQ(cout_.text(), "==> LogEventHandler::LogEventHandler()\n<== LogEventHandler::LogEventHandler()\n");
  EXPECT_EQ(cerr_.text(), "");
  EXPECT_TRUE(handler->createWorkerThread());
  EXPECT_EQ(handler->isCreated(), 1);
  ASSERT_TRUE(waitUntilListening(*handler));
  stop(*handler);
}

TEST_F(LogEventHandlerTest, TerminatesAWaitingThreadAfterItsTimeOut) {
  auto handler = std::make_unique<LogEventHandler>();
  ASSERT_TRUE(waitUntilListening(*handler));
  const Handle thread = duplicateHandle(handler->getThreadHandle());
  const auto start = std::chrono::steady_clock::now();
  handler.reset();
  EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(1000));
  EXPECT_EQ(waitForThread(thread, 0), waitObject);
  EXPECT_EQ(exitCodeOfThread(thread), 1U);
  EXPECT_TRUE(closeHandle(thread));
}

TEST_F(LogEventHandlerTest, EndsWithExitCodeZeroAtTheNextSettingOnceItShouldStop) {
  LogEventHandler handler;
  ASSERT_TRUE(waitUntilListening(handler));
  handler.setListenForEventState(false);
  EXPECT_FALSE(handler.getListenForEventState());
  EXPECT_EQ(waitForThread(handler.getThreadHandle(), 100), waitTimeout);
  ASSERT_TRUE(signal());
  EXPECT_EQ(waitForThread(handler.getThreadHandle(), 30'000), waitObject);
  EXPECT_EQ(exitCodeOfThread(handler.getThreadHandle()), 0U);
  EXPECT_EQ(cout_.count("WAIT_OBJECT_0 (0)"), 1);
  EXPECT_EQ(cout_.count("LogEventHandler::resetEvent() returns true"), 1);
}

TEST_F(LogEventHandlerTest, EndsWithAllBitsSetWhenItCannotCreateTheEvent) {
  const FaultPlan plan(Call::openEvent, 1, errorDiskFull);
  LogEventHandler handler;
  EXPECT_EQ(waitForThread(handler.getThreadHandle(), 30'000), waitObject);
  EXPECT_EQ(exitCodeOfThread(handler.getThreadHandle()), 0xFFFFFFFF);
  EXPECT_EQ(handler.isCreated(), 1);
  EXPECT_EQ(cerr_.text(),
            "<!= LogEventHandler::createEvent() ERROR: Failed to create event \"QMRK_LOG_EVENT\", GetLastError=112\n"
            "<!= LogEventHandler::Listen4EventThread() ERROR: Failed to create event \"QMRK_LOG_EVENT\", "
            "GetLastError=112\n");
}

TEST_F(LogEventHandlerTest, WaitsAgainAtOnceWhenAWaitFails) {
  const FaultPlan plan(Call::waitEvent, 1, errorAccessDenied, 3);
  LogEventHandler handler;
  ASSERT_TRUE(cout_.waitFor("WAIT_FAILED (4294967295)", 3));
  stop(handler);
  EXPECT_EQ(cout_.count("WAIT_FAILED (4294967295)"), 3);
  EXPECT_EQ(exitCodeOfThread(handler.getThreadHandle()), 0U);
}

TEST_F(LogEventHandlerTest, TracesAFailedReset) {
  LogEventHandler handler;
  ASSERT_TRUE(waitUntilListening(handler));
  {
    const FaultPlan plan(Call::resetEvent, 1, errorAccessDenied);
    stop(handler);
  }
  EXPECT_EQ(cout_.count("<== LogEventHandler::resetEvent() returns false\n"), 1);
}

TEST_F(LogEventHandlerTest, SharesItsThreadWithACopyAndClosesTheHandleOnce) {
  auto handler = std::make_unique<LogEventHandler>();
  ASSERT_TRUE(waitUntilListening(*handler));
  const FaultPlan counter(Call::createThread, 1000, errorAccessDenied);
  auto copy = std::make_unique<LogEventHandler>(*handler);
  EXPECT_EQ(counter.calls(), 0);
  EXPECT_EQ(copy->getThreadHandle(), handler->getThreadHandle());
  EXPECT_EQ(copy->getThreadId(), handler->getThreadId());
  EXPECT_EQ(copy->getLogEventName(), handler->getLogEventName());
  EXPECT_EQ(copy->getListenForEventState(), handler->getListenForEventState());
  handler.reset();
  EXPECT_EQ(cout_.count("<== LogEventHandler::closeHandle() returns true\n"), 1);
  EXPECT_EQ(cout_.count("<== LogEventHandler::closeHandle() returns false\n"), 0);
  copy.reset();
  EXPECT_EQ(cout_.count("<== LogEventHandler::closeHandle() returns true\n"), 1);
  EXPECT_EQ(cout_.count("<== LogEventHandler::closeHandle() returns false\n"), 1);
  EXPECT_EQ(cout_.count("==> LogEventHandler::~LogEventHandler() timeout_=1000\n"), 2);
}

TEST_F(LogEventHandlerTest, AssignsEveryField) {
  const auto handler = std::make_unique<LogEventHandler>();
  ASSERT_TRUE(waitUntilListening(*handler));
  const auto other = withoutThread();
  handler->setLogEventName("QMRK_OTHER_EVENT");
  handler->setListenForEventState(false);
  EXPECT_EQ(&(*other = *handler), other.get());
  EXPECT_EQ(other->getThreadHandle(), handler->getThreadHandle());
  EXPECT_EQ(other->getThreadId(), handler->getThreadId());
  EXPECT_STREQ(other->getLogEventName(), "QMRK_OTHER_EVENT");
  EXPECT_FALSE(other->getListenForEventState());
  ASSERT_TRUE(signal());
  ASSERT_EQ(waitForThread(handler->getThreadHandle(), 30'000), waitObject);
}

TEST_F(LogEventHandlerTest, StoresThePointerToANameAndUsesItForTheNextThread) {
  const auto handler = withoutThread();
  const char name[] = "QMRK_OTHER_EVENT";
  handler->setLogEventName(name);
  EXPECT_EQ(handler->getLogEventName(), name);
  ASSERT_TRUE(handler->createWorkerThread());
  ASSERT_TRUE(waitUntilListening(*handler));
  EXPECT_EQ(openEvent("QMRK_LOG_EVENT"), nullptr);
  EXPECT_EQ(cout_.count("==> LogEventHandler::createEvent() _eventName=\"QMRK_OTHER_EVENT\"\n"), 1);
  stop(*handler);
}

TEST_F(LogEventHandlerTest, IgnoresANewNameWhileItsThreadRuns) {
  LogEventHandler handler;
  ASSERT_TRUE(waitUntilListening(handler));
  handler.setLogEventName("QMRK_OTHER_EVENT");
  handler.setListenForEventState(false);
  EXPECT_FALSE(signal("QMRK_OTHER_EVENT"));
  ASSERT_TRUE(signal("QMRK_LOG_EVENT"));
  EXPECT_EQ(waitForThread(handler.getThreadHandle(), 30'000), waitObject);
}

// The address is all that may be looked at: the characters are gone.
TEST_F(LogEventHandlerTest, StoresOnlyTheAddressOfAString) {
  const auto handler = withoutThread();
  const char* const before = handler->getLogEventName();
  handler->setLogEventName(std::string("QMRK_OTHER_EVENT"));
  EXPECT_NE(handler->getLogEventName(), before);
  handler->setLogEventName(before);
}

// The application's stream throws at every line, in the constructor and in the thread.
TEST_F(LogEventHandlerTest, ListensEvenIfItCannotWriteALine) {
  std::cout.setstate(std::ios::badbit);
  const auto former = std::cout.exceptions();
  EXPECT_THROW(std::cout.exceptions(std::ios::badbit), std::ios::failure);
  {
    LogEventHandler handler;
    Handle event = nullptr;
    while (event == nullptr) {
      event = openEvent("QMRK_LOG_EVENT");
    }
    stop(handler);
    EXPECT_EQ(exitCodeOfThread(handler.getThreadHandle()), 0U);
    closeHandle(event);
  }
  std::cout.clear();
  std::cout.exceptions(former);
}

struct Revealing : LogEventHandler {
  using LogEventHandler::listen4EventThread;
};

TEST_F(LogEventHandlerTest, KeepsTheBodyOfItsThreadAfterTheDestructorInTheVirtualTable) {
  EXPECT_EQ(testsupport::virtualSlot(&Revealing::listen4EventThread), 2U);
}

TEST_F(LogEventHandlerTest, PrintsNothingWhileTheTraceIsOff) {
  Quillmark_logging::setLoadTimeTrace(false);
  {
    LogEventHandler handler;
    Handle event = nullptr;
    while (event == nullptr) {
      event = openEvent("QMRK_LOG_EVENT");
    }
    stop(handler);
    closeHandle(event);
  }
  EXPECT_EQ(cout_.text(), "");
  EXPECT_EQ(cerr_.text(), "");
}

}  // namespace

// A box is left alone on purpose when its thread could not be started.
// NOLINTNEXTLINE(bugprone-reserved-identifier,readability-identifier-naming): the name is the sanitizer's
extern "C" __attribute__((visibility("default"))) const char* __lsan_default_suppressions() {
  return "leak:LogEventHandler::createWorkerThread\n";
}
