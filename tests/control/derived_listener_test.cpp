// SPDX-License-Identifier: MIT
#include <stdexcept>

#include "tests/control/listener_fixture.h"

namespace {

using namespace platform;
using testsupport::exitCodeOfThread;

class DerivedListener : public testsupport::Listener {};

class Overriding : public LogEventHandler {
 public:
  bool hadNullArgument() const { return argument_ == nullptr; }

 protected:
  Quillmark_logging::dword listen4EventThread(void* _argument) override {
    argument_ = _argument;
    return 77;
  }

 private:
  void* argument_ = this;
};

TEST_F(DerivedListener, ProvidesTheBodyAndTheExitCodeOfTheThread) {
  const auto handler = withoutThread<Overriding>();
  ASSERT_TRUE(handler->createWorkerThread());
  ASSERT_EQ(waitForThread(handler->getThreadHandle(), 30'000), waitObject);
  EXPECT_TRUE(handler->hadNullArgument());
  EXPECT_EQ(exitCodeOfThread(handler->getThreadHandle()), 77U);
}

// Its thread needs a member that only its own constructor sets.
class Complete : public LogEventHandler {
 public:
  Complete() : LogEventHandler(startLater), createdBefore_(isCreated()), answer_(42) { createWorkerThread(); }
  int createdBefore() const { return createdBefore_; }

 protected:
  Quillmark_logging::dword listen4EventThread(void* /*_argument*/) override { return answer_; }

 private:
  int createdBefore_;
  Quillmark_logging::dword answer_;
};

TEST_F(DerivedListener, MayStartItsThreadAsTheLastStepOfItsConstructor) {
  const Complete handler;
  EXPECT_EQ(handler.createdBefore(), 0);
  EXPECT_EQ(handler.isCreated(), 1);
  EXPECT_STREQ(handler.getLogEventName(), "QMRK_LOG_EVENT");
  EXPECT_TRUE(handler.getListenForEventState());
  ASSERT_EQ(waitForThread(handler.getThreadHandle(), 30'000), waitObject);
  EXPECT_EQ(exitCodeOfThread(handler.getThreadHandle()), 42U);
  EXPECT_EQ(cout_.text(), "");
}

class Throwing : public LogEventHandler {
 public:
  Throwing() : LogEventHandler(startLater) { createWorkerThread(); }

 protected:
  Quillmark_logging::dword listen4EventThread(void* /*_argument*/) override { throw std::runtime_error("no more"); }
};

TEST_F(DerivedListener, EndsWithAllBitsSetWhenTheBodyThrows) {
  const Throwing handler;
  ASSERT_EQ(waitForThread(handler.getThreadHandle(), 30'000), waitObject);
  EXPECT_EQ(exitCodeOfThread(handler.getThreadHandle()), 0xFFFFFFFF);
  EXPECT_EQ(cerr_.text(), "<!= LogEventHandler::Listen4EventThread() ERROR: no more\n");
}

}  // namespace
