// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <deque>
#include <mutex>
#include <string>

namespace boost::logging::detail {

struct Callable;
struct ThreadState;

/// Lets one thread at a time into an appender. A thread that is already inside (the appender logs a message that comes
/// back to it) is let in. A thread that is inside another appender never waits, as two appenders that log through each
/// other would wait for ever: when the gate is closed it leaves its message with the thread that is inside, which
/// passes it on before it goes.
class AppenderGate {
 public:
  /// Passes a message to the appender that the gate belongs to, or leaves it there. Exceptions of the appender are
  /// contained.
  void pass(const Callable& _appender, const std::string& _logName, const std::string& _message) noexcept;

 private:
  struct Left {
    std::string logName;
    std::string message;
    std::int64_t time;
  };

  void leaveMessage(const Callable& _appender, const std::string& _logName, const std::string& _message);
  void leave(const Callable& _appender);
  void passOnLeft(const Callable& _appender);
  bool takeLeft(Left& _left);

  std::mutex inside_;
  /// The thread that is inside, known by its state.
  std::atomic<const ThreadState*> owner_{nullptr};
  std::mutex leftLock_;
  std::deque<Left> left_;
  std::atomic<bool> isLeft_{false};
};

}  // namespace boost::logging::detail
