// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>

#include "logmanager/threads/process_lock.h"

namespace boost::logging::detail {

struct Callable;
struct ThreadState;

/// Lets one thread at a time into an appender. A thread that is already inside (the appender logs a message that comes
/// back to it) is let in. A thread that is inside another appender never waits, as two appenders that log through each
/// other would wait for ever: when the gate is closed it hands its message over to the thread that is inside, which
/// passes it on before it goes. In a forked child nobody is inside but the thread that forked, if it was, and nothing
/// is handed over: the parent passes that on.
class AppenderGate {
 public:
  /// The most that is kept handed over, in bytes, with what it takes to keep it. What comes then is dropped.
  static constexpr std::size_t MOST_HANDED_OVER = std::size_t{1024} * 1024;

  /// Passes a message to the appender that the gate belongs to, or hands it over. Exceptions of the appender are
  /// contained. Messages that are dropped are reported.
  /// @param _thread the state of the calling thread.
  void pass(ThreadState& _thread, const Callable& _appender, const std::string& _logName,
            const std::string& _message) noexcept;

 private:
  struct HandedOver {
    std::string logName;
    std::string message;
    std::int64_t time = 0;
    /// How many messages were on their way through callables, one inside the other, this one included.
    int depth = 0;

    std::size_t size() const { return sizeof(HandedOver) + logName.size() + message.size(); }
  };

  bool enter(ThreadState& _thread, const Callable& _appender, const std::string& _logName, const std::string& _message);
  bool handOver(HandedOver _message);
  void exit(ThreadState& _thread, const Callable& _appender);
  bool openUnlessHandedOver();
  void passOn(ThreadState& _thread, const Callable& _appender);
  void restartInChild();

  /// Held while a thread is inside. Given back under the other lock only, so that whoever finds it held there knows
  /// that what it hands over will be seen.
  ProcessLock inside_;
  ProcessLock lock_;
  /// A pointer, since a forked child has to abandon what a thread of the parent may have been changing. May be null.
  std::unique_ptr<std::deque<HandedOver>> handedOver_;
  std::size_t handedOverSize_ = 0;
  std::uint32_t process_ = processStamp();
};

}  // namespace boost::logging::detail
