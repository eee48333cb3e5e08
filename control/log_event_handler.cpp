// SPDX-License-Identifier: MIT
#include <atomic>
#include <exception>
#include <memory>
#include <utility>

#include "control/listener_status.h"
#include "control/listener_trace.h"
#include "control/wait_result_line.h"
#include "platform/cancellation.h"
#include "platform/named_event.h"
#include "platform/thread.h"
#include "quillmark_logging.h"
#include "quillmark_logging_names.h"
#include "trace/trace_line.h"

using Quillmark_logging::boolName;
using Quillmark_logging::ListenerStatus;
using Quillmark_logging::traceError;
using Quillmark_logging::traceOut;

namespace {

constexpr std::uint32_t defaultTimeout = 1000;
constexpr std::uint32_t terminated = 1;
constexpr std::uint32_t noEvent = 0xFFFFFFFF;

// The worker reads these fields while the application may write them. The layout of the class wants them plain, so the
// accesses are made atomic here, one by one. Relaxed: nothing else is handed over with them.
template <class Value>
Value load(const Value& _field) {
  return std::atomic_ref<Value>(const_cast<Value&>(_field)).load(std::memory_order_relaxed);
}

template <class Value>
void store(Value& _field, Value _value) {
  std::atomic_ref<Value>(_field).store(_value, std::memory_order_relaxed);
}

// What is caught here and below are exceptions such as that of exhausted memory, which must not end the application.
// The termination of the thread passes, because it is none.
void traceException(const std::exception& _exception) {
  traceError("<!= LogEventHandler::Listen4EventThread() ERROR: ", _exception.what());
  ListenerStatus::showFailure("exception: ", _exception.what(), platform::noError);
}

void updateAndGoOn() {
  try {
    Quillmark_logging::updateLogLevels();
  } catch (const std::exception& exception) {
    traceException(exception);
  }
}

}  // namespace

LogEventHandler::LogEventHandler(StartLater /*_startLater*/)
    : threadHandle_(nullptr),
      threadId_(0),
      timeout_(defaultTimeout),
      logEventName_(Quillmark_logging::QMRK_LOG_EVENT),
      listenForEventState_(true) {}

LogEventHandler::LogEventHandler() : LogEventHandler(startLater) {
  traceOut("==> LogEventHandler::LogEventHandler()");
  createWorkerThread();
  traceOut("<== LogEventHandler::LogEventHandler()");
}

LogEventHandler::LogEventHandler(const LogEventHandler& _other) = default;

LogEventHandler& LogEventHandler::operator=(const LogEventHandler& _other) = default;

LogEventHandler::~LogEventHandler() {
  // What follows waits, and a wait is a place at which a thread can be cancelled, which a destructor cannot be.
  const platform::CancellationDelay delay;
  traceOut("==> LogEventHandler::~LogEventHandler() timeout_=", timeout_);
  if (threadHandle_ != nullptr) {
    if (platform::waitForThread(threadHandle_, timeout_) == platform::waitTimeout) {
      platform::terminateThread(threadHandle_, terminated);
      ListenerStatus::showEnd(threadId_);
    }
    closeHandle(threadHandle_);
  }
  // The entry mark on the closing line is what readers of these traces look for.
  traceOut("==> LogEventHandler::~LogEventHandler()");
}

bool LogEventHandler::createWorkerThread() {
  if (isCreated() != 0) return false;
  // To start a thread takes a wait. An object that is unwound from there would not know the thread that runs on it.
  const platform::CancellationDelay delay;
  ListenerStatus::showCa();
  // The new thread frees the box. When there is none, the box is left alone.
  auto* box = new LogEventHandler*(this);
  std::uint32_t id = threadId_;
  threadHandle_ =
      platform::createThread([](void* _box) { return static_cast<std::uint32_t>(runProcess(_box)); }, box, id);
  threadId_ = id;
  return threadHandle_ != nullptr;
}

int LogEventHandler::isCreated() const { return threadHandle_ != nullptr ? 1 : 0; }

Quillmark_logging::handle LogEventHandler::getThreadHandle() const { return threadHandle_; }

Quillmark_logging::dword LogEventHandler::getThreadId() const { return threadId_; }

bool LogEventHandler::getListenForEventState() const { return load(listenForEventState_); }

void LogEventHandler::setListenForEventState(bool _listenForEventState) {
  store(listenForEventState_, _listenForEventState);
}

const char* LogEventHandler::getLogEventName() const { return load(logEventName_); }

void LogEventHandler::setLogEventName(const char* _logEventName) { store(logEventName_, _logEventName); }

// NOLINTNEXTLINE(performance-unnecessary-value-param): by value is what callers are linked against
void LogEventHandler::setLogEventName(std::string _logEventName) { store(logEventName_, _logEventName.c_str()); }

int LogEventHandler::runProcess(void* _box) {
  // The box is freed before the call, out of which the thread may be terminated.
  LogEventHandler* const handler = *std::unique_ptr<LogEventHandler*>(static_cast<LogEventHandler**>(_box));
  try {
    return static_cast<int>(handler->listen4EventThread(nullptr));
  } catch (const std::exception& exception) {
    traceException(exception);
    return static_cast<int>(noEvent);
  }
}

Quillmark_logging::dword LogEventHandler::listen4EventThread(void* /*_argument*/) {
  traceOut("==> LogEventHandler::Listen4EventThread()");
  const std::string eventName = load(logEventName_);
  const Quillmark_logging::handle event = createEvent(eventName);
  if (event == nullptr) {
    const platform::ErrorCode error = platform::lastError();
    // The name as it is now, which another thread may have set meanwhile.
    traceError("<!= LogEventHandler::Listen4EventThread() ERROR: Failed to create event \"", load(logEventName_),
               "\", GetLastError=", error);
    ListenerStatus::showNoStart(eventName, error);
    return noEvent;
  }
  ListenerStatus shown(eventName, event);
  while (load(listenForEventState_)) {
    try {
      const std::uint32_t result = platform::waitForEvent(event, platform::waitForever);
      traceOut(Quillmark_logging::waitResultLine(result));
      if (result == platform::waitObject) {
        shown.showUpdate();
        updateAndGoOn();
        // After the update on purpose: one update is enough for all settings until here.
        resetEvent(event);
        shown.showWait();
      }
    } catch (const std::exception& exception) {
      traceException(exception);
    }
  }
  closeHandle(event);
  traceOut("<== LogEventHandler::Listen4EventThread()");
  return 0;
}

Quillmark_logging::handle LogEventHandler::createEvent(std::string _eventName) {
  if (_eventName.empty()) _eventName = load(logEventName_);
  traceOut("==> LogEventHandler::createEvent() _eventName=\"", _eventName, "\"");
  const Quillmark_logging::handle event = platform::createEvent(_eventName);
  const platform::ErrorCode error = platform::lastError();
  if (event == nullptr) {
    traceError("<!= LogEventHandler::createEvent() ERROR: Failed to create event \"", _eventName,
               "\", GetLastError=", error);
    platform::setLastError(error);
    return nullptr;
  }
  const char* outcome = error == platform::errorAlreadyExists ? "\" did already exist, opening existing event..."
                                                              : "\" successfully created...";
  traceOut("<== LogEventHandler::createEvent() Event \"", _eventName, outcome, " eventHandle=", event);
  return event;
}

bool LogEventHandler::resetEvent(Quillmark_logging::handle _handle) {
  traceOut("==> LogEventHandler::resetEvent() _handle=", _handle);
  const bool done = platform::resetEvent(_handle);
  traceOut("<== LogEventHandler::resetEvent() returns ", boolName(done));
  return done;
}

bool LogEventHandler::closeHandle(Quillmark_logging::handle _handle) {
  traceOut("==> LogEventHandler::closeHandle() _handle=", _handle);
  if (_handle == nullptr) {
    traceOut("<!= LogEventHandler::closeHandle() WARNING/ERROR: No valid handle to close.");
    return false;
  }
  const bool done = platform::closeHandle(_handle);
  traceOut("<== LogEventHandler::closeHandle() returns ", boolName(done));
  return done;
}
