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

/// Lets one thread at a time into an appender. A thread that is already inside (because the appender logs a message
/// that comes back to it) may enter again. A thread inside another appender never waits, because two appenders that log
/// through each other would wait for ever: it hands its message over to the thread inside, which delivers it before it
/// leaves. In a forked child nobody is inside but perhaps the forking thread, and no message is handed over: the parent
/// delivers them.
class AppenderGate {
 public:
  /// The limit of handed-over messages in bytes, including the cost of keeping them. Beyond it, messages are dropped.
  static constexpr std::size_t mostHandedOver = std::size_t{1024} * 1024;

  /// @param _appender must outlive the gate, as must the name under which it was added, which reports use.
  AppenderGate(const appender& _appender, const std::string& _name) : appender_(_appender), name_(_name) {}

  /// Delivers a message to the appender, or hands it over. Contains exceptions of the appender. Reports dropped
  /// messages.
  /// @param _thread the state of the calling thread, which delivers a message.
  void deliver(ThreadState& _thread, const std::string& _logName, const std::string& _message) noexcept;

 private:
  struct HandedOver {
    std::string logName;
    std::string message;
    std::int64_t time = 0;
    /// How many messages were on their way through callables, one inside another, including this one.
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
  /// Held while a thread is inside; marked when another one hands a message over to it.
  ProcessLock inside_;
  ProcessLock lock_;
  /// A pointer, because a forked child must abandon what a thread of the parent may have been changing. May be null.
  std::unique_ptr<std::deque<HandedOver>> handedOver_;
  std::size_t handedOverSize_ = 0;
  std::uint32_t process_ = processStamp();
};

}  // namespace boost::logging::detail
