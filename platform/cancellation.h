// SPDX-License-Identifier: MIT
#pragma once

namespace platform {

/// While it lives, a request to cancel the calling thread (pthread_cancel) waits: the thread meets it at its next
/// cancellation point afterwards. For code that must be carried out whole, and for destructors, which cannot be
/// unwound. Objects nest. Costs no system call. Without effect on Windows, where a thread is ended anywhere or nowhere.
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
