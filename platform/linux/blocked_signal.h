// SPDX-License-Identifier: MIT
#pragma once

#include <csignal>

namespace platform {

/// Keeps a signal that a write sends to its own thread (SIGXFSZ, SIGPIPE) from reaching the application: blocks it in
/// the calling thread while the object lives. What the application does with the signal elsewhere stays as it is.
class BlockedSignal {
 public:
  explicit BlockedSignal(int _signal);
  /// Restores the mask of the thread.
  ~BlockedSignal();
  BlockedSignal(const BlockedSignal&) = delete;
  BlockedSignal& operator=(const BlockedSignal&) = delete;

  /// To be called when the write has sent the signal: takes it away again, and leaves one that was sent otherwise, to
  /// the thread or to the process.
  void consume();

 private:
  bool isPending() const;
  bool take();

  int signal_;
  sigset_t set_;
  sigset_t former_;
  bool wasPending_;
};

}  // namespace platform
