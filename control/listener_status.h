// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "platform/errors.h"
#include "platform/handle.h"

namespace Quillmark_logging {

/// What a listener tells tools on the status page; made and destroyed by its thread. Nothing here fails, throws or
/// leaves a trace.
class ListenerStatus {
 public:
  /// To be called by who starts a listener: whose class list it will follow.
  static void showCa() noexcept;

  /// It waits for the event, whose handle must stay open.
  ListenerStatus(const std::string& _eventName, platform::Handle _event) noexcept;
  /// It has ended, even when its thread is terminated.
  ~ListenerStatus();
  ListenerStatus(const ListenerStatus&) = delete;
  ListenerStatus& operator=(const ListenerStatus&) = delete;

  /// It was woken, and updates the classes.
  void showUpdate() noexcept;
  /// It waits again.
  void showWait() noexcept;

  /// For one that was terminated where destructors do not run; without effect when it has ended.
  static void showEnd(std::uint32_t _threadId) noexcept;

  /// A failure of any listener.
  static void showFailure(const char* _text, const std::string& _subject, platform::ErrorCode _error) noexcept;
  /// One after which there is no listener.
  static void showNoStart(const std::string& _eventName, platform::ErrorCode _error) noexcept;

 private:
  platform::Handle event_;
};

}  // namespace Quillmark_logging
