// SPDX-License-Identifier: MIT
#include "tests/fault/linux/whole_life.h"

#include <boost/logging/logging.hpp>
#include <cstdint>
#include <exception>
#include <functional>
#include <string>

#include "platform/handle.h"
#include "platform/named_event.h"
#include "platform/process.h"
#include "platform/thread.h"
#include "quillmark_logging.h"
#include "tests/support/temporary_folder.h"

namespace fault {
namespace {

constexpr char ca[] = "CA12";

/// In milliseconds; against hanging.
constexpr std::uint32_t longestWait = 30'000;

bool succeeds(const std::function<bool()>& _step) {
  try {
    return _step();
  } catch (const std::exception&) {
    return false;
  }
}

bool logLine(const char* _log) {
  QMRK_LOG(boost::logging::logger(_log)) << "a line of " << _log;
  return true;
}

/// A listener of an event that no other process has.
class Listener : public LogEventHandler {
 public:
  Listener() : LogEventHandler(startLater) {
    setLogEventName(eventName().c_str());
    createWorkerThread();
  }

  static const std::string& eventName() {
    static const std::string name = "qmrk-fault-" + std::to_string(platform::processId());
    return name;
  }
};

bool listenForOneSetting() {
  const platform::Handle event = platform::createEvent(Listener::eventName());
  Listener listener;
  listener.setListenForEventState(false);
  // Nothing else ends it, so there is nothing to wait for without it.
  const bool hasEnded = platform::setEvent(event) &&
                        platform::waitForThread(listener.getThreadHandle(), longestWait) == platform::waitObject;
  platform::closeHandle(event);
  return listener.isCreated() != 0 && hasEnded;
}

}  // namespace

int liveOnce() {
  const std::function<bool()> steps[] = {
      [] { return logLine("Demo.early"); },
      [] { return Quillmark_logging::initDefaultLogs("Life", ca, false); },
      [] { return logLine("Demo.new"); },
      [] { return Quillmark_logging::createApplicationSpecificLogFile("Demo;", "Plain", "CA13", false); },
      [] { return Quillmark_logging::createApplicationSpecificLogFile("Demo.a;Demo.b;", "Rolling", ca, false); },
      [] { return logLine("Demo.a") && logLine("Demo.b"); },
      [] { return listenForOneSetting(); },
      [] { return Quillmark_logging::updateLogLevels(ca); },
      [] { return logLine("Demo.late"); },
  };
  int failures = 0;
  for (const auto& step : steps)
    failures += succeeds(step) ? 0 : 1;
  return failures;
}

bool isWell(const std::string& _commonLog) {
  static int asked = 0;
  const std::string text = "process " + std::to_string(platform::processId()) + " is well " + std::to_string(asked++);
  if (!Quillmark_logging::initDefaultLogs("Life", ca, false)) return false;
  QMRK_LOG(boost::logging::logger("Demo.well")) << text;
  return testsupport::readFile(_commonLog).find(text + "\n") != std::string::npos;
}

}  // namespace fault
