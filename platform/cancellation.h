// SPDX-License-Identifier: MIT
#pragma once

namespace platform {

/// Postpones, while it lives, a request to cancel the calling thread (pthread_cancel) to the next cancellation point
/// after it. Protects code that must run to its end, and destructors, which cannot be unwound. Objects nest. Costs no
/// system call. Does nothing on Windows, where a thread can be ended anywhere.
class CancellationDelay {
 public:
  CancellationDelay() noexcept;
  ~CancellationDelay();
  CancellationDelay(const CancellationDelay&) = delete;
  CancellationDelay& operator=(const CancellationDelay&) = delete;

 private:
  int former_ = 0;
};

}  // namespace platform
