// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

namespace platform {

/// While it lives, a write of the calling thread that fails sends no signal to the application: not for a pipe that
/// nobody reads (SIGPIPE), not beyond the file size limit (SIGXFSZ). For writes that others make, as a stream does; the
/// functions of the seam do so by themselves. Does nothing on Windows, which has no such signals.
class QuietWrites {
 public:
  QuietWrites();
  ~QuietWrites();
  QuietWrites(const QuietWrites&) = delete;
  QuietWrites& operator=(const QuietWrites&) = delete;

  /// To be called when a write has failed.
  void consume();

 private:
  struct Signals;
  std::unique_ptr<Signals> signals_;
};

}  // namespace platform
