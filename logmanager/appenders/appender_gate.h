// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>

#include "boost/logging/callables.hpp"
#include "logmanager/threads/process_lock.h"
#include "logmanager/threads/thread_state.h"

namespace boost::logging::detail {

/// Lets one thread at a time into an appender. A thread that is already inside (the appender logs a message that comes
/// back to it) is let in. A thread that is inside another appender never waits, as two appenders that log through each
/// other would wait for ever: when the gate is closed it hands its message over to the thread that is inside, which
/// delivers it before it leaves. In a forked child nobody is inside but the thread that forked, if it was, and nothing
/// is handed over: the parent delivers that.
class AppenderGate {
 public:
  /// The most that is kept handed over, in bytes, with what it takes to keep it. What comes then is dropped.
  static constexpr std::size_t mostHandedOver = std::size_t{1024} * 1024;

  /// @param _appender and the name under which it was added, for reports, have to outlive the gate.
  AppenderGate(const appender& _appender, const std::string& _name) : appender_(_appender), name_(_name) {}

  /// Delivers a message to the appender, or hands it over. Exceptions of the appender are contained. Messages that are
  /// dropped are reported.
  /// @param _thread the state of the calling thread, which delivers a message.
  void deliver(ThreadState& _thread, const std::string& _logName, const std::string& _message) noexcept;

 private:
  struct HandedOver {
    std::string logName;
    std::string message;
    std::int64_t time = 0;
    /// How many messages were on their way through callables, one inside the other, this one included.
    int depth = 0;

    std::size_t size() const { return sizeof(HandedOver) + logName.size() + message.size(); }
  };

  void call(const std::string& _logName, const std::string& _message) noexcept;
  bool enterOrHandOver(ThreadState& _thread, const std::string& _logName, const std::string& _message);
  bool keep(HandedOver _message);
  void deliverHandedOver(ThreadState& _thread);
  bool takeOrExit(HandedOver& _message);
  void restartInChild();

  const appender& appender_;
  const std::string& name_;
  /// Held while a thread is inside; marked when a message is handed over to it.
  ProcessLock inside_;
  ProcessLock lock_;
  /// A pointer, since a forked child has to abandon what a thread of the parent may have been changing. May be null.
  std::unique_ptr<std::deque<HandedOver>> handedOver_;
  std::size_t handedOverSize_ = 0;
  std::uint32_t process_ = processStamp();
};

}  // namespace boost::logging::detail
