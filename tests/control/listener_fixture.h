// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <iostream>
#include <memory>
#include <string>

#include "platform/named_event.h"
#include "platform/thread.h"
#include "quillmark_logging.h"
#include "tests/support/captured_console.h"
#include "tests/support/captured_stream.h"
#include "tests/support/config_sandbox.h"
#include "tests/support/fault_plan.h"
#include "tests/support/private_events.h"
#include "tests/support/sleeping_thread.h"
#include "tests/support/thread_exit_code.h"
#include "trace/trace_flags.h"

namespace testsupport {

/// For tests of LogEventHandler: events that no other test sees, a generic configuration with its class list, the trace
/// switched on, and both streams captured.
class Listener : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { usePrivateEvents(); }

  Listener() {
    sandbox_.writeCfg("GE", "REDIRECT_CA_NR=CA12\n");
    sandbox_.writeCfg("CA12", "LOG_STATE=TRUE\n");
    writeClasses("Listener.one;");
    Quillmark_logging::setLoadTimeTrace(true);
  }

  ~Listener() override { Quillmark_logging::setLoadTimeTrace(false); }

  /// The file of the class list, and its content.
  std::string classesPath() const { return sandbox_.initPath("CA12"); }
  void writeClasses(const std::string& _classes) const { sandbox_.writeInit("CA12", _classes); }

  /// Waits until the thread of the handler waits for its event, the first one traced.
  bool waitUntilListening(const LogEventHandler& _handler) const {
    return cout_.waitFor("eventHandle=") && waitUntilThreadSleeps(_handler.getThreadId());
  }

  /// Sets the event as another process would.
  static bool signal(const std::string& _event = "QMRK_LOG_EVENT") {
    const platform::Handle event = platform::openEvent(_event);
    const bool done = platform::setEvent(event);
    platform::closeHandle(event);
    return done;
  }

  /// Ends the thread of a handler gracefully.
  static void stop(LogEventHandler& _handler) {
    // A thread that is not yet waiting again would end without the setting.
    ASSERT_TRUE(waitUntilThreadSleeps(_handler.getThreadId()));
    _handler.setListenForEventState(false);
    ASSERT_TRUE(signal(_handler.getLogEventName()));
    ASSERT_EQ(platform::waitForThread(_handler.getThreadHandle(), 30'000), platform::waitObject);
  }

  /// A handler whose thread could not be started.
  template <class Handler = LogEventHandler>
  static std::unique_ptr<Handler> withoutThread() {
    const FaultPlan plan(platform::Call::createThread, 1, platform::errorAccessDenied);
    return std::make_unique<Handler>();
  }

  ConfigSandbox sandbox_;
  // The trace of the rest of the library, which follows the same switch.
  CapturedConsole console_;
  CapturedStream cout_{std::cout};
  CapturedStream cerr_{std::cerr};
};

}  // namespace testsupport
